#include "tests/lists/correction/correction_form_fixture.h"
#include "tests/support/fakeHelp.h"

#include "app/text/lang.h"
#include "closed/loader.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>

namespace tarvik {

TEST_F(CorrectionForm, HasItsControls)
{
    Open();
    ExpectControls(form,
        { "TbFileName", "CbExt", "TbAntName", "TbManufacturerName", "TbAntCode", "TbStartFreq", "TbStopFreq", "CsTab",
            "KFactorGroup", "OmniphaseGroup", "AzimuthGroup", "KT_VScroll", "OP_VScroll", "AZ_VScroll", "KT_LbHdr_freq",
            "KT_LbHdr_passive", "KT_LbHdr_active", "OP_LbHdr_freq", "OP_LbHdr_deg", "AZ_LbHdr_freq", "AZ_LbHdr_azimuth",
            "KT_TbCol_freq[19]", "OP_TbCol_deg[0]", "AZ_TbCol_azimuth[8]", "KT_BtDelete", "OP_BtDelete", "AZ_BtDelete",
            "KT_BtSort", "OP_BtSort", "AZ_BtSort", "KT_BtView", "OP_BtView", "BtSave" });
    EXPECT_EQ(form.findChild<QWidget*>("AZ_BtView"), nullptr);
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor");
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").count(), 1);
    EXPECT_EQ(Find<QComboBox>(form, "CbExt").itemText(0), ".TVC");
    EXPECT_EQ(Find<QScrollBar>(form, "KT_VScroll").maximum(), 980);
    EXPECT_EQ(Find<QScrollBar>(form, "AZ_VScroll").maximum(), 991);
    EXPECT_EQ(TextOf(form, "KT_LbCol_row[0]"), "1");
    EXPECT_EQ(TextOf(form, "TbAntCode"), "0");
    EXPECT_EQ(TextOf(form, "TbStartFreq"), "0");
    EXPECT_TRUE(HasFocus(form, "TbFileName"));
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, NothingIsClippedOnAnyTab)
{
    Open();
    for (int tab = 0; tab < 3; ++tab) {
        Tabs().setCurrentIndex(tab);
        ExpectNothingClipped(form);
    }
}

TEST_F(CorrectionForm, TabOrderIsReadingOrderOnEachTab)
{
    Open(StoredSet("Mast.tvc"));
    for (int tab = 0; tab < 3; ++tab) {
        Tabs().setCurrentIndex(tab);
        ExpectTabOrder(form);
    }
}

TEST_F(CorrectionForm, CommandsOfEachTabHaveTheirMnemonics)
{
    Open(StoredSet("Mast.tvc"));
    for (int tab = 0; tab < 3; ++tab) {
        Tabs().setCurrentIndex(tab);
        ExpectMnemonics(form);
    }
}

TEST_F(CorrectionForm, ControlsHaveTheirTopics)
{
    Open();
    const QList<std::pair<QString, int>> topics{ { "CbExt", 10764 }, { "TbFileName", 11999 }, { "TbAntName", 11999 },
        { "TbManufacturerName", 11999 }, { "TbAntCode", 11999 }, { "TbStartFreq", 11999 }, { "TbStopFreq", 11999 },
        { "CsTab", 11999 }, { "KT_LbHdr_freq", 11999 }, { "KT_TbCol_passive[0]", 11999 }, { "OP_TbCol_deg[19]", 11999 },
        { "AZ_TbCol_azimuth[8]", 11999 }, { "AZ_VScroll", 11999 }, { "KT_BtSort", 10724 }, { "OP_BtView", 10722 },
        { "AZ_BtDelete", 10712 }, { "BtNew", 10718 }, { "BtOpen", 10714 }, { "BtSave", 10716 }, { "BtHelp", 10734 },
        { "BtClose", 10710 } };
    for (const auto& [name, topic] : topics)
        EXPECT_EQ(HelpNumberOf(&FindControl(form, name)), topic) << name.toStdString();
}

TEST_F(CorrectionForm, HelpShowsItsTopic)
{
    FakeHelp help;
    Open();
    Click(form, "BtHelp");
    EXPECT_EQ(help.Topics, QList<int>{ 11999 });
}

TEST_F(CorrectionForm, OpensFileWithPlainFrequencies)
{
    Open(StoredSet("Mast.tvc"));
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor - Mast.tvc");
    EXPECT_EQ(TextOf(form, "TbFileName"), "Mast");
    EXPECT_EQ(TextOf(form, "TbStartFreq"), "30.5");
    EXPECT_EQ(TextOf(form, "KT_TbCol_passive[1]"), "3.00");
    EXPECT_EQ(TextOf(form, "OP_TbCol_deg[1]"), "180.00");
    EXPECT_EQ(Find<GridLines>(form, "AZ_TbCol_azimuth[1]").Text(), "10.00 | 20.00");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, DamagedFileClosesTheForm)
{
    Store(FilePath("bad.tvc"), "no set");
    Open(FilePath("bad.tvc"));
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(CorrectionForm, HeaderIsValidatedInItsOrder)
{
    Open();
    Answers().Expect(12766, { QStringLiteral("correction set") }, Ok);
    Answers().Expect(12767, { QStringLiteral("correction set") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbFileName"));
    TypeAndLeave("TbFileName", "Mast");
    Answers().Expect(12767, { QStringLiteral("Antenna") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbAntName"));
}

TEST_F(CorrectionForm, HeaderBoxIsCheckedOnLeaving)
{
    Open();
    Type(form, "TbAntCode", "x");
    Answers().Expect(12765, QStringList(), Ok);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(form, "TbAntCode"));
    TypeAndLeave("TbAntCode", "999");
    EXPECT_EQ(TextOf(form, "TbAntCode"), "255");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, HeaderBoxesAreCheckedInOrder)
{
    Open(StoredSet("Mast.tvc"));
    struct Step {
        const char* Box;
        const char* Bad;
        const char* Good;
        int Message;
        QStringList Args;
    };
    const QList<Step> steps{ { "TbFileName", "none", "Mast", 12770, { "correction set" } },
        { "TbAntName", "", "Dipole", 12767, { "Antenna" } }, { "TbAntCode", "x", "7", 12765, {} },
        { "TbStartFreq", "x", "30", 12765, {} }, { "TbStopFreq", "", "40", 12765, {} },
        { "TbManufacturerName", "a;b", "Works", 12767, { "Manufacturer" } } };
    for (const Step& step : steps)
        Type(form, step.Box, step.Bad);
    for (const Step& step : steps) {
        Answers().Expect(step.Message, step.Args, Ok);
        if (step.Message == 12770)
            Answers().Expect(12767, step.Args, Ok);
        EXPECT_FALSE(form.Save());
        EXPECT_TRUE(HasFocus(form, step.Box)) << step.Box;
        Answers().Verify();
        Type(form, step.Box, step.Good);
    }
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(CorrectionForm, BadNameOfTheSetCanBeLeft)
{
    Open();
    Type(form, "TbFileName", "a.b");
    Key(Qt::Key_Tab);
    EXPECT_FALSE(HasFocus(form, "TbFileName"));
    Key(form, "TbAntName", Qt::Key_Tab); // empty, and not edited
    EXPECT_FALSE(HasFocus(form, "TbAntName"));
}

TEST_F(CorrectionForm, NameOfTheSetRemovesTheFileFromTheTitle)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "TbManufacturerName", "Other");
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor - Mast.tvc");
    Editor().EditorDirty = false;
    Type(form, "TbFileName", "Whip");
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, HeaderBoxesTakeTheirLengths)
{
    Open();
    for (const char* box : { "TbFileName", "TbAntName", "TbManufacturerName" }) {
        Type(form, box, QString(40, u'a'));
        EXPECT_EQ(TextOf(form, box).size(), 32) << box;
    }
}

TEST_F(CorrectionForm, EnterInHeaderBoxActsAsTab)
{
    Open(StoredSet("Mast.tvc"));
    for (const char* box :
        { "TbFileName", "TbAntName", "TbAntCode", "TbManufacturerName", "TbStartFreq", "TbStopFreq" }) {
        Key(form, box, Qt::Key_Tab);
        const QWidget* next = QApplication::focusWidget();
        Key(form, box, Qt::Key_Return);
        EXPECT_FALSE(HasFocus(form, box)) << box;
        EXPECT_EQ(QApplication::focusWidget(), next) << box;
    }
}

TEST_F(CorrectionForm, CommandsOfATabCheckTheHeadWhenCalledByTheirMnemonics)
{
    FakeDatasetForms diagrams;
    Open(StoredSet("Mast.tvc"));
    for (const char* button : { "KT_BtSort", "KT_BtView", "KT_BtDelete" }) {
        Type(form, "TbAntCode", "x");
        Editor().EditorDirty = false;
        Answers().Expect(12765, Ok);
        Find<QPushButton>(form, button).click(); // moves no focus
        EXPECT_TRUE(HasFocus(form, "TbAntCode")) << button;
        EXPECT_FALSE(Editor().EditorDirty) << button;
        EXPECT_EQ(TextOf(form, "KT_TbCol_freq[0]"), "30.000000") << button;
    }
    EXPECT_EQ(diagrams.Names, QStringList());
}

TEST_F(CorrectionForm, HeaderIsHandedOverAfterTheTables)
{
    Open();
    TypeHeader();
    TvFio().AntCorrSetHeader = [](const CorrHeader*) -> std::int16_t { return 82; };
    TypeRow(0, "85", "1", "2");
    Answers().Expect(12772, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    Answers().Verify();
    TypeRow(1, "30", "3", "4");
    Answers().Expect(11999, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(TheMessage().Text, "Error setting header");
    EXPECT_EQ(FolderQuestions, 0);
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, FolderQuestionNamesTheFile)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "TbFileName", "Whip");
    AnswerFolder({});
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(AskedFolder.Title, LngStr1(10775, "Whip.TVC"));
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, ResultIsSetByTheSaveOnClosing)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "TbFileName", "Whip");
    AnswerFolder(Folder());
    Answers().Expect(12769, Yes);
    form.Unload();
    EXPECT_TRUE(form.IsClosed());
    EXPECT_EQ(Editor().CorrectionSetFileName, "Whip.tvc");
    EXPECT_EQ(Editor().ResultFolder, Folder());
}

TEST_F(CorrectionForm, ResultIsEmptyWithoutNameOrWithDiscardedChanges)
{
    Editor().CorrectionSetFileName = QStringLiteral("before");
    Open();
    form.Unload();
    EXPECT_EQ(Editor().CorrectionSetFileName, "");
    Open(StoredSet("Mast.tvc"));
    Type(form, "TbManufacturerName", "Other");
    Answers().Expect(12769, No);
    form.Unload();
    EXPECT_EQ(Editor().CorrectionSetFileName, "");
}

TEST_F(CorrectionForm, NewSetHasTheDefaultsAfterAnother)
{
    Open(StoredSet("Mast.tvc"));
    Click(form, "BtNew");
    EXPECT_EQ(TextOf(form, "TbAntCode"), "0");
    EXPECT_EQ(TextOf(form, "TbStartFreq"), "0");
    EXPECT_EQ(TextOf(form, "TbStopFreq"), "0");
    EXPECT_EQ(TextOf(form, "TbManufacturerName"), "");
    for (const char* cell : { "KT_TbCol_active[1]", "OP_TbCol_deg[1]" })
        EXPECT_EQ(TextOf(form, cell), "") << cell;
    EXPECT_EQ(Find<GridLines>(form, "AZ_TbCol_azimuth[1]").Text(), "");
}

TEST_F(CorrectionForm, UnreadableFileLeavesAnEmptySetWithoutMessage)
{
    Open(StoredSet("Mast.tvc"));
    Store(FilePath("bad.tvc"), "no set");
    AnswerFile(FilePath("bad.tvc"));
    Click(form, "BtOpen");
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor");
    EXPECT_EQ(TextOf(form, "TbFileName"), "");
    EXPECT_EQ(TextOf(form, "KT_TbCol_freq[0]"), "");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, SaveFailureShowsNothingAndKeepsTheChanges)
{
    Open(StoredSet("Mast.tvc"));
    Type(form, "TbManufacturerName", "Other");
    AnswerFolder(FilePath("no folder"));
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, NewStartsAnEmptySetOnTheFirstTab)
{
    Open(StoredSet("Mast.tvc"));
    Tabs().setCurrentIndex(1);
    Click(form, "BtNew");
    EXPECT_EQ(TextOf(form, "TbFileName"), "");
    EXPECT_EQ(TextOf(form, "TbAntName"), "");
    EXPECT_EQ(TextOf(form, "KT_TbCol_freq[0]"), "");
    EXPECT_EQ(Tabs().currentIndex(), 0);
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(CorrectionForm, ResultIsNameOfUnchangedSet)
{
    Open(StoredSet("Mast.tvc"));
    form.Unload();
    EXPECT_EQ(Editor().CorrectionSetFileName, "Mast.tvc");
}

} // namespace tarvik
