// Filling file lists: which files of the PC and of the instrument are listed.
#include "tests/link/files/file_list_fixture.h"
#include "tests/support/fakeChannel.h"

namespace tarvik {

namespace {

using FileListing = FileListTest;

class InstrumentLists : public FileListTest {
protected:
    void Give(const QString& name, ChannelRowType type, qint16 year = 2025, qint16 month = 4, qint16 day = 5)
    {
        ChannelRow row;
        row.Name = name;
        row.Type = type;
        row.Year = year;
        row.Month = month;
        row.Day = day;
        row.Hour = 6;
        row.Minute = 7;
        row.Second = 8;
        fake_.Rows.push_back(row);
    }

    FakeChannel fake_;
};

} // namespace

TEST_F(FileListing, PcListShowsFoldersThenFilesOfClass)
{
    MakeFolder("b");
    MakeFolder("A");
    StoreAt("z.tvm", QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58)));
    StoreAt("C.TVM", QDateTime(QDate(2024, 2, 28), QTime(1, 2, 3)));
    StoreAt("other.tva", QDateTime(QDate(2024, 2, 28), QTime(1, 2, 3)));
    TransferListPc(list_, Mask(), true);
    EXPECT_EQ(Names(), QStringList({ "A", "b", "C.TVM", "z.tvm" }));
    EXPECT_EQ(Row(3).SubItems[0], "29/02/24");
    EXPECT_EQ(Row(3).SubItems[1], "23:59:58");
    EXPECT_EQ(Row(3).Icon, "File");
}

TEST_F(FileListing, PcListShowsFoldersForEveryClass)
{
    MakeFolder("Sub");
    for (const FileClass fileClass : kFileClasses) {
        ModFileInit(fileClass);
        TransferListPc(list_, Mask());
        EXPECT_EQ(Names(), QStringList({ "Sub" })) << fileClass;
    }
}

TEST_F(FileListing, PcFileWithPointInBaseNameIsNotShown)
{
    Store(FilePath("a.b.tvm"), "x");
    Store(FilePath("ab.tvm"), "x");
    TransferListPc(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ "ab.tvm" }));
}

TEST_F(FileListing, PcFileWithNameInvalidOnInstrumentIsNotShown)
{
    Store(FilePath(QStringLiteral("Stra\u00dfe.tvm")), "x");
    Store(FilePath(".tvm"), "x");
    Store(FilePath("a;b.tvm"), "x");
    Store(FilePath(QString(33, u'a') + ".tvm"), "x");
    Store(FilePath(QString(32, u'a') + ".tvm"), "x");
    TransferListPc(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ QString(32, u'a') + ".tvm" }));
}

TEST_F(FileListing, HiddenPcFoldersAreShown)
{
    MakeFolder(".cache");
    Store(FilePath(".hidden.tvm"), "x");
    TransferListPc(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ ".cache" }));
}

TEST_F(FileListing, EmptyPcFolderHasNoRowsAndNoMessage)
{
    AddFile("old.tvm", QDate(2025, 1, 1));
    TransferListPc(list_, Mask(), true);
    EXPECT_TRUE(list_.Rows.empty());
}

TEST_F(FileListing, MissingPcFolderHasNoRowsAndNoMessage)
{
    for (const QString& folder : { FilePath("gone"), QString() }) {
        CurrentPcFolder() = folder;
        AddFile("old.tvm", QDate(2025, 1, 1));
        TransferListPc(list_, Mask());
        EXPECT_TRUE(list_.Rows.empty());
    }
}

TEST_F(FileListing, ListingClearsCurrentRowAndDrawsOnce)
{
    Store(FilePath("a.tvm"), "x");
    AddFile("old.tvm", QDate(2025, 1, 1));
    Row(0).Selected = true;
    list_.CurrentRow = 0;
    TransferListPc(list_, Mask(), true);
    EXPECT_EQ(list_.CurrentRow, -1);
    EXPECT_FALSE(TransferAnySelected(list_));
    EXPECT_EQ(Changes, QStringList({ "begin", "end" }));
}

TEST_F(InstrumentLists, RowsAreInOrderOfWalk)
{
    Give("z.tvm", ChannelRowType::File);
    Give("a.tvm", ChannelRowType::File);
    TransferListInstr(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ "z.tvm", "a.tvm" }));
    EXPECT_EQ(Row(0).SubItems[0], "05/04/25");
    EXPECT_EQ(Row(0).SubItems[1], "06:07:08");
    EXPECT_EQ(fake_.Log, QStringList({ "StartFindMemoryListFiles", "GetNextFile", "GetNextFile" }));
}

TEST_F(InstrumentLists, FilesAreFilteredAsOnPc)
{
    Give("good.tvm", ChannelRowType::File);
    Give("two.points.tvm", ChannelRowType::File);
    Give("other.tva", ChannelRowType::File);
    Give("../up.tvm", ChannelRowType::File);
    Give("..\\up.tvm", ChannelRowType::File);
    TransferListInstr(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ "good.tvm" }));
}

TEST_F(InstrumentLists, FoldersAreShownForScreenShotsAndUnknownClassesOnly)
{
    Give("Sub", ChannelRowType::Folder);
    for (const FileClass fileClass : kClassesOfAllKinds) {
        ModFileInit(fileClass);
        TransferListInstr(list_, Mask());
        EXPECT_EQ(!list_.Rows.empty(), fileClass == FileClassScreenShot || fileClass == FileClassUnknown) << fileClass;
    }
}

TEST_F(InstrumentLists, RowOfOtherTypeIsSkipped)
{
    ModFileInit(FileClassScreenShot);
    Give("a.png", static_cast<ChannelRowType>(2));
    Give("b.png", static_cast<ChannelRowType>(-1));
    Give("c.png", ChannelRowType::File);
    TransferListInstr(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ "c.png" }));
}

TEST_F(InstrumentLists, LastRowIsShown)
{
    Give("only.tvm", ChannelRowType::File);
    TransferListInstr(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ "only.tvm" }));
    EXPECT_EQ(fake_.Count("GetNextFile"), 1);
}

TEST_F(InstrumentLists, NothingToWalkLeavesListEmptyWithoutMessage)
{
    AddFile("old.tvm", QDate(2025, 1, 1));
    Give("a.tvm", ChannelRowType::File);
    fake_.NothingToWalk = true;
    TransferListInstr(list_, Mask());
    EXPECT_TRUE(list_.Rows.empty());
    EXPECT_EQ(fake_.Count("GetNextFile"), 0);
}

TEST_F(InstrumentLists, FailedStartLeavesListEmptyWithoutMessage)
{
    AddFile("old.tvm", QDate(2025, 1, 1));
    Give("a.tvm", ChannelRowType::File);
    fake_.Answer("StartFindMemoryListFiles", ChannelStatus::LinkFailed);
    TransferListInstr(list_, Mask());
    EXPECT_TRUE(list_.Rows.empty());
    EXPECT_EQ(fake_.Count("GetNextFile"), 0);
}

TEST_F(InstrumentLists, FailedWalkKeepsRowsReceived)
{
    Give("a.tvm", ChannelRowType::File);
    Give("b.tvm", ChannelRowType::File);
    Give("c.tvm", ChannelRowType::File);
    fake_.Answer("GetNextFile", ChannelStatus::Success);
    fake_.Answer("GetNextFile", ChannelStatus::LinkFailed);
    TransferListInstr(list_, Mask());
    EXPECT_EQ(Names(), QStringList({ "a.tvm" }));
    EXPECT_EQ(fake_.Count("GetNextFile"), 2);
}

TEST_F(InstrumentLists, InvalidDateIsLeftEmpty)
{
    Give("a.tvm", ChannelRowType::File, 2025, 2, 30);
    Give("b.tvm", ChannelRowType::File, 0, 0, 0);
    TransferListInstr(list_, Mask());
    EXPECT_EQ(Dates(), QStringList({ "", "" }));
}

TEST_F(InstrumentLists, EveryClassHasItsStartOperation)
{
    const char* starts[] = { "StartFindAntennaListFiles", "StartFindKfactorTableFiles", "StartFindMemoryListFiles",
        "StartFindSuppressListFiles", "StartFindAllFiles", "StartFindCorrectionSetFiles", "StartFindAllFiles" };
    for (const FileClass fileClass : kClassesOfAllKinds) {
        fake_.Log.clear();
        ModFileInit(fileClass);
        TransferListInstr(list_, Mask());
        EXPECT_EQ(fake_.Log, QStringList({ QString::fromLatin1(starts[FileClassNumber(fileClass) - 1]) }));
    }
}

} // namespace tarvik
