#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "tests/support/fakeFrame.h"

#include <QDir>
#include <QFile>

namespace tarvik {

namespace {

class EditorGeneral : public ListTest {
protected:
    static QString& PcPath(FileClass fileClass)
    {
        return FileClasses().PcPaths[fileClass];
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
        OpenEditor(static_cast<FileClass>(type));
    EXPECT_EQ(Editors.Shown,
        QList<FileClass>({ FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList, FileClassSuppressList,
            FileClassCorrectionSet }));
}

TEST_F(EditorGeneral, NonListTypeChangesNothing)
{
    OpenEditor(FileClassScreenShot);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassMemoryList);
}

TEST_F(EditorGeneral, TypeWithoutEditorChangesNothing)
{
    Editors.AreThere = false;
    OpenEditor(FileClassAntennaList);
    EXPECT_TRUE(Editors.Shown.isEmpty());
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassMemoryList);
}

TEST_F(EditorGeneral, StatusBarIsDisabledWhileEditorIsOpen)
{
    FakeFrame frame;
    const QList<bool>& calls = frame.StatusBarEnabled;
    Editors.WhileShown = [&calls] { EXPECT_EQ(calls, QList<bool>({ false })); };
    OpenEditor(FileClassMemoryList);
    EXPECT_EQ(calls, QList<bool>({ false, true }));
}

TEST_F(EditorGeneral, StatusBarStaysDisabledWhileNestedEditorCloses)
{
    FakeFrame frame;
    Editors.WhileShown = [this, &frame] {
        if (Editors.Shown.size() == 1)
            OpenEditor(FileClassKfactorTable);
        EXPECT_FALSE(frame.StatusBarEnabled.last());
    };
    OpenEditor(FileClassAntennaList);
    EXPECT_TRUE(frame.StatusBarEnabled.last());
    EXPECT_EQ(Editors.Shown, QList<FileClass>({ FileClassAntennaList, FileClassKfactorTable }));
}

TEST_F(EditorGeneral, TypeSetsFileClassAndLowerCaseExtension)
{
    SetEditorType(FileClassAntennaList);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
    EXPECT_EQ(Editor().EditorType, FileClassAntennaList);
    EXPECT_EQ(Editor().ListExtension, ".tva");
    SetEditorType(FileClassMemoryList);
    EXPECT_EQ(Editor().ListExtension, ".tvm");
}

TEST_F(EditorGeneral, ListTypeIsFoundByKeyword)
{
    EXPECT_EQ(ListTypeOfFile(Stored("a.csv", "Antenna List,Van\r\n")), FileClassAntennaList);
    EXPECT_EQ(ListTypeOfFile(Stored("k.csv", "K-Factor Table;Dipole\r\n")), FileClassKfactorTable);
    EXPECT_EQ(ListTypeOfFile(Stored("m.csv", "MEMORY LIST,Van\r\n")), FileClassMemoryList);
    EXPECT_EQ(ListTypeOfFile(Stored("s.csv", "suppress list,Van\r\n")), FileClassSuppressList);
}

TEST_F(EditorGeneral, OtherAndUnreadableFilesAreUnknown)
{
    EXPECT_EQ(ListTypeOfFile(Stored("x.csv", " Memory List,Van\r\n")), FileClassUnknown);
    EXPECT_EQ(ListTypeOfFile(Stored("c.csv", "Correction Set,Van\r\n")), FileClassUnknown);
    EXPECT_EQ(ListTypeOfFile(Stored("y.csv", "Memory\r\nMemory List")), FileClassUnknown);
    EXPECT_EQ(ListTypeOfFile(Stored("e.csv", "")), FileClassUnknown);
    EXPECT_EQ(ListTypeOfFile(FilePath("missing.csv")), FileClassUnknown);
    EXPECT_EQ(ListTypeOfFile(Folder()), FileClassUnknown);
}

TEST_F(EditorGeneral, ListFileOpensInItsEditor)
{
    const QString path = Stored("a.csv", "Antenna List,Van\r\n");
    QString opened;
    Editors.WhileShown = [&opened] { opened = Editor().EditorOpenFile; };
    EXPECT_EQ(OpenListFile(path, true), FileClassAntennaList);
    EXPECT_EQ(Editors.Shown, QList<FileClass>({ FileClassAntennaList }));
    EXPECT_EQ(opened, path);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
}

TEST_F(EditorGeneral, ListWithoutEditorLeavesNoFileToOpen)
{
    Editors.AreThere = false;
    EXPECT_EQ(OpenListFile(Stored("a.csv", "Antenna List,Van\r\n"), true), FileClassAntennaList);
    EXPECT_TRUE(Editor().EditorOpenFile.isEmpty());
    EXPECT_TRUE(Editors.Shown.isEmpty());
}

TEST_F(EditorGeneral, ListFileIsOnlyIdentifiedUnlessShown)
{
    const QString path = Stored("a.csv", "Antenna List,Van\r\n");
    EXPECT_EQ(OpenListFile(path, false), FileClassAntennaList);
    EXPECT_TRUE(Editors.Shown.isEmpty());
    EXPECT_TRUE(Editor().EditorOpenFile.isEmpty());
    EXPECT_EQ(OpenListFile(FilePath("missing.csv"), true), FileClassUnknown);
    EXPECT_EQ(FileClasses().CurrentFileClass, FileClassMemoryList);
}

TEST_F(EditorGeneral, DialogsStartInOpenThenRememberedThenCurrentFolder)
{
    EXPECT_EQ(EditorDefaultFolder(), QDir::currentPath());
    PcPath(FileClassMemoryList) = Folder();
    EXPECT_EQ(EditorDefaultFolder(), Folder());
    PcPath(FileClassMemoryList) = FilePath("gone");
    EXPECT_EQ(EditorDefaultFolder(), QDir::currentPath());
    Editor().EditorOpenFile = QDir(Folder()).absolutePath();
    EXPECT_EQ(EditorDefaultFolder(), QDir(Folder()).absolutePath());
    Editor().EditorOpenFile = FilePath("file.tvm");
    PcPath(FileClassMemoryList) = Folder();
    EXPECT_EQ(EditorDefaultFolder(), Folder());
}

TEST_F(EditorGeneral, OpenDialogOffersBothFormatsThenCsvThenBinary)
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
    SetEditorType(FileClassCorrectionSet);
    AnswerFile({});
    EXPECT_EQ(OpenListDialog({}), QString());
    EXPECT_EQ(AskedFile.Filters, QStringList({ "Correction sets|*.tvc" }));
}

TEST_F(EditorGeneral, FolderDialogShowsFileName)
{
    PcPath(FileClassMemoryList) = Folder();
    AnswerFolder("/there");
    EXPECT_EQ(SaveFolderDialog("Van.TVM"), "/there");
    EXPECT_TRUE(AskedFolder.Title.contains("Van.TVM"));
    EXPECT_EQ(AskedFolder.Start, Folder());
}

TEST_F(EditorGeneral, FolderOfOpenedFileIsRemembered)
{
    RememberFolderOfFile("/lists/Van/a.tvm");
    EXPECT_EQ(PcPath(FileClassMemoryList), "/lists/Van");
    RememberFolder(" /lists/Other ");
    EXPECT_EQ(PcPath(FileClassMemoryList), "/lists/Other");
}

TEST_F(EditorGeneral, FileIsNamedAfterList)
{
    EXPECT_EQ(ListFilePath("/lists", "Van", ".TVM"), "/lists/Van.tvm");
    EXPECT_EQ(ListFilePath("/", "Van", ".CSV"), "/Van.csv");
}

TEST_F(EditorGeneral, ExtensionAloneDecidesFormat)
{
    EXPECT_TRUE(IsCsvFile("/x/a.csv"));
    EXPECT_TRUE(IsCsvFile("/x/a.b.CSV"));
    EXPECT_FALSE(IsCsvFile("/x/a.tvm"));
    EXPECT_FALSE(IsCsvFile("/x/csv"));
    EXPECT_TRUE(IsCsvFile("/x/a.csv", TextNumber<0>(11003)));
}

TEST_F(EditorGeneral, NewFileIsWrittenWithoutQuestion)
{
    EXPECT_TRUE(MayWriteFile(FilePath("new.tvm")));
}

TEST_F(EditorGeneral, ExistingFileIsReplacedOnYesOnly)
{
    const QString path = Stored("old.tvm", "x");
    Answers().Expect(12734, { QStringLiteral("old.tvm") }, No);
    EXPECT_FALSE(MayWriteFile(path));
    Answers().Expect(12734, { QStringLiteral("old.tvm") }, MsgResult::None);
    EXPECT_FALSE(MayWriteFile(path));
    Answers().Expect(12734, { QStringLiteral("old.tvm") }, Yes);
    EXPECT_TRUE(MayWriteFile(path));
}

TEST_F(EditorGeneral, ReplaceQuestionDefaultsToNo)
{
    const QString path = Stored("old.tvm", "x");
    Answers().ExpectWhile(12734, No, [] { EXPECT_TRUE(TheMessage().DefaultToNo); });
    EXPECT_FALSE(MayWriteFile(path));
}

TEST_F(EditorGeneral, ReadOnlyFileIsReportedWithPath)
{
    const QString path = Stored("old.tvm", "x");
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
    Answers().Expect(12728, { path }, Ok);
    EXPECT_FALSE(MayWriteFile(path));
}

TEST_F(EditorGeneral, MissingFileIsReportedWithName)
{
    EXPECT_TRUE(ListFileExists(Stored("there.tvm", "x")));
    Answers().Expect(12780, { QStringLiteral("gone.tvm"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(ListFileExists(FilePath("gone.tvm")));
}

TEST_F(EditorGeneral, TitleHasFileNameAfterDash)
{
    EXPECT_EQ(EditorTitle(TextNumber<0>(10762)), "Memory List Editor");
    EXPECT_EQ(EditorTitle(TextNumber<0>(10762), "Van.TVM"), "Memory List Editor - Van.TVM");
}

TEST_F(EditorGeneral, LimitsAreReadEachTimeAnEditorOpens)
{
    OpenEditor(FileClassMemoryList);
    TvFio().GetMaxKFactorLevel = [](std::int16_t* status, double* value) {
        *status = 0;
        *value = 55;
    };
    double shown = 0;
    Editors.WhileShown = [&shown] { shown = Limits().KFactorLevel.Max; };
    OpenEditor(FileClassMemoryList);
    EXPECT_EQ(shown, 55);
}

TEST_F(EditorGeneral, NestedEditorLeavesTheOuterOneAsItWas)
{
    FakeFrame frame;
    Editor().EditorOpenFile = QStringLiteral("/lists/Sites.tva");
    Editors.WhileShown = [&] {
        if (Editors.Shown.size() == 2) {
            EXPECT_TRUE(Editor().EditorOpenFile.isEmpty()) << "it would open the outer one's file";
            EXPECT_EQ(FileClasses().CurrentFileClass, FileClassKfactorTable);
            Editor().EditorDirty = true;
            Editor().EditorOpenFile = QStringLiteral("/lists/Mast.tvk");
            Editor().KfactorFileName = QStringLiteral("Mast.tvk");
            return;
        }
        Editor().EditorDirty = false;
        OpenEditor(FileClassKfactorTable);
        EXPECT_FALSE(Editor().EditorDirty);
        EXPECT_EQ(Editor().EditorOpenFile, "/lists/Sites.tva");
        EXPECT_EQ(Editor().EditorType, FileClassAntennaList);
        EXPECT_EQ(FileClasses().CurrentFileClass, FileClassAntennaList);
        EXPECT_EQ(Editor().ListExtension, ".tva");
        EXPECT_EQ(Editor().KfactorFileName, "Mast.tvk");
        EXPECT_TRUE(Editor().EditorIsOpen);
        EXPECT_FALSE(frame.StatusBarEnabled.last());
    };
    OpenEditor(FileClassAntennaList);
    EXPECT_EQ(Editors.Shown, (QList<FileClass>{ FileClassAntennaList, FileClassKfactorTable }));
    EXPECT_FALSE(Editor().EditorIsOpen);
    EXPECT_TRUE(frame.StatusBarEnabled.last());
}

TEST_F(EditorGeneral, TypeScopeComesBackToTheOuterType)
{
    SetEditorType(FileClassAntennaList);
    {
        const EditorTypeScope scope(FileClassCorrectionSet);
        EXPECT_EQ(Editor().ListExtension, ".tvc");
    }
    EXPECT_EQ(Editor().EditorType, FileClassAntennaList);
    EXPECT_EQ(Editor().ListExtension, ".tva");
}

} // namespace tarvik
