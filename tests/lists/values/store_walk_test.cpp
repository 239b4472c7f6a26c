#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "lists/values/storeWalk.h"

#include <ostream>
#include <string>
#include <vector>

namespace tarvik {

namespace {

struct TestRecord {
    bool Used = false;
    std::int16_t Include = 0;
    double First = 0;
    double Second = 0;
    QString Text;

    bool operator==(const TestRecord&) const = default;
};

void PrintTo(const TestRecord& record, std::ostream* out)
{
    *out << record.Used << ' ' << record.Include << ' ' << record.First << ' ' << record.Second << ' '
         << record.Text.toStdString();
}

struct TestTable {
    QString Name;
    QString Description;
    std::vector<TestRecord> Rows = std::vector<TestRecord>(100);

    TestRecord& Use(size_t row, double first, const QString& text = {})
    {
        Rows[row] = { true, 1, first, first + 0.5, text };
        return Rows[row];
    }
};

struct TestFamily : ListFamily<TestTable> { };

/// The calls that every family has, under its prefix.
#define COMMON_CALLS(Prefix)                                                                                           \
    TvFio().Prefix##Clear, TvFio().Prefix##LoadFile, TvFio().Prefix##SaveFile, TvFio().Prefix##GetName,                \
        TvFio().Prefix##SetName, TvFio().Prefix##GetDescription, TvFio().Prefix##SetDescription

/// Every slot is read; slots and items start at 0.
struct SuppressFamily : TestFamily {
    static constexpr StoreSlots kSlots{ 0, 0, 0 };

    static ListCalls Calls()
    {
        return { COMMON_CALLS(SuppressList), TvFio().SuppressListGetMaxNumberOfItems, TvFio().SuppressSetData };
    }
    static void VisitFields(auto& visit, auto& record)
    {
        const TvFioApi& store = TvFio();
        visit.Used(store.SuppressIsInUse, record.Used);
        visit(store.SuppressGetInclude, store.SuppressSetInclude, record.Include);
        visit(store.SuppressGetStartFrequency, store.SuppressSetStartFrequency, record.First);
        visit(store.SuppressGetStopFrequency, store.SuppressSetStopFrequency, record.Second);
        visit(store.SuppressGetDescription, store.SuppressSetDescription, record.Text);
    }
};

/// Only used slots are read; slots start at 1.
struct AntennaFamily : TestFamily {
    static constexpr StoreSlots kSlots{ 1, 1, 1, false };

    static ListCalls Calls()
    {
        return { COMMON_CALLS(AntennaList), TvFio().AntennaListGetMaxNumberOfItems, TvFio().AntennaSetData };
    }
    static void VisitFields(auto& visit, auto& record)
    {
        const TvFioApi& store = TvFio();
        visit.Used(store.AntennaGetUsed, record.Used);
        visit(store.AntennaGetInclude, store.AntennaSetInclude, record.Include);
        visit(store.AntennaGetName, store.AntennaSetName, record.Text);
        visit(store.AntennaGetStartFrequency, store.AntennaSetStartFrequency, record.First);
        visit(store.AntennaGetStopFrequency, store.AntennaSetStopFrequency, record.Second);
    }
};

/// A dense table: its setters take an index.
struct KfactorFamily : TestFamily {
    static constexpr StoreSlots kSlots{ 0, 0, 1, false };

    static ListCalls Calls()
    {
        return { COMMON_CALLS(KfactorTable), TvFio().KfactorTableGetNumberOfKFactors, nullptr, TvFio().KfactorInsert };
    }
    static void VisitFields(auto& visit, auto& record)
    {
        const TvFioApi& store = TvFio();
        visit.Used(record.Used);
        visit(store.KfactorGetFrequency, store.KfactorSetFrequency, record.First);
        visit(store.KfactorGetPassive, store.KfactorSetPassive, record.Second);
    }
};

#undef COMMON_CALLS

/// A call of the store that fails with status 23.
template <typename... Parameters>
void Fail(std::int16_t* status, Parameters...)
{
    *status = 23;
}

std::vector<std::string> calls; // NOLINT: the store's calls are plain functions
std::vector<int> indexes; // NOLINT

class StoreWalk : public ListTest {
protected:
    StoreWalk()
    {
        calls.clear();
        indexes.clear();
        int16_t status = 0;
        TvFio().SuppressListClear(&status);
        TvFio().AntennaListClear(&status);
        TvFio().KfactorTableClear(&status);
        table.Name = QStringLiteral("Van");
        table.Description = QStringLiteral("roof \u00e4");
    }

    template <typename Family>
    void ExpectRoundTrip()
    {
        ASSERT_TRUE(WriteStore<Family>(table));
        TestTable read;
        ASSERT_TRUE(ReadStore<Family>(read));
        EXPECT_EQ(read.Name, table.Name);
        EXPECT_EQ(read.Description, table.Description);
        EXPECT_EQ(read.Rows, table.Rows);
    }

    /// A failure of an item shows 12840 with its number.
    template <typename Family>
    void ExpectWriteFails(const QString& item)
    {
        Answers().Expect(12840, { item }, Ok);
        EXPECT_FALSE(WriteStore<Family>(table));
    }
    template <typename Family>
    void ExpectReadFails(const QString& item)
    {
        Answers().Expect(12840, { item }, Ok);
        EXPECT_FALSE(ReadStore<Family>(table));
    }

    TestTable table;
};

} // namespace

TEST_F(StoreWalk, UsedRowsRoundTripAtTheirIndexes)
{
    table.Use(0, 1e8, QStringLiteral("Tower \u00e4"));
    table.Use(99, 2e8);
    ExpectRoundTrip<SuppressFamily>();
}

TEST_F(StoreWalk, ListWithoutUsedRowsRoundTrips)
{
    ExpectRoundTrip<SuppressFamily>();
    ExpectRoundTrip<AntennaFamily>();
    ExpectRoundTrip<KfactorFamily>();
}

TEST_F(StoreWalk, FieldsAreSetInOrderThenCommitted)
{
    table.Use(7, 1e8);
    TvFio().SuppressListClear = [](int16_t*) { calls.push_back("Clear"); };
    TvFio().SuppressListSetName = [](int16_t*, const char*) { calls.push_back("SetName"); };
    TvFio().SuppressListSetDescription = [](int16_t*, const char*) { calls.push_back("SetDescription"); };
    TvFio().SuppressSetInclude = [](int16_t*, int16_t) { calls.push_back("Include"); };
    TvFio().SuppressSetStartFrequency = [](int16_t*, double) { calls.push_back("Start"); };
    TvFio().SuppressSetStopFrequency = [](int16_t*, double) { calls.push_back("Stop"); };
    TvFio().SuppressSetDescription = [](int16_t*, const char*) { calls.push_back("Description"); };
    TvFio().SuppressSetData = [](int16_t*, int16_t index) { calls.push_back("Commit " + std::to_string(index)); };
    EXPECT_TRUE(WriteStore<SuppressFamily>(table));
    EXPECT_EQ(calls,
        std::vector<std::string>(
            { "Clear", "SetName", "SetDescription", "Include", "Start", "Stop", "Description", "Commit 7" }));
}

TEST_F(StoreWalk, WriteFailureShowsRowNumberOfFamily)
{
    table.Use(4, 1e8);
    TvFio().SuppressSetStopFrequency = Fail;
    TvFio().AntennaSetStopFrequency = Fail;
    TvFio().KfactorSetPassive = Fail;
    ExpectWriteFails<SuppressFamily>("4");
    ExpectWriteFails<AntennaFamily>("5");
    ExpectWriteFails<KfactorFamily>("5");
}

TEST_F(StoreWalk, ReadFailureShowsRowNumberOfFamily)
{
    table.Use(0, 1e8);
    ASSERT_TRUE(WriteStore<AntennaFamily>(table));
    ASSERT_TRUE(WriteStore<KfactorFamily>(table));
    TvFio().SuppressGetStopFrequency = Fail;
    TvFio().AntennaGetStopFrequency = Fail;
    TvFio().KfactorGetPassive = Fail;
    ExpectReadFails<SuppressFamily>("0");
    ExpectReadFails<AntennaFamily>("1");
    ExpectReadFails<KfactorFamily>("0");
}

TEST_F(StoreWalk, NoCallFollowsFailure)
{
    table.Use(4, 1e8);
    table.Use(5, 1e8);
    TvFio().SuppressSetStartFrequency = [](int16_t* status, double) {
        calls.push_back("Start");
        *status = 23;
    };
    TvFio().SuppressSetStopFrequency = [](int16_t*, double) { calls.push_back("Stop"); };
    TvFio().SuppressSetData = [](int16_t*, int16_t) { calls.push_back("Commit"); };
    ExpectWriteFails<SuppressFamily>("4");
    EXPECT_EQ(calls, std::vector<std::string>({ "Start" }));
}

TEST_F(StoreWalk, ListFailureShowsNoNumber)
{
    TvFio().SuppressListSetDescription = [](int16_t* status, const char*) { *status = 10; };
    Answers().Expect(12830, QStringList(), Ok);
    EXPECT_FALSE(WriteStore<SuppressFamily>(table));
    TvFio().SuppressListGetMaxNumberOfItems = [](int16_t* status, int16_t*) { *status = 12; };
    Answers().Expect(12832, QStringList(), Ok);
    EXPECT_FALSE(ReadStore<SuppressFamily>(table));
}

TEST_F(StoreWalk, UnusedSlotsAreReadOrEmptyAsFamilySays)
{
    static int reads = 0;
    reads = 0;
    TvFio().SuppressGetInclude = [](int16_t*, int16_t, int16_t* value) { *value = 9; };
    TvFio().AntennaGetInclude = [](int16_t*, int16_t, int16_t*) { ++reads; };
    for (TestRecord& record : table.Rows)
        record = { true, 3, 4, 5, QStringLiteral("old") };
    ASSERT_TRUE(ReadStore<SuppressFamily>(table));
    EXPECT_EQ(table.Rows[50], (TestRecord{ false, 9, 0, 0, QString() }));
    table.Rows[50].Text = QStringLiteral("old");
    ASSERT_TRUE(ReadStore<AntennaFamily>(table));
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(table.Rows, TestTable().Rows);
}

TEST_F(StoreWalk, SlotIndexesMayStartAtOne)
{
    table.Use(0, 1e8, QStringLiteral("first"));
    table.Use(98, 2e8, QStringLiteral("last"));
    ExpectRoundTrip<AntennaFamily>();
    TvFio().AntennaGetUsed = [](int16_t*, int16_t index, int16_t*) { indexes.push_back(index); };
    ASSERT_TRUE(ReadStore<AntennaFamily>(table));
    ASSERT_EQ(indexes.size(), 99U);
    EXPECT_EQ(indexes.front(), 1);
    EXPECT_EQ(indexes.back(), 99);
    indexes.clear();
    table.Use(0, 1e8);
    TvFio().AntennaSetData = [](int16_t*, int16_t index) { indexes.push_back(index); };
    ASSERT_TRUE(WriteStore<AntennaFamily>(table));
    EXPECT_EQ(indexes, std::vector<int>({ 1 }));
}

TEST_F(StoreWalk, DenseTableClosesGaps)
{
    table.Use(3, 1e8).Include = 0;
    table.Use(50, 2e8).Include = 0;
    ASSERT_TRUE(WriteStore<KfactorFamily>(table));
    TestTable read;
    read.Use(70, 3e8);
    ASSERT_TRUE(ReadStore<KfactorFamily>(read));
    EXPECT_EQ(read.Rows[0], table.Rows[3]);
    EXPECT_EQ(read.Rows[1], table.Rows[50]);
    for (size_t row = 2; row < read.Rows.size(); ++row)
        EXPECT_EQ(read.Rows[row], TestRecord()) << row;
}

TEST_F(StoreWalk, SmallTableIsFilledFromLargerStore)
{
    table.Use(0, 1e8);
    table.Use(99, 2e8);
    ASSERT_TRUE(WriteStore<SuppressFamily>(table));
    TestTable small;
    small.Rows.resize(10);
    ASSERT_TRUE(ReadStore<SuppressFamily>(small));
    EXPECT_EQ(small.Rows[0].First, 1e8);
    EXPECT_EQ(small.Rows.size(), 10U);
}

TEST_F(StoreWalk, ClearingReadsDefaultsOfStore)
{
    table.Use(0, 1e8);
    ASSERT_TRUE(WriteStore<SuppressFamily>(table));
    ASSERT_TRUE(ClearStore<SuppressFamily>(table));
    EXPECT_TRUE(table.Name.isEmpty());
    EXPECT_EQ(table.Rows, TestTable().Rows);
}

TEST_F(StoreWalk, ListRoundTripsThroughFile)
{
    table.Use(5, 1e8, QStringLiteral("x"));
    ASSERT_TRUE(WriteStore<SuppressFamily>(table));
    ASSERT_TRUE(SaveStore<SuppressFamily>(FilePath("Van.tvs")));
    TestTable read;
    ASSERT_TRUE(LoadStore<SuppressFamily>(FilePath("Van.tvs"), read));
    EXPECT_EQ(read.Name, "Van");
    EXPECT_EQ(read.Rows, table.Rows);
    Answers().Expect(12827, Ok);
    EXPECT_FALSE(LoadStore<AntennaFamily>(FilePath("Van.tvs"), read));
}

TEST_F(StoreWalk, SortingReadsRowsBack)
{
    table.Use(5, 3e8);
    table.Use(9, 1e8);
    ASSERT_TRUE(SortStore<SuppressFamily>(table, TvFio().SuppressListSort));
    EXPECT_EQ(table.Rows[0].First, 1e8);
    EXPECT_EQ(table.Rows[1].First, 3e8);
    EXPECT_EQ(table.Name, "Van");
}

TEST_F(StoreWalk, FailedSortKeepsRowsAndShowsNoNumber)
{
    table.Use(5, 3e8);
    const std::vector<TestRecord> before = table.Rows;
    TvFio().SuppressListSort = [](int16_t* status) { *status = 16; };
    Answers().Expect(12838, QStringList(), Ok);
    EXPECT_FALSE(SortStore<SuppressFamily>(table, TvFio().SuppressListSort));
    EXPECT_EQ(table.Rows, before);
}

} // namespace tarvik
