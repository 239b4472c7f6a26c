#include "tests/lists/correction/correction_fixture.h"
#include "tests/lists/editor/editor_form_fixture.h"
#include "tests/support/fakeHelp.h"

#include "lists/correction/FmEditorCorrectionSet.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>

namespace tarvik {

namespace {

const QColor kInvalid(0xDD, 0x77, 0x77);
const QColor kFocused(0xDD, 0xDD, 0x77);

/// Gives the fixture of sets a form.
class CorrectionForm : public CorrectionTest<FormTest> {
protected:
    ~CorrectionForm() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
    void Open(const QString& path = {})
    {
        Editor().EditorOpenFile = path;
        ShowForm(form);
    }
    void GiveUp()
    {
        Editor().EditorDirty = false;
        form.Unload();
        EXPECT_TRUE(form.IsClosed());
    }
    void TypeAndLeave(const QString& name, const QString& text)
    {
        Type(form, name, text);
        Key(Qt::Key_Tab);
    }
    void TypeHeader()
    {
        TypeAndLeave("TbFileName", "Mast");
        TypeAndLeave("TbAntName", "Dipole");
    }
    void TypeRow(int index, const QString& frequency, const QString& passive, const QString& active)
    {
        TypeAndLeave(QStringLiteral("KT_TbCol_freq[%1]").arg(index), frequency);
        TypeAndLeave(QStringLiteral("KT_TbCol_passive[%1]").arg(index), passive);
        TypeAndLeave(QStringLiteral("KT_TbCol_active[%1]").arg(index), active);
    }
    QTabWidget& Tabs()
    {
        return Find<QTabWidget>(form, "CsTab");
    }
    QColor Background(const QString& name)
    {
        return FindControl(form, name).palette().color(QPalette::Base);
    }
    int TopRow(const QString& bar)
    {
        return Find<QScrollBar>(form, bar).value();
    }

    FmEditorCorrectionSet form;
};

} // namespace

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

TEST_F(CorrectionForm, IncompleteRowIsMarkedAndBlocksSortAndSave)
{
    Open();
    TypeHeader();
    TypeAndLeave("KT_TbCol_freq[3]", "85");
    EXPECT_EQ(Background("KT_TbCol_passive[3]"), kFocused);
    EXPECT_EQ(Background("KT_TbCol_active[3]"), kInvalid);
    Answers().Expect(12894, { QStringLiteral("4") }, Ok);
    Click(form, "KT_BtSort");
    EXPECT_TRUE(HasFocus(form, "KT_TbCol_passive[3]"));
    Answers().Expect(12894, { QStringLiteral("4") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(CorrectionForm, BadCellIsMarkedAndKeepsNoFocus)
{
    Open();
    TypeAndLeave("KT_TbCol_freq[0]", "x");
    EXPECT_TRUE(HasFocus(form, "KT_TbCol_passive[0]"));
    EXPECT_EQ(Background("KT_TbCol_freq[0]"), kInvalid);
}

TEST_F(CorrectionForm, DeleteEmptiesTheCurrentRow)
{
    Open(StoredSet("Mast.tvc"));
    Tabs().setCurrentIndex(1);
    EXPECT_TRUE(HasFocus(form, "OP_TbCol_freq[0]"));
    EXPECT_TRUE(FindControl(form, "OP_BtDelete").isEnabled());
    Click(form, "OP_BtDelete");
    EXPECT_EQ(TextOf(form, "OP_TbCol_deg[0]"), "");
    EXPECT_FALSE(FindControl(form, "OP_BtDelete").isEnabled());
    EXPECT_TRUE(Editor().EditorDirty);
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

TEST_F(CorrectionForm, EmptyTablesDoNotHinderSaveButOneEntryDoes)
{
    Open();
    TypeHeader();
    TypeRow(0, "85", "1", "2");
    Answers().Expect(12772, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    TypeRow(1, "30", "3", "4");
    AnswerFolder(Folder());
    ASSERT_TRUE(form.Save());
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(form.windowTitle(), "Correction Set Editor - Mast.TVC");
    EXPECT_EQ(TextOf(form, "KT_TbCol_freq[0]"), "30.000000"); // saving sorts
    GiveUp();
    CorrSet saved;
    ASSERT_TRUE(LoadCorrSet(FilePath("Mast.tvc"), saved));
    EXPECT_EQ(UsedCorrEntries(CorrTableId::KFactor, saved.Records), 2);
    EXPECT_EQ(UsedCorrEntries(CorrTableId::Omniphase, saved.Records), 0);
    EXPECT_EQ(saved.Header.StartFrequencyHz, 8000);
}

TEST_F(CorrectionForm, FaultOnAnotherTabIsShown)
{
    Open(StoredSet("Mast.tvc"));
    Tabs().setCurrentIndex(2);
    TypeAndLeave("AZ_TbCol_freq[1]", "x");
    Tabs().setCurrentIndex(0);
    Answers().Expect(12894, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(Tabs().currentIndex(), 2);
    EXPECT_TRUE(HasFocus(form, "AZ_TbCol_freq[1]"));
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

TEST_F(CorrectionForm, WheelOverTheFrameTurnsAPage)
{
    Open(StoredSet("Mast.tvc"));
    const auto centreOf = [this](const QString& name) {
        QWidget& control = FindControl(form, name);
        return control.mapToGlobal(control.rect().center());
    };
    const QPoint frame = centreOf("KFactorGroup");
    form.MouseWheel(0, -120, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    form.MouseWheel(0, -60, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20); // half a notch
    form.MouseWheel(0, -60, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 40);
    form.MouseWheel(0, 120, frame.x(), frame.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    const QPoint head = centreOf("TbAntName");
    form.MouseWheel(0, 120, head.x(), head.y());
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
    Tabs().setCurrentIndex(2);
    const QPoint azimuth = centreOf("AzimuthGroup");
    form.MouseWheel(0, -120, azimuth.x(), azimuth.y());
    EXPECT_EQ(TopRow("AZ_VScroll"), 9);
    EXPECT_EQ(TopRow("KT_VScroll"), 20);
}

TEST_F(CorrectionForm, ViewSortsAndShowsTheTabsTable)
{
    FakeDatasetForms diagrams;
    Open(StoredSet("Mast.tvc"));
    Click(form, "KT_BtView");
    Tabs().setCurrentIndex(1);
    Click(form, "OP_BtView");
    EXPECT_EQ(diagrams.Names, QStringList(2, "Correction Set Editor - Mast.tvc"));
    EXPECT_TRUE(Editor().EditorDirty); // sorting is a change
}

TEST_F(CorrectionForm, ResultIsNameOfUnchangedSet)
{
    Open(StoredSet("Mast.tvc"));
    form.Unload();
    EXPECT_EQ(Editor().CorrectionSetFileName, "Mast.tvc");
}

} // namespace tarvik
