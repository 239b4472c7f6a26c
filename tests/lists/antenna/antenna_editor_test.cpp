#include "tests/lists/antenna/antenna_form_fixture.h"
#include "tests/support/fakeHelp.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace tarvik {

TEST_F(AntennaForm, HasItsControls)
{
    Open();
    ExpectControls(form,
        { "TbName", "TbDescr", "CbExt", "BtNew", "BtOpen", "BtSave", "BtClose", "BtHelp", "BtDelete", "VScroll1",
            "LbCol0[0]", "CbCol1[19]", "TbCol3[7]", "TbAntennaName", "TbStartFreq", "TbStopFreq", "TbFreqOffset",
            "CbPassiveBits", "CbActiveBits", "FrKfactorTable", "TbKfactor", "BtSelectKfactor", "BtNewKfactor",
            "TbAntennaCode", "TbNorthOffset", "FrCorrectionSet", "TbCorrectionSet", "BtSelectCorrectionSet",
            "BtNewCorrectionSet", "BtCorrectionSetEdit" });
    EXPECT_EQ(form.windowTitle(), "Antenna List Editor");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").maximum(), 79);
    EXPECT_EQ(TextIn("LbCol0[0]"), "1");
    EXPECT_EQ(TextIn("TbStartFreq"), "0.000000");
    EXPECT_EQ(TextIn("TbAntennaCode"), "0");
    EXPECT_EQ(TextIn("TbNorthOffset"), "0.0");
    EXPECT_EQ(Choice("CbActiveBits"), 0);
    EXPECT_FALSE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_FALSE(Editor().EditorDirty);
    ExpectNothingClipped(form);
}

TEST_F(AntennaForm, TabReachesEveryControl)
{
    OpenList({ FullRow() });
    ExpectTabOrder(form);
}

TEST_F(AntennaForm, CommandsHaveTheirMnemonics)
{
    OpenList({ FullRow() });
    ExpectMnemonics(form);
}

TEST_F(AntennaForm, ControlsHaveTheirTopics)
{
    Open();
    const QList<std::pair<QString, int>> topics{ { "TbName", 10764 }, { "CbExt", 10764 }, { "TbDescr", 10745 },
        { "LbHdr0", 11991 }, { "LbCol0[3]", 11991 }, { "CbCol1[0]", 11991 }, { "TbCol3[9]", 11991 },
        { "VScroll1", 11991 }, { "FrAntennaLst", 11991 }, { "FrProperties", 11991 }, { "TbAntennaName", 11991 },
        { "TbStartFreq", 11991 }, { "TbStopFreq", 11991 }, { "TbFreqOffset", 11991 }, { "CbPassiveBits", 11991 },
        { "CbActiveBits", 11991 }, { "TbAntennaCode", 11991 }, { "TbNorthOffset", 11991 }, { "TbKfactor", 10726 },
        { "BtSelectKfactor", 10726 }, { "BtNewKfactor", 10728 }, { "TbCorrectionSet", 10726 },
        { "BtSelectCorrectionSet", 10730 }, { "BtNewCorrectionSet", 10732 }, { "BtCorrectionSetEdit", 10749 },
        { "BtDelete", 10712 }, { "BtNew", 10718 }, { "BtOpen", 10714 }, { "BtSave", 10716 }, { "BtHelp", 10734 },
        { "BtClose", 10710 } };
    for (const auto& [name, topic] : topics)
        EXPECT_EQ(HelpNumberOf(&FindControl(form, name)), topic) << name.toStdString();
}

TEST_F(AntennaForm, HelpShowsItsTopic)
{
    FakeHelp help;
    Open();
    Click(form, "BtHelp");
    EXPECT_EQ(help.Topics, QList<int>{ 11991 });
}

TEST_F(AntennaForm, EveryPropertyReachesTheFile)
{
    Open();
    TypeAndLeave("TbName", "Site");
    TypeAndLeave("TbCol3[0]", "Dipole");
    Click(form, "CbCol1[0]");
    TypeAndLeave("TbStartFreq", "30");
    TypeAndLeave("TbStopFreq", "90");
    TypeAndLeave("TbFreqOffset", "-1");
    Find<QComboBox>(form, "CbPassiveBits").setCurrentIndex(2);
    Find<QComboBox>(form, "CbActiveBits").setCurrentIndex(1);
    TypeAndLeave("TbKfactor", "Mast");
    TypeAndLeave("TbAntennaCode", "7");
    TypeAndLeave("TbNorthOffset", "12,5");
    TypeAndLeave("TbCorrectionSet", "Array");
    ExpectSaved();
    EXPECT_EQ(Saved().Row(0), FullRow());
}

TEST_F(AntennaForm, BadNumberKeepsFocusAndRow)
{
    OpenList({ FullRow(), FullRow() });
    Type(form, "TbStartFreq", "x");
    Answers().Expect(12765, QStringList(), Ok);
    QTest::mouseClick(&FindControl(form, "TbCol3[1]"), Qt::LeftButton);
    EXPECT_TRUE(HasFocus(form, "TbStartFreq"));
    EXPECT_EQ(Background("CbCol1[0]"), QColor(0xBB, 0xBB, 0x55));
}

TEST_F(AntennaForm, RowIsLeftOnlyWithValidNumbers)
{
    OpenList({ FullRow(), FullRow() });
    form.CellSetFocus(0, 2);
    Find<QLineEdit>(form, "TbStopFreq").setText(""); // by a program, so that no leaving checks it
    Answers().Expect(12771, QStringList(), Ok);
    Key(Qt::Key_Down);
    EXPECT_TRUE(HasFocus(form, "TbStopFreq"));
    EXPECT_EQ(Background("CbCol1[0]"), QColor(0xBB, 0xBB, 0x55));
    Find<QLineEdit>(form, "TbStopFreq").setText("90");
    form.CellSetFocus(0, 2);
    Key(Qt::Key_Down);
    EXPECT_TRUE(HasFocus(form, "TbCol3[1]"));
}

TEST_F(AntennaForm, LineOfUnusedRowIsValid)
{
    Open();
    EXPECT_TRUE(form.LineValid());
}

TEST_F(AntennaForm, DeleteResetsTheRowAndIsNoUnsavedChange)
{
    OpenList({ FullRow() });
    Click(form, "BtDelete");
    EXPECT_EQ(TextIn("TbCol3[0]"), "");
    EXPECT_EQ(TextIn("TbKfactor"), "");
    EXPECT_FALSE(Find<QCheckBox>(form, "CbCol1[0]").isChecked());
    EXPECT_FALSE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_FALSE(Editor().EditorDirty);
    Type(form, "TbAntennaName", "x");
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled());
}

TEST_F(AntennaForm, SaveSwapsStopBelowStart)
{
    OpenList({ FullRow() });
    TypeAndLeave("TbStartFreq", "90");
    TypeAndLeave("TbStopFreq", "30");
    ExpectSaved();
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
    EXPECT_EQ(Saved().Row(0), FullRow());
}

TEST_F(AntennaForm, FrequencyOutsideTheLimitsIsShown)
{
    QList<AntennaRow> rows(50, FullRow());
    for (AntennaRow& row : rows)
        row.Include = 0;
    rows[40].StartFrequency = 0;
    OpenList(rows);
    Answers().Expect(12773, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbStartFreq"));
    EXPECT_EQ(TextIn("TbStartFreq"), "0.000000");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 21);
}

TEST_F(AntennaForm, StopOutsideTheLimitsIsShown)
{
    QList<AntennaRow> rows(3, FullRow());
    rows[2].StopFrequency = 9e9;
    OpenList(rows);
    Answers().Expect(12773, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbStopFreq"));
    EXPECT_EQ(TextIn("TbStopFreq"), "9000.000000");
    EXPECT_EQ(FolderQuestions, 0);
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(AntennaForm, EighthIncludedAntennaIsRefused)
{
    OpenList(QList<AntennaRow>(8, FullRow()));
    Answers().Expect(12774, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(AntennaForm, CsvFileShowsItsForm)
{
    EXPECT_TRUE(WriteAntennaFile(FilePath("Site.csv"), List({ FullRow() })));
    Open(FilePath("Site.csv"));
    EXPECT_EQ(Choice("CbExt"), 1);
    EXPECT_EQ(form.windowTitle(), "Antenna List Editor - Site.csv");
}

TEST_F(AntennaForm, SaveChecksNameDescriptionThenTheAntenna)
{
    OpenList(QList<AntennaRow>(8, FullRow()));
    const auto expectRefused = [this](int message, const QStringList& arguments, const QString& focused) {
        Answers().Expect(message, arguments, Ok);
        EXPECT_FALSE(form.Save());
        EXPECT_TRUE(HasFocus(form, focused)) << focused.toStdString();
    };
    const auto setText = [this](const QString& name, const QString& text) { // without leaving a box
        Find<QLineEdit>(form, name).setText(text);
    };
    for (const QString name : { "TbName", "TbDescr", "TbAntennaName" })
        setText(name, "a;b");
    setText("TbStartFreq", "x");
    expectRefused(12766, { QStringLiteral("antenna list") }, "TbName");
    setText("TbName", "None");
    expectRefused(12770, { QStringLiteral("antenna list") }, "TbName");
    setText("TbName", "Site");
    expectRefused(12764, {}, "TbDescr");
    setText("TbDescr", "roof");
    expectRefused(12764, {}, "TbAntennaName");
    setText("TbAntennaName", "Dipole");
    expectRefused(12765, {}, "TbStartFreq");
    setText("TbStartFreq", "30");
    expectRefused(12774, {}, "TbStartFreq");
}

TEST_F(AntennaForm, BadTextKeepsTheFocus)
{
    for (const QString name : { "TbAntennaName", "TbCol3[0]", "TbKfactor", "TbCorrectionSet", "TbDescr" }) {
        OpenList({ FullRow() });
        Type(form, name, "it's");
        Answers().Expect(12764, QStringList(), Ok);
        Key(Qt::Key_Tab);
        EXPECT_TRUE(HasFocus(form, name)) << name.toStdString();
        GiveUp();
        QFile::remove(FilePath("Site.tva"));
    }
}

TEST_F(AntennaForm, DeleteLeavesUnsavedChangesUnsaved)
{
    OpenList({ FullRow(), FullRow() });
    Type(form, "TbAntennaName", "x");
    Click(form, "BtDelete");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(AntennaForm, SwappedFrequenciesOfAnotherRowAreShown)
{
    AntennaRow reversed = FullRow();
    std::swap(reversed.StartFrequency, reversed.StopFrequency);
    OpenList({ FullRow(), reversed });
    AnswerFolder({});
    EXPECT_FALSE(form.Save());
    Click(form, "LbCol0[1]");
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
    EXPECT_EQ(TextIn("TbStopFreq"), "90.000000");
}

TEST_F(AntennaForm, BadNameInTheGridKeepsItsFocusOnSaving)
{
    OpenList({ FullRow() });
    Type(form, "TbCol3[0]", "it's");
    Answers().Expect(12764, QStringList(), Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbCol3[0]"));
}

TEST_F(AntennaForm, DeleteByKeyChecksTheHeadFirst)
{
    OpenList({ FullRow() });
    Type(form, "TbName", "a;b");
    Answers().Expect(12766, Ok);
    Find<QPushButton>(form, "BtDelete").click(); // takes no focus
    EXPECT_TRUE(HasFocus(form, "TbName"));
    EXPECT_EQ(TextIn("TbCol3[0]"), "Dipole");
}

TEST_F(AntennaForm, DeleteShowsItsRowAndKeepsTheCell)
{
    OpenList({ FullRow(), FullRow() });
    form.CellSetFocus(1, 2);
    Find<QScrollBar>(form, "VScroll1").setValue(30);
    Click(form, "BtDelete");
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 1);
    EXPECT_TRUE(HasFocus(form, "TbCol3[0]"));
    EXPECT_EQ(TextIn("TbCol3[0]"), "");
}

TEST_F(AntennaForm, DeleteDiscardsABadBox)
{
    OpenList({ FullRow() });
    Type(form, "TbStopFreq", "x");
    Click(form, "BtDelete");
    EXPECT_EQ(TextIn("TbStopFreq"), "0.000000");
    EXPECT_EQ(TextIn("TbNorthOffset"), "0.0");
    EXPECT_EQ(Choice("CbPassiveBits"), 0);
    EXPECT_FALSE(FindControl(form, "BtDelete").isEnabled());
}

TEST_F(AntennaForm, SelectedRowAndFocusedCellHaveTheirColours)
{
    OpenList({ FullRow(), FullRow() });
    form.CellSetFocus(1, 2);
    EXPECT_EQ(Background("TbCol3[1]"), QColor(0xEE, 0xEE, 0x88));
    EXPECT_EQ(Background("CbCol1[1]"), QColor(0xBB, 0xBB, 0x55));
    EXPECT_EQ(Background("CbCol1[0]"), form.palette().color(QPalette::Base));
}

TEST_F(AntennaForm, CheckUsesTheRow)
{
    Open();
    form.CellSetFocus(3, 1);
    Click(form, "CbCol1[3]");
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_TRUE(Editor().EditorDirty);
    Click(form, "CbCol1[3]");
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled()) << "it stays used";
}

} // namespace tarvik
