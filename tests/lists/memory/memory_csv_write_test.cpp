#include "tests/lists/list_fixture.h"
#include "tests/support/ownNamespace.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace tarvik {

namespace {

class MemoryCsvWrite : public ListTest { };

} // namespace

TEST_F(MemoryCsvWrite, ExistingFileIsReplacedOnYesOnly)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    const QString path = FilePath("list.csv");
    Store(path, "old");
    Answers().Expect(12734, { QStringLiteral("list.csv") }, No);
    EXPECT_FALSE(WriteMemoryList(path, table));
    EXPECT_EQ(Contents(path), "old");
    Answers().Expect(12734, { QStringLiteral("list.csv") }, Yes);
    EXPECT_TRUE(WriteMemoryList(path, table));
    EXPECT_TRUE(Contents(path).startsWith("Memory List,Van\r\n"));
}

TEST_F(MemoryCsvWrite, FailedWriteIsReported)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    Answers().ExpectPrecise(12819, 12907, { QStringLiteral("list.csv") }, Ok);
    EXPECT_FALSE(WriteMemoryList(FilePath("no folder/list.csv"), table));
}

#if defined(Q_OS_LINUX)

/// On a real disk of a few kilobytes.
TEST_F(MemoryCsvWrite, FullDiskIsReportedAndLeavesTheOldFile)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    ASSERT_TRUE(QDir().mkpath(FilePath("disk")));
    const auto fill = [&] {
        EnterOwnNamespace();
        MountFresh(FilePath("disk"), "size=32k");
        const QString path = FilePath("disk/list.csv");
        Store(path, "old");
        Answers().Expect(12734, { QStringLiteral("list.csv") }, Yes);
        Answers().ExpectPrecise(12819, 12906, { QStringLiteral("list.csv") }, Ok);
        EXPECT_FALSE(WriteMemoryList(path, table));
        Answers().Verify();
        EXPECT_EQ(Contents(path), "old");
        EXPECT_EQ(QDir(FilePath("disk")).entryList(QDir::Files | QDir::Hidden | QDir::System), QStringList("list.csv"));
        std::fflush(stdout);
        std::_Exit(HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
    };
    EXPECT_EXIT(fill(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

#endif

TEST_F(MemoryCsvWrite, TextThatFileCannotHoldIsNotWritten)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    const QString path = FilePath("list.csv");
    UseRow(table, 6, 1e8, "a,b");
    Answers().Expect(12804, { QStringLiteral("7") }, Ok);
    EXPECT_FALSE(WriteMemoryListCSVFile(path, table));
    table.Row(6).Description.clear();
    table.MemoryListDescription = "a;b";
    Answers().Expect(12764, QStringList(), Ok);
    EXPECT_FALSE(WriteMemoryListCSVFile(path, table));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(MemoryCsvWrite, NameThatReaderRefusesIsNotWritten)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "  "; // a valid list name, but trimmed by the reader
    const QString path = FilePath("list.csv");
    Answers().Expect(12766, { QStringLiteral("memory list") }, Ok);
    EXPECT_FALSE(WriteMemoryListCSVFile(path, table));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(MemoryCsvWrite, DuplicateNumberOfUsedRowsIsNotWritten)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    UseRow(table, 3, 1e8).Number = 5;
    UseRow(table, 9, 1e8).Number = 5;
    Answers().Expect(12795, { QStringLiteral("10") }, Ok);
    EXPECT_FALSE(WriteMemoryListCSVFile(FilePath("list.csv"), table));
    EXPECT_FALSE(QFile::exists(FilePath("list.csv")));
}

} // namespace tarvik
