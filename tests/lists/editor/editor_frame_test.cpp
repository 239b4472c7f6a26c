#include "tests/lists/editor/list_form_fixture.h"

#include "app/menu/recentFiles.h"
#include "app/text/lang.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

namespace tarvik {

namespace {

const QString kTitle = QStringLiteral("Memory List Editor");

class EditorFrameTest : public ListFormTest {
protected:
    ~EditorFrameTest() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
    QComboBox& Ext()
    {
        return Find<QComboBox>(form, "CbExt");
    }
    QString PcPath() const
    {
        return FileClasses().PcPaths[FileClassMemoryList];
    }
    /// Opens a named list and changes a row.
    void OpenChanged()
    {
        Open(StoredList({ 0 }));
        TypeCell(3, 0, "250");
    }
};

} // namespace

TEST_F(EditorFrameTest, HasItsControls)
{
    Open();
    ExpectControls(form,
        { "TbName", "TbDescr", "CbExt", "BtNew", "BtOpen", "BtSave", "BtClose", "BtHelp", "BtSort", "BtEdit", "BtDel",
            "CbSort", "LbName", "LbDescr", "FrMemoryLst", "VScroll1", "LbHdr0", "LbHdr1", "LbHdr2", "LbHdr3", "LbHdr4",
            "LbHdr5", "LbCol0[0]", "CbCol1[19]", "TbCol2[7]", "TbCol3[7]", "TbCol4[0]", "TbCol5[19]" });
    EXPECT_EQ(form.objectName(), "FmEditorMemory");
}

TEST_F(EditorFrameTest, TabOrderIsReadingOrder)
{
    Open(StoredList({ 0 }));
    ExpectTabOrder(form);
}

TEST_F(EditorFrameTest, NoTextIsClipped)
{
    Open();
    ExpectNothingClipped(form);
    const QList<std::pair<QString, int>> texts{ { "BtClose", 10709 }, { "BtHelp", 10733 }, { "BtNew", 10717 },
        { "BtOpen", 10713 }, { "BtSave", 10715 }, { "BtSort", 10723 }, { "BtEdit", 10741 }, { "BtDel", 10711 },
        { "LbName", 10763 }, { "FrMemoryLst", 10810 }, { "LbHdr0", 10811 }, { "LbHdr1", 10812 }, { "LbHdr2", 10813 },
        { "LbHdr3", 10814 }, { "LbHdr4", 10815 }, { "LbHdr5", 10816 } };
    for (const auto& [name, text] : texts)
        EXPECT_EQ(TextOf(form, name), LngStr(text)) << name.toStdString();
    EXPECT_EQ(TextOf(form, "LbDescr"), LngStr(10744) + LngStr(10746));
}

TEST_F(EditorFrameTest, ControlsHaveTheirHelpNumbers)
{
    Open();
    EXPECT_EQ(form.HelpNumber(), 10738);
    const QList<std::pair<QString, int>> numbers{ { "BtClose", 10710 }, { "BtHelp", 10734 }, { "BtNew", 10718 },
        { "BtOpen", 10714 }, { "BtSave", 10716 }, { "BtSort", 10724 }, { "BtEdit", 10742 }, { "BtDel", 10712 },
        { "LbHdr3", 10702 }, { "TbCol3[4]", 10702 }, { "TbName", 10764 }, { "CbExt", 10764 }, { "TbDescr", 10745 } };
    for (const auto& [name, number] : numbers)
        EXPECT_EQ(HelpNumberOf(&FindControl(form, name)), number) << name.toStdString();
}

TEST_F(EditorFrameTest, NewListIsEmptyUnmodifiedAndUntitled)
{
    Editor().EditorDirty = true;
    Open();
    EXPECT_EQ(form.windowTitle(), kTitle);
    EXPECT_EQ(TextOf(form, "TbName"), "");
    EXPECT_EQ(Ext().count(), 2);
    EXPECT_EQ(Ext().itemText(0), ".TVM");
    EXPECT_EQ(Ext().itemText(1), ".csv");
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_TRUE(HasFocus(form, "TbName"));
}

TEST_F(EditorFrameTest, OpensFileOnLoad)
{
    Open(StoredList({ 3 }));
    EXPECT_EQ(form.windowTitle(), kTitle + " - Van.tvm");
    EXPECT_EQ(TextOf(form, "TbName"), "Van");
    EXPECT_EQ(TextOf(form, "TbDescr"), "roof");
    EXPECT_EQ(Ext().currentIndex(), 0);
    EXPECT_EQ(CellText(3, 3), "103.000000");
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_TRUE(Cell(3, 0).hasFocus());
}

TEST_F(EditorFrameTest, FormSetsItsTypeAndShowsTextsFromTheirStart)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = QString(32, u'W');
    table.MemoryListDescription = QString(32, u'W');
    ASSERT_TRUE(WriteMemoryList(FilePath("long.tvm"), table));
    SetEditorType(FileClassAntennaList);
    Open(FilePath("long.tvm"));
    EXPECT_EQ(Editor().EditorType, FileClassMemoryList);
    EXPECT_EQ(Ext().itemText(0), ".TVM");
    EXPECT_EQ(Find<QLineEdit>(form, "TbName").cursorPosition(), 0);
    EXPECT_EQ(Find<QLineEdit>(form, "TbDescr").cursorPosition(), 0);
}

TEST_F(EditorFrameTest, CsvFileSelectsCsvExtension)
{
    Open(StoredList({ 3 }, "Van.csv"));
    EXPECT_EQ(Ext().currentIndex(), 1);
    EXPECT_EQ(form.windowTitle(), kTitle + " - Van.csv");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, ExtensionIsThatOfTheFileReadLast)
{
    const QString binary = StoredList({ 3 });
    Open(StoredList({ 3 }, "Van.csv"));
    AnswerFile(binary);
    Click(form, "BtOpen");
    EXPECT_EQ(Ext().currentIndex(), 0);
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, UnreadableFileClosesForm)
{
    Answers().Expect(12780, { QStringLiteral("gone.tvm"), QStringLiteral("1") }, Ok);
    Open(FilePath("gone.tvm"));
    EXPECT_TRUE(form.IsClosed());
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_TRUE(Editor().EditorOpenFile.isEmpty());
}

TEST_F(EditorFrameTest, ClosingForgetsOpenedFile)
{
    const QString path = StoredList({ 3 });
    Open(path);
    EXPECT_EQ(Editor().EditorOpenFile, path);
    Click(form, "BtClose");
    EXPECT_TRUE(form.IsClosed());
    EXPECT_TRUE(Editor().EditorOpenFile.isEmpty());
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(EditorFrameTest, HeadChangeSetsDirtyAndRemovesFileFromTitle)
{
    const QString path = StoredList({ 3 });
    Open(path);
    Find<QLineEdit>(form, "TbDescr").setText("x");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(form.windowTitle(), kTitle);
    GiveUp();
    Open(path);
    Ext().setCurrentIndex(1);
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(form.windowTitle(), kTitle);
    GiveUp();
    Open(path);
    Find<QLineEdit>(form, "TbName").setText("Car");
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(form.windowTitle(), kTitle);
}

TEST_F(EditorFrameTest, BadNameKeepsFocus)
{
    Open();
    Type(form, "TbName", "a.b");
    Answers().Expect(12766, { QStringLiteral("memory list") }, Ok);
    QTest::keyClick(&FindControl(form, "TbName"), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(form, "TbName"));
}

TEST_F(EditorFrameTest, UnmodifiedEmptyNameCanBeLeft)
{
    Open();
    QTest::keyClick(&FindControl(form, "TbName"), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(form, "CbExt"));
}

TEST_F(EditorFrameTest, BadDescriptionKeepsFocus)
{
    Open();
    Type(form, "TbDescr", "a;b");
    Answers().Expect(12764, QStringList(), Ok);
    QTest::keyClick(&FindControl(form, "TbDescr"), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(form, "TbDescr"));
}

TEST_F(EditorFrameTest, EnterInTextBoxActsAsTab)
{
    Open();
    Type(form, "TbName", "Van");
    Key(Qt::Key_Return);
    EXPECT_TRUE(HasFocus(form, "CbExt"));
    EXPECT_FALSE(form.IsClosed());
}

TEST_F(EditorFrameTest, NewAsksAboutUnsavedChanges)
{
    OpenChanged();
    Answers().Expect(12769, No);
    Click(form, "BtNew");
    EXPECT_EQ(form.windowTitle(), kTitle);
    EXPECT_EQ(TextOf(form, "TbName"), "");
    EXPECT_EQ(CellText(3, 0), "");
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, NewWithoutChangesDoesNotAsk)
{
    Open(StoredList({ 0 }));
    Click(form, "BtNew");
    EXPECT_EQ(CellText(3, 0), "");
}

TEST_F(EditorFrameTest, NewStopsIfSaveFails)
{
    OpenChanged();
    AnswerFolder({});
    Answers().Expect(12769, Yes);
    Click(form, "BtNew");
    EXPECT_EQ(TextOf(form, "TbName"), "Van");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, DismissedQuestionDiscardsNothing)
{
    OpenChanged();
    Answers().Expect(12769, MsgResult::None);
    Click(form, "BtNew");
    EXPECT_EQ(TextOf(form, "TbName"), "Van");
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, OpenReadsChosenFileAndRemembersItsFolder)
{
    const QString path = StoredList({ 4 });
    Open();
    AnswerFile(path);
    Click(form, "BtOpen");
    EXPECT_EQ(form.windowTitle(), kTitle + " - Van.tvm");
    EXPECT_EQ(CellText(3, 4), "104.000000");
    EXPECT_EQ(QDir(PcPath()), QDir(Folder()));
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, CancelledOpenChangesNothing)
{
    Open(StoredList({ 4 }));
    AnswerFile({});
    Click(form, "BtOpen");
    EXPECT_EQ(FileQuestions, 1);
    EXPECT_EQ(form.windowTitle(), kTitle + " - Van.tvm");
    EXPECT_EQ(CellText(3, 4), "104.000000");
}

TEST_F(EditorFrameTest, FailedOpenLeavesEmptyUnmodifiedList)
{
    Open(StoredList({ 4 }));
    Store(FilePath("bad.csv"), "x");
    AnswerFile(FilePath("bad.csv"));
    Answers().Expect(12775, Ok);
    Click(form, "BtOpen");
    EXPECT_EQ(form.windowTitle(), kTitle);
    EXPECT_EQ(TextOf(form, "TbName"), "");
    EXPECT_EQ(TextOf(form, "TbDescr"), "");
    EXPECT_EQ(CellText(3, 4), "");
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(QDir(PcPath()), QDir(Folder())); // the folder that was chosen
}

TEST_F(EditorFrameTest, OpenAsksAboutUnsavedChanges)
{
    OpenChanged();
    Answers().Expect(12769, Yes);
    AnswerFolder({});
    AnswerFile(FilePath("never.tvm"));
    Click(form, "BtOpen");
    EXPECT_EQ(FileQuestions, 0);
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, SaveNamesFileAfterList)
{
    Open(StoredList({ 4 }, "other.tvm"));
    TypeCell(3, 4, "250");
    AnswerFolder(Folder());
    EXPECT_TRUE(form.Save());
    EXPECT_EQ(AskedFolder.Title, LngStr1(10775, "Van.TVM"));
    EXPECT_TRUE(QFile::exists(FilePath("Van.tvm")));
    EXPECT_EQ(form.windowTitle(), kTitle + " - Van.TVM");
    EXPECT_FALSE(Editor().EditorDirty);
    EXPECT_EQ(PcPath(), Folder());
    MemoryTable read;
    ASSERT_TRUE(OpenMemoryList(FilePath("Van.tvm"), read));
    EXPECT_EQ(read.Row(4).Frequency, 250e6);
}

TEST_F(EditorFrameTest, ListsReadAndSavedBecomeRecentFiles)
{
    const QString read = StoredList({ 4 }, "other.tvm");
    Open(read);
    EXPECT_EQ(RecentFiles(), QStringList(read));
    AnswerFolder(Folder().chopped(1));
    EXPECT_TRUE(form.Save());
    EXPECT_EQ(RecentFiles(), QStringList({ FilePath("Van.tvm"), read }));
}

TEST_F(EditorFrameTest, ListThatIsNotReadOrSavedIsNoRecentFile)
{
    Store(FilePath("bad.csv"), "x");
    Open();
    for (const auto& [name, message] : { std::pair("bad.csv", 12775), std::pair("gone.tvm", 12780) }) {
        AnswerFile(FilePath(name));
        Answers().Expect(message, Ok);
        Click(form, "BtOpen");
    }
    Type(form, "TbName", "Van");
    AnswerFolder({});
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(RecentFiles().isEmpty());
}

TEST_F(EditorFrameTest, CsvIsSavedWithLowerCaseExtension)
{
    Open(StoredList({ 4 }, "other.tvm"));
    Ext().setCurrentIndex(1);
    AnswerFolder(Folder());
    Click(form, "BtSave");
    EXPECT_EQ(AskedFolder.Title, LngStr1(10775, "Van.CSV"));
    EXPECT_TRUE(Contents(FilePath("Van.csv")).startsWith("Memory List,Van\r\n"));
    EXPECT_FALSE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, CancelledFolderDialogKeepsChangesAndRows)
{
    OpenChanged();
    AnswerFolder({});
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(CellText(3, 0), "250.000000");
    EXPECT_EQ(form.windowTitle(), kTitle);
}

TEST_F(EditorFrameTest, FailedWriteKeepsChangesAndRows)
{
    OpenChanged();
    AnswerFolder(FilePath("no folder"));
    Answers().Expect(12827, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(Editor().EditorDirty);
    EXPECT_EQ(CellText(3, 0), "250.000000");
    EXPECT_EQ(form.windowTitle(), kTitle);
}

TEST_F(EditorFrameTest, SaveRefusesBadNameBeforeAnyQuestion)
{
    Open(StoredList({ 4 }));
    AnswerFolder(Folder());
    for (const auto& [name, message] : { std::pair("a.b", 12766), std::pair("", 12766), std::pair("None", 12770) }) {
        Find<QLineEdit>(form, "TbName").setText(name);
        Answers().Expect(message, { QStringLiteral("memory list") }, Ok);
        EXPECT_FALSE(form.Save());
        EXPECT_TRUE(HasFocus(form, "TbName"));
    }
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(EditorFrameTest, SaveRefusesBadDescription)
{
    Open(StoredList({ 4 }));
    AnswerFolder(Folder());
    Find<QLineEdit>(form, "TbDescr").setText("a'b");
    Answers().Expect(12764, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbDescr"));
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(EditorFrameTest, SaveChecksNameThenDescriptionThenCells)
{
    Open(StoredList({ 4 }));
    Find<QLineEdit>(form, "TbCol5[4]").setText("a,b");
    Find<QLineEdit>(form, "TbDescr").setText("a'b");
    Find<QLineEdit>(form, "TbName").setText("a.b");
    Answers().Expect(12766, Ok);
    EXPECT_FALSE(form.Save());
    Find<QLineEdit>(form, "TbName").setText("Van");
    Answers().Expect(12764, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(HasFocus(form, "TbDescr"));
    Find<QLineEdit>(form, "TbDescr").setText("roof");
    Answers().Expect(12764, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(Cell(5, 4).hasFocus());
}

TEST_F(EditorFrameTest, SaveChecksVisibleCells)
{
    Open(StoredList({ 4, 6 }));
    AnswerFolder(Folder());
    Find<QLineEdit>(form, "TbCol5[6]").setText("a,b");
    Answers().Expect(12764, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(Cell(5, 6).hasFocus());
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(EditorFrameTest, SaveChecksWholePageThatIsShown)
{
    Open(StoredList({ 30, 49 }));
    AnswerFolder(Folder());
    Find<QScrollBar>(form, "VScroll1").setValue(30);
    Find<QLineEdit>(form, "TbCol5[19]").setText("a,b");
    Find<QLineEdit>(form, "TbCol5[0]").setText("edited last");
    Answers().Expect(12764, Ok);
    EXPECT_FALSE(form.Save());
    EXPECT_TRUE(Cell(5, 19).hasFocus());
    EXPECT_EQ(Find<QScrollBar>(form, "VScroll1").value(), 30);
    EXPECT_EQ(FolderQuestions, 0);
}

TEST_F(EditorFrameTest, CloseAsksAndSavesOnYes)
{
    OpenChanged();
    Answers().Expect(12769, Yes);
    Answers().Expect(12734, Yes);
    AnswerFolder(Folder());
    Click(form, "BtClose");
    EXPECT_TRUE(form.IsClosed());
    MemoryTable read;
    ASSERT_TRUE(OpenMemoryList(FilePath("Van.tvm"), read));
    EXPECT_EQ(read.Row(0).Frequency, 250e6);
}

TEST_F(EditorFrameTest, CloseDiscardsChangesOnNo)
{
    OpenChanged();
    Answers().Expect(12769, No);
    Click(form, "BtClose");
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(EditorFrameTest, CloseIsRefusedOnCancelAndFailedSave)
{
    OpenChanged();
    Answers().Expect(12769, Cancel);
    Click(form, "BtClose");
    EXPECT_FALSE(form.IsClosed());
    AnswerFolder({});
    Answers().Expect(12769, Yes);
    form.close();
    EXPECT_FALSE(form.IsClosed());
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_TRUE(Editor().EditorDirty);
}

TEST_F(EditorFrameTest, EscapeAsksLikeClose)
{
    OpenChanged();
    Answers().Expect(12769, Cancel);
    KeyDown(Qt::Key_Escape);
    EXPECT_FALSE(form.IsClosed());
    Answers().Expect(12769, No);
    KeyDown(Qt::Key_Escape);
    EXPECT_TRUE(form.IsClosed());
}

} // namespace tarvik
