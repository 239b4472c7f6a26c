#include "tests/lists/antenna/antenna_fixture.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/forms.h"

#include "lists/antenna/FmEditorAntenna.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

namespace tarvik {

namespace {

class AntennaForm : public AntennaTest<FormTest> {
protected:
    ~AntennaForm() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
    void Open(const QString& path = {})
    {
        Editor().EditorIsOpen = true; // as OpenEditor does
        Editor().EditorOpenFile = path;
        ShowForm(form);
    }
    void OpenList(const QList<AntennaRow>& rows)
    {
        EXPECT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List(rows)));
        Open(FilePath("Site.tva"));
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
    QString TextIn(const QString& name)
    {
        return TextOf(form, name);
    }
    int Choice(const QString& name)
    {
        return Find<QComboBox>(form, name).currentIndex();
    }
    QColor Background(const QString& name)
    {
        return FindControl(form, name).palette().color(QPalette::Base);
    }
    AntennaTable Saved()
    {
        AntennaTable table;
        EXPECT_TRUE(ReadAntennaFile(FilePath("Site.tva"), table));
        return table;
    }
    void ExpectSaved()
    {
        AnswerFolder(Folder());
        if (QFile::exists(FilePath("Site.tva")))
            Answers().Expect(12734, { QStringLiteral("Site.tva") }, Yes);
        EXPECT_TRUE(form.Save());
    }

    FmEditorAntenna form;
};

} // namespace

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

TEST_F(AntennaForm, HelpShowsItsTopic)
{
    FakeHelp help;
    Open();
    Click(form, "BtHelp");
    EXPECT_EQ(help.Topics, QList<int>{ 11991 });
}

TEST_F(AntennaForm, PanelShowsTheSelectedRow)
{
    AntennaRow second = FullRow();
    second.Name = "Whip";
    second.PassiveBits = 3;
    OpenList({ FullRow(), second });
    EXPECT_EQ(TextIn("TbAntennaName"), "Dipole");
    EXPECT_EQ(TextIn("TbFreqOffset"), "-1.000000");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    EXPECT_EQ(Choice("CbPassiveBits"), 2);
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled());
    Click(form, "LbCol0[1]");
    EXPECT_EQ(TextIn("TbAntennaName"), "Whip");
    EXPECT_EQ(Choice("CbPassiveBits"), 3);
    EXPECT_EQ(Background("TbCol3[0]"), form.palette().color(QPalette::Base));
    EXPECT_EQ(Background("CbCol1[1]"), QColor(0xBB, 0xBB, 0x55));
    Click(form, "LbCol0[5]");
    EXPECT_FALSE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_EQ(TextIn("TbKfactor"), "");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(AntennaForm, EditingUsesTheRow)
{
    Open();
    Type(form, "TbAntennaName", "Log");
    EXPECT_EQ(TextIn("TbCol3[0]"), "Log");
    EXPECT_TRUE(FindControl(form, "BtDelete").isEnabled());
    EXPECT_TRUE(Editor().EditorDirty);
    Type(form, "TbCol3[0]", "Horn");
    EXPECT_EQ(TextIn("TbAntennaName"), "Horn");
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

TEST_F(AntennaForm, EnterInPanelActsAsTab)
{
    OpenList({ FullRow() });
    FindControl(form, "TbStartFreq").setFocus();
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus(form, "TbStopFreq"));
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

TEST_F(AntennaForm, NewTableIsLinkedWithItsBand)
{
    OpenList({ FullRow() });
    Editors.WhileShown = [this] {
        EXPECT_EQ(FileClasses().CurrentFileClass, FileClassKfactorTable);
        EXPECT_EQ(Editor().KfactorFileName, "");
        Editor().KfactorFileName = "Whip.tvk";
        Editor().ResultFolder = "/tables";
    };
    Editors.Band = { 20e6, 80e6 };
    Click(form, "BtNewKfactor");
    EXPECT_EQ(Editors.Shown, QList<FileClass>{ FileClassKfactorTable });
    EXPECT_EQ(Editors.ReadTables, QStringList{ "/tables/Whip.tvk" });
    EXPECT_EQ(TextIn("TbKfactor"), "Whip");
    EXPECT_EQ(TextIn("TbStartFreq"), "20.000000");
    EXPECT_EQ(TextIn("TbStopFreq"), "80.000000");
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(AntennaForm, NewTableThatCannotBeReadIsLinkedWithoutBand)
{
    OpenList({ FullRow() });
    Editors.WhileShown = [] { Editor().KfactorFileName = "Whip.csv"; };
    Editors.TableIsReadable = false;
    Editors.Band = { 20e6, 80e6 };
    Click(form, "BtNewKfactor");
    EXPECT_EQ(TextIn("TbKfactor"), "Whip");
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
}

TEST_F(AntennaForm, NestedEditorWithoutResultChangesNothing)
{
    OpenList({ FullRow() });
    Editor().KfactorFileName = "before.tvk";
    Click(form, "BtNewKfactor");
    Click(form, "BtNewCorrectionSet");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    EXPECT_EQ(TextIn("TbCorrectionSet"), "Array");
    EXPECT_EQ(Editors.ReadTables, QStringList());
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(AntennaForm, SelectedTableMustBeReadable)
{
    OpenList({ FullRow() });
    AnswerFile(FilePath("Whip.tvk"));
    Editors.TableIsReadable = false;
    Click(form, "BtSelectKfactor");
    EXPECT_EQ(TextIn("TbKfactor"), "Mast");
    EXPECT_EQ(FileClasses().PcPaths[FileClassKfactorTable], "");
    Editors.TableIsReadable = true; // an empty table: the band stays
    Click(form, "BtSelectKfactor");
    EXPECT_EQ(TextIn("TbKfactor"), "Whip");
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
    EXPECT_EQ(FileClasses().PcPaths[FileClassKfactorTable] + u'/', Folder());
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
}

TEST_F(AntennaForm, CorrectionSetsAreLinkedByName)
{
    OpenList({ FullRow() });
    AnswerFile(FilePath("Loop.tvc"));
    Click(form, "BtSelectCorrectionSet");
    EXPECT_EQ(AskedFile.Filters, QStringList{ "Correction sets|*.tvc" });
    EXPECT_EQ(TextIn("TbCorrectionSet"), "Loop");
    EXPECT_EQ(TextIn("TbStartFreq"), "30.000000");
    EXPECT_EQ(FileClasses().PcPaths[FileClassCorrectionSet] + u'/', Folder());
    Editors.WhileShown = [] { Editor().CorrectionSetFileName = "Array 2.tvc"; };
    Click(form, "BtNewCorrectionSet");
    EXPECT_EQ(TextIn("TbCorrectionSet"), "Array 2");
    ExpectSaved();
    EXPECT_EQ(Saved().Row(0).CorrectionSetName, "Array 2");
}

} // namespace tarvik
