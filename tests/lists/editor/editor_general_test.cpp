#include "tests/lists/list_fixture.h"

#include "app/state/frameHooks.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"

#include <QDir>
#include <QFile>

namespace tarvik {

namespace {

class EditorGeneral : public ListTest {
protected:
    static QString& PcPath(int fileClass)
    {
        return FileClasses().PcPaths[static_cast<size_t>(fileClass)];
    }
    QString Stored(const QString& name, const QByteArray& bytes)
    {
        Store(FilePath(name), bytes);
        return FilePath(name);
    }
};

} // namespace

TEST_F(EditorGeneral, OpensOnlyListTypes)
{
    for (int type = -1; type <= 9; ++type)
        OpenEditor(type);
    EXPECT_EQ(Editors.Shown, QList<int>({ 1, 2, 3, 4, 6 }));
}

TEST_F(EditorGeneral, ATypeThatIsNoListChangesNothing)
{
    OpenEditor(5);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassMemoryList);
}

TEST_F(EditorGeneral, ATypeWithoutEditorChangesNothing)
{
    Editors.AreThere = false;
    OpenEditor(1);
    EXPECT_TRUE(Editors.Shown.isEmpty());
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassMemoryList);
}

TEST_F(EditorGeneral, TheStatusBarIsOutOfUseWhileTheEditorIsOpen)
{
    QList<bool> calls;
    TheFrameHooks().EnableStatusBar = [&calls](bool on) { calls.append(on); };
    Editors.WhileShown = [&calls] { EXPECT_EQ(calls, QList<bool>({ false })); };
    OpenEditor(3);
    EXPECT_EQ(calls, QList<bool>({ false, true }));
}

TEST_F(EditorGeneral, TheStatusBarStaysOutOfUseWhenAnEditorOpensAnother)
{
    bool bar = true;
    TheFrameHooks().EnableStatusBar = [&bar](bool on) { bar = on; };
    Editors.WhileShown = [this, &bar] {
        if (Editors.Shown.size() == 1)
            OpenEditor(2);
        EXPECT_FALSE(bar);
    };
    OpenEditor(1);
    EXPECT_TRUE(bar);
    EXPECT_EQ(Editors.Shown, QList<int>({ 1, 2 }));
}

TEST_F(EditorGeneral, TheTypeGivesClassAndLowerCasedExtension)
{
    SetEditorType(1);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
    EXPECT_EQ(Editor().EditorType, 1);
    EXPECT_EQ(Editor().ListExtension, ".tva");
    SetEditorType(3);
    EXPECT_EQ(Editor().ListExtension, ".tvm");
}

TEST_F(EditorGeneral, AListIsKnownByTheKeywordOfItsFirstLine)
{
    EXPECT_EQ(ListTypeOfFile(Stored("a.csv", "Antenna List,Van\r\n")), 1);
    EXPECT_EQ(ListTypeOfFile(Stored("k.csv", "K-Factor Table;Dipole\r\n")), 2);
    EXPECT_EQ(ListTypeOfFile(Stored("m.csv", "MEMORY LIST,Van\r\n")), 3);
    EXPECT_EQ(ListTypeOfFile(Stored("s.csv", "suppress list,Van\r\n")), 4);
}

TEST_F(EditorGeneral, WhatIsNoListOrCannotBeReadIsUnknown)
{
    EXPECT_EQ(ListTypeOfFile(Stored("x.csv", " Memory List,Van\r\n")), 7);
    EXPECT_EQ(ListTypeOfFile(Stored("c.csv", "Correction Set,Van\r\n")), 7);
    EXPECT_EQ(ListTypeOfFile(Stored("y.csv", "Memory\r\nMemory List")), 7);
    EXPECT_EQ(ListTypeOfFile(Stored("e.csv", "")), 7);
    EXPECT_EQ(ListTypeOfFile(FilePath("missing.csv")), 7);
    EXPECT_EQ(ListTypeOfFile(Folder()), 7);
}

TEST_F(EditorGeneral, AListFileOpensInItsEditor)
{
    const QString path = Stored("a.csv", "Antenna List,Van\r\n");
    QString opened;
    Editors.WhileShown = [&opened] { opened = Editor().EditorOpenFile; };
    EXPECT_EQ(OpenListFile(path, true), 1);
    EXPECT_EQ(Editors.Shown, QList<int>({ 1 }));
    EXPECT_EQ(opened, path);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
}

TEST_F(EditorGeneral, AListFileIsOnlyNamedWhenNotShown)
{
    const QString path = Stored("a.csv", "Antenna List,Van\r\n");
    EXPECT_EQ(OpenListFile(path, false), 1);
    EXPECT_TRUE(Editors.Shown.isEmpty());
    EXPECT_TRUE(Editor().EditorOpenFile.isEmpty());
    EXPECT_EQ(OpenListFile(FilePath("missing.csv"), true), 7);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassMemoryList);
}

TEST_F(EditorGeneral, QuestionsBeginInAnOpenFolderElseTheRememberedElseTheProcessesOwn)
{
    EXPECT_EQ(EditorDefaultFolder(), QDir::currentPath());
    PcPath(3) = Folder();
    EXPECT_EQ(EditorDefaultFolder(), Folder());
    PcPath(3) = FilePath("gone");
    EXPECT_EQ(EditorDefaultFolder(), QDir::currentPath());
    Editor().EditorOpenFile = QDir(Folder()).absolutePath();
    EXPECT_EQ(EditorDefaultFolder(), QDir(Folder()).absolutePath());
    Editor().EditorOpenFile = FilePath("file.tvm");
    PcPath(3) = Folder();
    EXPECT_EQ(EditorDefaultFolder(), Folder());
}

TEST_F(EditorGeneral, TheOpenDialogOffersBothFormsThenCsvThenTheOwnForm)
{
    AnswerFile("/x/list.tvm");
    EXPECT_EQ(OpenListDialog("/start"), "/x/list.tvm");
    EXPECT_EQ(AskedFile.Title, "Open List");
    EXPECT_EQ(AskedFile.InitialFolder, "/start");
    EXPECT_EQ(
        AskedFile.Filters, QStringList({ "CSV and .TVM files|*.csv;*.tvm", "CSV files|*.csv", "Memory lists|*.tvm" }));
}

TEST_F(EditorGeneral, CorrectionSetsHaveNoCsvFilter)
{
    SetEditorType(6);
    AnswerFile({});
    EXPECT_EQ(OpenListDialog({}), QString());
    EXPECT_EQ(AskedFile.Filters, QStringList({ "Correction sets|*.tvc" }));
}

TEST_F(EditorGeneral, TheFolderQuestionNamesTheFile)
{
    PcPath(3) = Folder();
    AnswerFolder("/there");
    EXPECT_EQ(SaveFolderDialog("Van.TVM"), "/there");
    EXPECT_TRUE(AskedFolder.Title.contains("Van.TVM"));
    EXPECT_EQ(AskedFolder.Start, Folder());
}

TEST_F(EditorGeneral, TheFolderOfAnOpenedFileIsRemembered)
{
    RememberFolderOfFile("/lists/Van/a.tvm");
    EXPECT_EQ(PcPath(3), "/lists/Van");
    RememberFolder(" /lists/Other ");
    EXPECT_EQ(PcPath(3), "/lists/Other");
}

TEST_F(EditorGeneral, AFileIsCalledAfterItsList)
{
    EXPECT_EQ(ListFilePath("/lists", "Van", ".TVM"), "/lists/Van.tvm");
    EXPECT_EQ(ListFilePath("/", "Van", ".CSV"), "/Van.csv");
}

TEST_F(EditorGeneral, TheExtensionAloneDecidesTheForm)
{
    EXPECT_TRUE(IsCsvFile("/x/a.csv"));
    EXPECT_TRUE(IsCsvFile("/x/a.b.CSV"));
    EXPECT_FALSE(IsCsvFile("/x/a.tvm"));
    EXPECT_FALSE(IsCsvFile("/x/csv"));
    EXPECT_TRUE(IsCsvFile("/x/a.csv", kTextCsvExtensionOfTables));
}

TEST_F(EditorGeneral, ANewFileIsWrittenWithoutAQuestion)
{
    EXPECT_TRUE(MayWriteFile(FilePath("new.tvm")));
}

TEST_F(EditorGeneral, AnExistingFileIsReplacedOnYesOnly)
{
    const QString path = Stored("old.tvm", "x");
    Answers().Expect(12734, { QStringLiteral("old.tvm") }, No);
    EXPECT_FALSE(MayWriteFile(path));
    Answers().Expect(12734, { QStringLiteral("old.tvm") }, MsgNone);
    EXPECT_FALSE(MayWriteFile(path));
    Answers().Expect(12734, { QStringLiteral("old.tvm") }, Yes);
    EXPECT_TRUE(MayWriteFile(path));
}

TEST_F(EditorGeneral, TheQuestionToReplaceStandsOnNo)
{
    const QString path = Stored("old.tvm", "x");
    Answers().ExpectWhile(12734, No, [] { EXPECT_TRUE(TheMessage().DefaultToNo); });
    EXPECT_FALSE(MayWriteFile(path));
}

TEST_F(EditorGeneral, AReadOnlyFileIsRefusedWithItsPath)
{
    const QString path = Stored("old.tvm", "x");
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
    Answers().Expect(12728, { path }, Ok);
    EXPECT_FALSE(MayWriteFile(path));
}

TEST_F(EditorGeneral, AMissingFileIsReportedWithItsName)
{
    EXPECT_TRUE(ListFileExists(Stored("there.tvm", "x")));
    Answers().Expect(12780, { QStringLiteral("gone.tvm"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(ListFileExists(FilePath("gone.tvm")));
}

TEST_F(EditorGeneral, ATitleNamesTheFileBehindADash)
{
    EXPECT_EQ(EditorTitle(10762), "Memory List Editor");
    EXPECT_EQ(EditorTitle(10762, "Van.TVM"), "Memory List Editor - Van.TVM");
}

} // namespace tarvik
