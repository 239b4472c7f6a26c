#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"

#include <QFile>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace tarvik {

namespace {

std::vector<std::string> calls; // NOLINT: the store's calls are plain functions

/// A different value in each field.
MemoryRecord FullRecord()
{
    MemoryRecord record;
    record.Used = true;
    record.Number = 77;
    record.Frequency = 145500000;
    record.Demodulation = 1;
    record.Bandwidth = 7;
    record.SquelchLevel = 12.25;
    record.SquelchStatus = 1;
    record.AntennaNumber = 9;
    record.AttenuatorStatus = 1;
    record.AfcStatus = 1;
    record.Description = QStringLiteral("Tower \u00e4");
    record.Status = 1;
    record.DfSquelchStatus = 2;
    record.DfSquelchLevel = -3.5;
    record.DfMeasurementTime = 0.25;
    record.FrequencySpan = 5;
    record.DfStep = 20;
    record.DfBandwidth = 13;
    record.Reserved2 = 1234567;
    record.Reserved3 = -7654321;
    return record;
}

class MemoryListStore : public ListTest {
protected:
    MemoryListStore()
        : table(EmptyMemoryTable())
    {
        table.MemoryListName = QStringLiteral("Van");
        table.MemoryListDescription = QStringLiteral("roof \u00e4");
    }

    /// The store refuses every frequency with status 23.
    static void RefuseFrequencies()
    {
        TvFio().MemorySetFrequency = [](int16_t* status, double) { *status = 23; };
    }

    MemoryTable table;
};

/// The store only records its calls.
class MemoryStoreCalls : public MemoryListStore {
protected:
    MemoryStoreCalls()
    {
        calls.clear();
        TvFio().MemoryListClear = [](int16_t*) { calls.push_back("Clear"); };
        TvFio().MemoryListSetName = [](int16_t*, const char*) { calls.push_back("SetName"); };
        TvFio().MemoryListSetDescription = [](int16_t*, const char*) { calls.push_back("SetDescription"); };
        TvFio().MemorySetData = [](int16_t*, int16_t) { calls.push_back("SetData"); };
        TvFio().MemoryListSaveFile = [](int16_t*, const char*) { calls.push_back("SaveFile"); };
        TvFio().MemoryListLoadFile = [](int16_t*, const char*) { calls.push_back("LoadFile"); };
        TvFio().MemoryListGetName = [](int16_t*, char*, int32_t) { calls.push_back("GetName"); };
        TvFio().MemoryListGetDescription = [](int16_t*, char*, int32_t) { calls.push_back("GetDescription"); };
        TvFio().MemoryListItemIsInUse = [](int16_t*, int16_t, int16_t*) { calls.push_back("IsInUse"); };
        TvFio().MemoryListGetMaxNumberOfItems = [](int16_t*, int16_t* count) {
            calls.push_back("GetMaxNumberOfItems");
            *count = 1;
        };
        RecordFields();
    }

    /// The calls of one record, between `before` and `after`.
    static std::vector<std::string> Expected(
        const std::vector<std::string>& before, const std::vector<std::string>& after)
    {
        std::vector<std::string> expected = before;
        for (const char* field :
            { "Frequency", "Demodulation", "BandWidth", "SquelchLevel", "SquelchSetting", "AntennaNumber",
                "AttenuatorSetting", "AFCSetting", "Description", "Suppressed", "DfSquelchSetting", "DfSquelchLevel",
                "DfMeasurementTime", "FrequencySpan", "DfStep", "Reserved1", "Reserved2", "Reserved3" })
            expected.emplace_back(field);
        expected.insert(expected.end(), after.begin(), after.end());
        return expected;
    }

private:
#define RECORD_FIELD(Field, Type)                                                                                      \
    TvFio().MemoryGet##Field = [](int16_t*, int16_t, Type*) { calls.push_back(#Field); };                              \
    TvFio().MemorySet##Field = [](int16_t*, Type) { calls.push_back(#Field); }
    static void RecordFields()
    {
        RECORD_FIELD(MemItemNumber, int16_t);
        RECORD_FIELD(Frequency, double);
        RECORD_FIELD(Demodulation, int16_t);
        RECORD_FIELD(BandWidth, int16_t);
        RECORD_FIELD(SquelchLevel, double);
        RECORD_FIELD(SquelchSetting, int16_t);
        RECORD_FIELD(AntennaNumber, int16_t);
        RECORD_FIELD(AttenuatorSetting, int16_t);
        RECORD_FIELD(AFCSetting, int16_t);
        RECORD_FIELD(Suppressed, int16_t);
        RECORD_FIELD(DfSquelchSetting, int16_t);
        RECORD_FIELD(DfSquelchLevel, double);
        RECORD_FIELD(DfMeasurementTime, double);
        RECORD_FIELD(FrequencySpan, int16_t);
        RECORD_FIELD(DfStep, int16_t);
        RECORD_FIELD(Reserved1, int32_t);
        RECORD_FIELD(Reserved2, int32_t);
        RECORD_FIELD(Reserved3, int32_t);
        TvFio().MemoryGetDescription = [](int16_t*, int16_t, char*, int32_t) { calls.push_back("Description"); };
        TvFio().MemorySetDescription = [](int16_t*, const char*) { calls.push_back("Description"); };
    }
#undef RECORD_FIELD
};

} // namespace

TEST_F(MemoryStoreCalls, ListIsWrittenInOrderOfStore)
{
    UseRow(table, 9, 1e8);
    EXPECT_TRUE(WriteMemoryListDll(table));
    EXPECT_EQ(calls, Expected({ "Clear", "SetName", "SetDescription", "MemItemNumber" }, { "SetData" }));
}

TEST_F(MemoryStoreCalls, FileIsLoadedInOrderOfStore)
{
    Store(FilePath("Van.tvm"), "any");
    EXPECT_TRUE(ReadMemoryListMRFile(FilePath("Van.tvm"), table));
    EXPECT_EQ(calls,
        Expected(
            { "Clear", "LoadFile", "GetName", "GetDescription", "GetMaxNumberOfItems", "MemItemNumber", "IsInUse" },
            {}));
}

TEST_F(MemoryStoreCalls, NoCallFollowsFirstFailure)
{
    UseRow(table, 9, 1e8);
    UseRow(table, 10, 1e8);
    RefuseFrequencies();
    Answers().Expect(12840, { QStringLiteral("10") }, Ok);
    Answers().Expect(12726, { FilePath("Van.tvm") }, Ok);
    EXPECT_FALSE(WriteMemoryList(FilePath("Van.tvm"), table));
    EXPECT_EQ(calls, std::vector<std::string>({ "Clear", "SetName", "SetDescription", "MemItemNumber" }));
}

TEST_F(MemoryListStore, EmptyListNumbersItsRows)
{
    const MemoryTable empty = EmptyMemoryTable();
    EXPECT_TRUE(empty.MemoryListName.isEmpty());
    std::set<int> numbers;
    for (const MemoryRecord& record : empty.Rows) {
        EXPECT_FALSE(record.Used);
        numbers.insert(record.Number);
    }
    EXPECT_EQ(numbers.size(), 1024U);
}

TEST_F(MemoryListStore, EveryFieldRoundTripsThroughStore)
{
    table.Row(40) = FullRecord();
    ASSERT_TRUE(WriteMemoryListDll(table));
    MemoryTable read;
    ASSERT_TRUE(ReadMemoryListDll(read));
    EXPECT_EQ(read.MemoryListName, "Van");
    EXPECT_EQ(read.MemoryListDescription, table.MemoryListDescription);
    EXPECT_EQ(read.Row(40), FullRecord());
}

TEST_F(MemoryListStore, UnusedRowsAreSkippedAndGapsKept)
{
    UseRow(table, 1000, 1e8);
    table.Row(3).Frequency = 2e8; // not used
    ASSERT_TRUE(WriteMemoryListDll(table));
    MemoryTable read;
    ASSERT_TRUE(ReadMemoryListDll(read));
    EXPECT_TRUE(read.Row(1000).Used);
    EXPECT_FALSE(read.Row(3).Used);
    EXPECT_EQ(std::count_if(read.Rows.begin(), read.Rows.end(), [](const MemoryRecord& at) { return at.Used; }), 1);
}

TEST_F(MemoryListStore, FailedRowIsReportedCountedFromOne)
{
    UseRow(table, 4, 1e8);
    RefuseFrequencies();
    Answers().Expect(12840, { QStringLiteral("5") }, Ok);
    EXPECT_FALSE(WriteMemoryListDll(table));
}

TEST_F(MemoryListStore, ListFailureHasNoItem)
{
    TvFio().MemoryListSetName = [](int16_t* status, const char*) { *status = 8; };
    Answers().Expect(12828, QStringList(), Ok);
    EXPECT_FALSE(WriteMemoryListDll(table));
}

TEST_F(MemoryListStore, ReadingStopsAtFirstError)
{
    static int asked = 0;
    asked = 0;
    TvFio().MemoryGetDescription = [](int16_t* status, int16_t, char*, int32_t) {
        ++asked;
        *status = 32;
    };
    Answers().Expect(12849, { QStringLiteral("1") }, Ok);
    EXPECT_FALSE(ReadMemoryListDll(table));
    EXPECT_EQ(asked, 1);
}

TEST_F(MemoryListStore, ListRoundTripsThroughBinaryFile)
{
    table.Row(0) = FullRecord();
    UseRow(table, 1023, 8e9, "last");
    const QString path = FilePath("Van.tvm");
    ASSERT_TRUE(WriteMemoryList(path, table));
    MemoryTable read;
    ASSERT_TRUE(OpenMemoryList(path, read));
    EXPECT_EQ(read, table);
    EXPECT_EQ(read.Row(0), FullRecord());
}

TEST_F(MemoryListStore, ListWithoutUsedRowsIsValidFile)
{
    const QString path = FilePath("Van.tvm");
    ASSERT_TRUE(WriteMemoryList(path, table));
    MemoryTable read;
    ASSERT_TRUE(OpenMemoryList(path, read));
    EXPECT_EQ(read.MemoryListName, "Van");
    EXPECT_TRUE(std::none_of(read.Rows.begin(), read.Rows.end(), [](const MemoryRecord& at) { return at.Used; }));
}

TEST_F(MemoryListStore, FolderNameMayHaveOtherScripts)
{
    const QString folder = FilePath(QStringLiteral("\u4e00 \u00e4"));
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(WriteMemoryList(folder + "/Van.tvm", table));
    EXPECT_TRUE(QFile::exists(folder + "/Van.tvm"));
    MemoryTable read;
    EXPECT_TRUE(OpenMemoryList(folder + "/Van.tvm", read));
}

TEST_F(MemoryListStore, MissingFileLeavesEmptyList)
{
    UseRow(table, 2, 1e8);
    Answers().Expect(12780, { QStringLiteral("gone.tvm"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(OpenMemoryList(FilePath("gone.tvm"), table));
    EXPECT_EQ(table, EmptyMemoryTable());
}

TEST_F(MemoryListStore, InvalidFileLeavesEmptyList)
{
    UseRow(table, 2, 1e8);
    Store(FilePath("bad.tvm"), "this is no list");
    Answers().Expect(12827, Ok);
    EXPECT_FALSE(OpenMemoryList(FilePath("bad.tvm"), table));
    EXPECT_EQ(table, EmptyMemoryTable());
}

TEST_F(MemoryListStore, RowsRefusedByStoreAreReportedWithPath)
{
    UseRow(table, 0, 1e8);
    const MemoryTable before = table;
    RefuseFrequencies();
    Answers().Expect(12840, { QStringLiteral("1") }, Ok);
    Answers().Expect(12726, { FilePath("Van.tvm") }, Ok);
    EXPECT_FALSE(WriteMemoryList(FilePath("Van.tvm"), table));
    EXPECT_EQ(table, before);
    EXPECT_FALSE(QFile::exists(FilePath("Van.tvm")));
}

TEST_F(MemoryListStore, SavedTableIsAsStoreKeepsIt)
{
    const QString path = FilePath("Van.tvm");
    UseRow(table, 0, 1e8);
    table.Row(3).Frequency = 2e8; // a deleted row, which no file holds
    ASSERT_TRUE(WriteMemoryList(path, table));
    EXPECT_EQ(table.Row(3), EmptyMemoryTable().Row(3));
    EXPECT_EQ(table.Row(0).Frequency, 1e8);
}

TEST_F(MemoryListStore, ExistingFileIsKeptOnNo)
{
    const QString path = FilePath("Van.tvm");
    Store(path, "old");
    UseRow(table, 0, 1e8);
    const MemoryTable before = table;
    Answers().Expect(12734, { QStringLiteral("Van.tvm") }, No);
    EXPECT_FALSE(WriteMemoryList(path, table));
    EXPECT_EQ(Contents(path), "old");
    EXPECT_EQ(table, before);
}

TEST_F(MemoryListStore, ReadOnlyFileIsRefusedInBothFormats)
{
    for (const char* name : { "Van.tvm", "Van.csv" }) {
        const QString path = FilePath(name);
        Store(path, "old");
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
        Answers().Expect(12728, { path }, Ok);
        EXPECT_FALSE(WriteMemoryList(path, table));
        EXPECT_EQ(Contents(path), "old");
    }
}

TEST_F(MemoryListStore, FailedWriteIsReportedAndKeepsRows)
{
    const QString path = FilePath("no folder/Van.tvm");
    UseRow(table, 0, 1e8);
    const MemoryTable before = table;
    Answers().Expect(12827, Ok);
    EXPECT_FALSE(WriteMemoryList(path, table));
    EXPECT_EQ(table, before);
}

TEST_F(MemoryListStore, SortingPutsUsedRowsFirst)
{
    UseRow(table, 500, 3e8, "c");
    UseRow(table, 600, 1e8, "B");
    UseRow(table, 700, 2e8, "a");
    ASSERT_TRUE(SortMemoryList(table, MemorySortKey::FrequencyUp));
    EXPECT_EQ(table.Row(0).Frequency, 1e8);
    EXPECT_EQ(table.Row(2).Frequency, 3e8);
    EXPECT_FALSE(table.Row(3).Used);
    EXPECT_EQ(table.Row(0).Number, 600);
    ASSERT_TRUE(SortMemoryList(table, MemorySortKey::DescriptionUp));
    EXPECT_EQ(table.Row(0).Description, "a");
    EXPECT_EQ(table.Row(1).Description, "B");
    EXPECT_EQ(table.MemoryListName, "Van");
    EXPECT_EQ(table.MemoryListDescription, QStringLiteral("roof \u00e4"));
}

TEST_F(MemoryListStore, FailedSortKeepsRows)
{
    UseRow(table, 500, 3e8);
    const MemoryTable before = table;
    Answers().Expect(12838, QStringList(), Ok);
    EXPECT_FALSE(SortMemoryList(table, static_cast<MemorySortKey>(7)));
    EXPECT_EQ(table, before);
    RefuseFrequencies();
    Answers().Expect(12840, { QStringLiteral("501") }, Ok);
    EXPECT_FALSE(SortMemoryList(table, MemorySortKey::Status));
    EXPECT_EQ(table, before);
}

TEST_F(MemoryListStore, FailedReadAfterSortKeepsRows)
{
    UseRow(table, 500, 3e8);
    UseRow(table, 600, 1e8);
    const MemoryTable before = table;
    TvFio().MemoryGetReserved3 = [](int16_t* status, int16_t index, int32_t*) { *status = index == 1 ? 32 : 0; };
    Answers().Expect(12849, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(SortMemoryList(table, MemorySortKey::FrequencyUp));
    EXPECT_EQ(table, before);
}

TEST_F(MemoryListStore, TableIsEmptyEvenIfStoreCannotBeCleared)
{
    UseRow(table, 2, 1e8);
    Store(FilePath("Van.tvm"), "any");
    TvFio().MemoryListClear = [](int16_t* status) { *status = 8; };
    Answers().Expect(12828, QStringList(), Ok);
    Answers().Expect(12828, QStringList(), Ok);
    EXPECT_FALSE(OpenMemoryList(FilePath("Van.tvm"), table));
    EXPECT_EQ(table, MemoryTable());
}

TEST_F(MemoryListStore, HeaderTogglesBetweenItsTwoKeys)
{
    using Key = MemorySortKey;
    EXPECT_EQ(MemorySortKeyOfHeader(2, Key::Status), Key::NumberUp);
    EXPECT_EQ(MemorySortKeyOfHeader(2, Key::NumberUp), Key::NumberDown);
    EXPECT_EQ(MemorySortKeyOfHeader(2, Key::NumberDown), Key::NumberUp);
    EXPECT_EQ(MemorySortKeyOfHeader(3, Key::NumberUp), Key::FrequencyUp);
    EXPECT_EQ(MemorySortKeyOfHeader(3, Key::FrequencyUp), Key::FrequencyDown);
    EXPECT_EQ(MemorySortKeyOfHeader(5, Key::DescriptionUp), Key::DescriptionDown);
    for (const int column : { -1, 0, 1, 4, 6 })
        EXPECT_EQ(MemorySortKeyOfHeader(column, Key::NumberUp), std::nullopt);
}

TEST_F(MemoryListStore, SortKeysHaveTheNumbersOfTheStore)
{
    using Key = MemorySortKey;
    std::int16_t number = 0;
    for (const Key key : { Key::Status, Key::NumberUp, Key::NumberDown, Key::FrequencyUp, Key::FrequencyDown,
             Key::DescriptionUp, Key::DescriptionDown })
        EXPECT_EQ(static_cast<std::int16_t>(key), number++);
    EXPECT_EQ(number, kMemorySortKeys);
}

TEST_F(MemoryListStore, RowKeepsItsNumberWhenUsed)
{
    table.Row(8).Number = 5;
    table.Row(5).Number = 8;
    UseMemoryRow(table, 8);
    EXPECT_TRUE(table.Row(8).Used);
    EXPECT_EQ(table.Row(8).Number, 5);
}

TEST_F(MemoryListStore, RowWithTakenNumberGetsLowestFreeOne)
{
    UseMemoryRow(table, 0);
    table.Row(7).Number = 0; // as Delete in the entry dialog leaves it
    UseMemoryRow(table, 7);
    EXPECT_EQ(table.Row(0).Number, 0);
    EXPECT_EQ(table.Row(7).Number, 7);
}

TEST_F(MemoryListStore, RowGetsLowestNumberOfUnusedRowsIfNoneIsFree)
{
    UseMemoryRow(table, 0);
    for (int row = 2; row < kMemoryRows; ++row)
        table.Row(row).Number = static_cast<std::int16_t>(row);
    table.Row(1).Number = 0;
    table.Rows[9].Number = 1;
    UseMemoryRow(table, 1);
    EXPECT_EQ(table.Row(1).Number, 9);
}

TEST_F(MemoryListStore, NumbersForFileAreDistinct)
{
    UseRow(table, 3, 1e8).Number = 900;
    table.Row(900).Number = 900;
    table.Row(10).Number = 0;
    int duplicateRow = 0;
    const std::vector<std::int16_t> numbers = DistinctMemoryNumbers(table, duplicateRow);
    EXPECT_EQ(duplicateRow, -1);
    EXPECT_EQ(numbers[3], 900);
    EXPECT_EQ(std::set<std::int16_t>(numbers.begin(), numbers.end()).size(), 1024U);
}

TEST_F(MemoryListStore, DuplicateNumberOfUsedRowsIsReported)
{
    UseRow(table, 3, 1e8).Number = 5;
    UseRow(table, 9, 1e8).Number = 5;
    int duplicateRow = -1;
    static_cast<void>(DistinctMemoryNumbers(table, duplicateRow));
    EXPECT_EQ(duplicateRow, 9);
}

TEST_F(MemoryListStore, ListWithEqualNumbersIsSavedAsCsvAfterAQuestion)
{
    const QString path = FilePath("Van.csv");
    UseRow(table, 3, 1e8).Number = 5;
    UseRow(table, 9, 2e8).Number = 5;
    UseRow(table, 10, 3e8).Number = 0;
    Answers().Expect(12910, { QStringLiteral("5") }, No);
    EXPECT_FALSE(WriteMemoryList(path, table));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(table.Row(9).Number, 5);

    Answers().Expect(12910, { QStringLiteral("5") }, Yes);
    ASSERT_TRUE(WriteMemoryList(path, table));
    EXPECT_EQ(table.Row(3).Number, 5);
    EXPECT_EQ(table.Row(9).Number, 1); // the lowest free one
    EXPECT_EQ(table.Row(10).Number, 0);
    MemoryTable read;
    ASSERT_TRUE(OpenMemoryList(path, read));
    EXPECT_EQ(read.Row(9).Number, 1);
    EXPECT_EQ(read.Row(9).Frequency, 2e8);
}

TEST_F(MemoryListStore, BinaryListKeepsEqualNumbers)
{
    UseRow(table, 3, 1e8).Number = 5;
    UseRow(table, 9, 2e8).Number = 5;
    ASSERT_TRUE(WriteMemoryList(FilePath("Van.tvm"), table));
    EXPECT_EQ(table.Row(9).Number, 5);
}

} // namespace tarvik
