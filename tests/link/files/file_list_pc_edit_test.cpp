// Rename and new folder on the PC.
#include "tests/link/files/file_list_fixture.h"

#include "closed/loader.h"

namespace tarvik {

namespace {

class PcRename : public FileListTest {
protected:
    /// True if the list must keep the old text.
    bool Cancels(const QString& name)
    {
        QString newName = name;
        bool cancel = false;
        TransferRenamePc(list_, 0, newName, cancel);
        EXPECT_EQ(newName, name.trimmed());
        return cancel;
    }

    void OneFile(const QString& name, const QByteArray& bytes = "x")
    {
        Store(FilePath(name), bytes);
        AddFile(name);
    }

    void OneFolder(const QString& name)
    {
        MakeFolder(name);
        AddFolder(name);
    }
};

using NewPcFolder = FileListTest;

} // namespace

TEST_F(PcRename, EmptyNameIsRefused)
{
    OneFile("a.tvm");
    Answers().Expect(12729, Ok);
    EXPECT_TRUE(Cancels("  "));
    ExpectRow("a.tvm", "a.tvm");
    EXPECT_TRUE(Exists("a.tvm"));
}

TEST_F(PcRename, FolderTakesTrimmedName)
{
    OneFolder("old");
    EXPECT_FALSE(Cancels(" new "));
    ExpectRow("new", "Fnew");
    EXPECT_TRUE(Exists("new"));
    EXPECT_FALSE(Exists("old"));
}

TEST_F(PcRename, FolderMayHaveAnyName)
{
    OneFolder("old");
    EXPECT_FALSE(Cancels("a.b, with much more than thirty-two characters"));
    EXPECT_TRUE(Exists("a.b, with much more than thirty-two characters"));
}

TEST_F(PcRename, FolderCannotTakeNameOfFolderOrFile)
{
    OneFolder("old");
    MakeFolder("taken");
    Store(FilePath("taken.txt"), "x");
    for (const char* name : { "taken", "taken.txt", "old" }) {
        Answers().Expect(12730, { QString::fromLatin1(name) }, Ok);
        EXPECT_TRUE(Cancels(QString::fromLatin1(name)));
    }
    ExpectRow("old", "Fold");
    EXPECT_EQ(Contents(FilePath("taken.txt")), "x");
}

TEST_F(PcRename, FolderCannotLeaveItsFolder)
{
    OneFolder("old");
    MakeFolder("sub");
    Answers().Expect(12739, Ok);
    EXPECT_TRUE(Cancels("sub/old"));
    Answers().Expect(12739, Ok);
    EXPECT_TRUE(Cancels("../" + QFileInfo(CurrentPcFolder()).fileName() + "-moved"));
    Answers().Expect(12730, { QStringLiteral("..") }, Ok);
    EXPECT_TRUE(Cancels(".."));
    EXPECT_TRUE(Exists("old"));
    EXPECT_FALSE(Exists("sub/old"));
}

TEST_F(PcRename, FolderRefusedBySystemIsReported)
{
    OneFolder("old");
    Answers().Expect(12739, Ok);
    EXPECT_TRUE(Cancels(QString(300, u'a')));
    ExpectRow("old", "Fold");
    EXPECT_TRUE(Exists("old"));
}

TEST_F(PcRename, MissingFileMovesFocusToList)
{
    AddFile("gone.tvm");
    EXPECT_TRUE(Cancels("new.tvm"));
    EXPECT_EQ(Log, QStringList({ "focus" }));
    ExpectRow("gone.tvm", "gone.tvm");
}

TEST_F(PcRename, FileTakesTrimmedName)
{
    ModFileInit(FileClassScreenShot);
    OneFile("a.png", "picture");
    EXPECT_FALSE(Cancels(" b.png "));
    ExpectRow("b.png", "b.png");
    EXPECT_EQ(Contents(FilePath("b.png")), "picture");
    EXPECT_FALSE(Exists("a.png"));
}

TEST_F(PcRename, FileCannotTakeNameOfFolderOrOtherFile)
{
    OneFile("a.tvm");
    Store(FilePath("b.tvm"), "other");
    MakeFolder("c.tvm");
    for (const char* name : { "b.tvm", "c.tvm" }) {
        Answers().Expect(12730, { QString::fromLatin1(name) }, Ok);
        EXPECT_TRUE(Cancels(QString::fromLatin1(name)));
    }
    EXPECT_EQ(Contents(FilePath("b.tvm")), "other");
    EXPECT_TRUE(Exists("a.tvm"));
}

TEST_F(PcRename, FileNeedsNameValidOnInstrument)
{
    OneFile("a.tvm");
    for (const QString& name : { QStringLiteral("a.b.tvm"), QStringLiteral(".tvm"), QString(33, u'a') + ".tvm",
             QStringLiteral("\u00e4.tvm"), QStringLiteral("sub/b.tvm"), QStringLiteral("../b.tvm") }) {
        Answers().Expect(12721, { name, QStringLiteral("memory list") }, Ok);
        EXPECT_TRUE(Cancels(name));
    }
    ExpectRow("a.tvm", "a.tvm");
    EXPECT_TRUE(Exists("a.tvm"));
}

TEST_F(PcRename, ChangeOfCaseOnlyDoesNothing)
{
    OneFile("a.tvm", "x");
    EXPECT_FALSE(Cancels("A.TVM"));
    ExpectRow("a.tvm", "a.tvm");
    EXPECT_TRUE(Exists("a.tvm"));
}

TEST_F(PcRename, SameNameDoesNothing)
{
    OneFile("a.tvm", "x");
    EXPECT_FALSE(Cancels("a.tvm"));
    EXPECT_EQ(Contents(FilePath("a.tvm")), "x");
}

TEST_F(PcRename, FileKeepsItsExtension)
{
    OneFile("a.tvm");
    for (const char* name : { "a.tva", "a", "b" }) {
        Answers().Expect(12748, Ok);
        EXPECT_TRUE(Cancels(QString::fromLatin1(name)));
    }
    EXPECT_TRUE(Exists("a.tvm"));
}

TEST_F(PcRename, ReportsNameInUseThenBadNameThenExtension)
{
    OneFile("a.tvm");
    Store(FilePath("b.x.txt"), "other");
    Answers().Expect(12730, { QStringLiteral("b.x.txt") }, Ok);
    EXPECT_TRUE(Cancels("b.x.txt"));
    Answers().Expect(12721, { QStringLiteral("c.x.txt"), QStringLiteral("memory list") }, Ok);
    EXPECT_TRUE(Cancels("c.x.txt"));
    EXPECT_TRUE(Exists("a.tvm"));
}

TEST_F(PcRename, ExtensionMayChangeItsCase)
{
    OneFile("a.tvm");
    EXPECT_FALSE(Cancels("b.TVM"));
    EXPECT_TRUE(Exists("b.TVM"));
    ExpectRow("b.TVM", "b.TVM");
}

TEST_F(PcRename, FileCannotTakeNameOfDanglingLink)
{
    OneFile("a.tvm");
    ASSERT_TRUE(QFile::link(FilePath("nowhere"), FilePath("b.tvm")));
    Answers().Expect(12730, { QStringLiteral("b.tvm") }, Ok);
    EXPECT_TRUE(Cancels("b.tvm"));
    EXPECT_TRUE(Exists("a.tvm"));
}

TEST_F(PcRename, ListInFileTakesNewName)
{
    struct Family {
        FileClass Class;
        decltype(TvFioApi::MemoryListClear) Clear;
        decltype(TvFioApi::MemoryListSaveFile) Save;
        decltype(TvFioApi::MemoryListLoadFile) Load;
        decltype(TvFioApi::MemoryListGetName) GetName;
    };
    const TvFioApi& fio = TvFio();
    const Family families[] = {
        { FileClassAntennaList, fio.AntennaListClear, fio.AntennaListSaveFile, fio.AntennaListLoadFile,
            fio.AntennaListGetName },
        { FileClassKfactorTable, fio.KfactorTableClear, fio.KfactorTableSaveFile, fio.KfactorTableLoadFile,
            fio.KfactorTableGetName },
        { FileClassMemoryList, fio.MemoryListClear, fio.MemoryListSaveFile, fio.MemoryListLoadFile,
            fio.MemoryListGetName },
        { FileClassSuppressList, fio.SuppressListClear, fio.SuppressListSaveFile, fio.SuppressListLoadFile,
            fio.SuppressListGetName },
    };
    for (const Family& family : families) {
        ModFileInit(family.Class);
        const QString extension = ModGetExtension(family.Class);
        int16_t status = 0;
        family.Clear(&status);
        family.Save(&status, FilePath("a" + extension).toUtf8().constData());
        ASSERT_EQ(status, 0);
        list_.Rows.clear();
        AddFile("a" + extension);
        EXPECT_FALSE(Cancels("New name" + extension));
        family.Clear(&status);
        family.Load(&status, FilePath("New name" + extension).toUtf8().constData());
        ASSERT_EQ(status, 0) << family.Class;
        char name[TVFIO_TEXT_SIZE] = {};
        family.GetName(&status, name, sizeof(name));
        EXPECT_STREQ(name, "New name") << family.Class;
    }
}

TEST_F(PcRename, FileWithoutListIsRenamedUnchanged)
{
    OneFile("a.tvm", "no list");
    EXPECT_FALSE(Cancels("b.tvm"));
    EXPECT_EQ(Contents(FilePath("b.tvm")), "no list");
    ExpectRow("b.tvm", "b.tvm");
}

TEST_F(PcRename, CorrectionSetsHaveNoNameInFile)
{
    ModFileInit(FileClassCorrectionSet);
    const QString extension = ModGetExtension(FileClassCorrectionSet);
    OneFile("a" + extension, "set");
    EXPECT_FALSE(Cancels("b" + extension));
    EXPECT_EQ(Contents(FilePath("b" + extension)), "set");
}

TEST_F(PcRename, MissingRowIsCancelled)
{
    EXPECT_TRUE([this] {
        QString name = "b.tvm";
        bool cancel = false;
        TransferRenamePc(list_, 0, name, cancel);
        return cancel;
    }());
}

TEST_F(NewPcFolder, IsCreatedSelectedAndEdited)
{
    AddFile("a.tvm");
    Row(0).Selected = true;
    TransferNewFolderPc(list_);
    EXPECT_TRUE(QFileInfo(FilePath("New Folder")).isDir());
    ASSERT_EQ(list_.Rows.size(), 2U);
    EXPECT_EQ(Row(1).Key, "FNew Folder");
    EXPECT_FALSE(Row(0).Selected);
    EXPECT_TRUE(Row(1).Selected);
    EXPECT_EQ(list_.CurrentRow, 1);
    EXPECT_EQ(Log, QStringList({ "focus", "edit 1" }));
}

TEST_F(NewPcFolder, IsInsertedInSortOrder)
{
    AddFile("a.tvm");
    AddFolder("Zoo");
    TransferSortColumn(list_, kFileSortColumn);
    TransferNewFolderPc(list_);
    EXPECT_EQ(Row(0).Text, "New Folder");
    EXPECT_TRUE(Row(0).Selected);
    EXPECT_EQ(list_.CurrentRow, 0);
    EXPECT_EQ(Log, QStringList({ "focus", "edit 0" }));
}

TEST_F(NewPcFolder, NumberStartsAtTwoAndSkipsFilesToo)
{
    MakeFolder("New Folder");
    TransferNewFolderPc(list_);
    EXPECT_TRUE(Exists("New Folder (2)"));
    Store(FilePath("New Folder (3)"), "x");
    TransferNewFolderPc(list_);
    EXPECT_TRUE(Exists("New Folder (4)"));
}

TEST_F(NewPcFolder, NumberHasNoUpperBound)
{
    MakeFolder("New Folder");
    for (int number = 2; number <= 101; ++number)
        MakeFolder(QStringLiteral("New Folder (%1)").arg(number));
    TransferNewFolderPc(list_);
    EXPECT_TRUE(Exists("New Folder (102)"));
}

TEST_F(NewPcFolder, FailureIsIgnored)
{
    CurrentPcFolder() = FilePath("gone");
    AddFile("a.tvm");
    Row(0).Selected = true;
    TransferNewFolderPc(list_);
    EXPECT_EQ(list_.Rows.size(), 1U);
    EXPECT_FALSE(Row(0).Selected);
    EXPECT_TRUE(Log.isEmpty());
}

} // namespace tarvik
