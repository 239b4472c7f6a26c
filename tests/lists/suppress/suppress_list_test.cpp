#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "lists/suppress/suppressList.h"

#include <QFile>

namespace tarvik {

namespace {

class Suppress : public ListTest {
protected:
    Suppress()
    {
        SetEditorType(FileClassSuppressList);
    }

    static SuppressRow Range(std::int16_t include, double startHz, double stopHz, const QString& description = {})
    {
        return { true, include, startHz, stopHz, description };
    }

    /// A list "Bands" of these rows, from the first on.
    static SuppressTable List(const QList<SuppressRow>& rows)
    {
        SuppressTable table;
        table.Name = QStringLiteral("Bands");
        table.Description = QStringLiteral("broadcast");
        std::copy(rows.begin(), rows.end(), table.Rows.begin());
        return table;
    }

    /// Reads a CSV file of these data lines, whose errors are reported and end the reading.
    SuppressTable ReadLines(const QByteArrayList& lines)
    {
        Store(FilePath("Bands.csv"), JoinLines(QByteArrayList{ "Suppress List,Bands", "Description,fm" } + lines));
        SuppressTable table;
        EXPECT_TRUE(ReadSuppressFile(FilePath("Bands.csv"), table));
        Answers().Verify();
        return table;
    }

    void ExpectReported(int message, const QByteArray& line)
    {
        Answers().Expect(message, { QStringLiteral("2") }, Ok);
        const SuppressTable table = ReadLines({ "0,Include,88000000,108000000,fm", line, "9,Include,1e6,2e6," });
        EXPECT_EQ(table.Row(0), Range(kInclude, 88e6, 108e6, "fm")) << message;
        EXPECT_FALSE(table.Row(9).Used) << message;
    }
};

} // namespace

TEST_F(Suppress, IncludeWordsHaveTheirCodes)
{
    EXPECT_EQ(IncludeToStr(0), "Exclude");
    EXPECT_EQ(IncludeToStr(1), "Include");
    EXPECT_EQ(IncludeToStr(255), "");
    EXPECT_EQ(IncludeStrToStatus("Exclude"), 0);
    EXPECT_EQ(IncludeStrToStatus("Include"), 1);
    EXPECT_EQ(IncludeStrToStatus("include"), 255);
    EXPECT_EQ(IncludeStrToStatus(""), 255);
}

TEST_F(Suppress, CsvRowsKeepTheirPlaces)
{
    const SuppressTable table = List({ Range(kInclude, 88e6, 108e6, "fm") });
    SuppressTable written = table;
    written.Row(5) = Range(kExclude, 470e6, 694e6);
    ASSERT_TRUE(WriteSuppressFile(FilePath("Bands.csv"), written));
    EXPECT_EQ(Contents(FilePath("Bands.csv")),
        "Suppress List,Bands\r\nDescription,broadcast\r\n0,Include, 88000000, 108000000,fm\r\n"
        "5,Exclude, 470000000, 694000000,\r\n");
    SuppressTable read;
    ASSERT_TRUE(ReadSuppressFile(FilePath("Bands.csv"), read));
    EXPECT_EQ(read, written);
}

TEST_F(Suppress, BinaryRowsKeepTheirPlaces)
{
    SuppressTable written = List({ Range(kInclude, 88e6, 108e6, "fm") });
    written.Row(99) = Range(kExclude, 694e6, 470e6, "reversed");
    ASSERT_TRUE(WriteSuppressFile(FilePath("Bands.tvs"), written));
    SuppressTable read = List({ Range(kInclude, 1e6, 2e6), Range(kInclude, 3e6, 4e6) });
    ASSERT_TRUE(ReadSuppressFile(FilePath("Bands.tvs"), read));
    EXPECT_EQ(read, written);
}

TEST_F(Suppress, CsvReportsBadLineAndKeepsEarlierRows)
{
    ExpectReported(12782, "1,Include,1000000,2000000");
    ExpectReported(12782, "x,Include,1000000,2000000,");
    ExpectReported(12783, "100,Include,1000000,2000000,");
    ExpectReported(12783, "-1,Include,1000000,2000000,");
    ExpectReported(12784, "1,Include,x,2000000,");
    ExpectReported(12785, "1,Include,1000000,,");
    ExpectReported(12804, "1,Include,1000000,2000000,it's");
    ExpectReported(12813, "1,Include,2000000,1000000,");
}

TEST_F(Suppress, CsvLineMayHaveMoreFields)
{
    EXPECT_EQ(ReadLines({ "3,Exclude,1000000,2000000,tv,more" }).Row(3), Range(kExclude, 1e6, 2e6, "tv"));
}

TEST_F(Suppress, UnknownSettingIsReadWithoutMessage)
{
    const SuppressTable table = ReadLines({ "0,perhaps,1000000,2000000,", "1,Include,3000000,4000000," });
    EXPECT_EQ(table.Row(0).Include, 255);
    EXPECT_TRUE(table.Row(1).Used);
}

TEST_F(Suppress, CsvClampsFrequencies)
{
    EXPECT_EQ(ReadLines({ "0,Include,1,9e9," }).Row(0), Range(kInclude, 8000, 8e9));
}

TEST_F(Suppress, CsvRepeatedRowReplacesTheEarlierOne)
{
    EXPECT_EQ(ReadLines({ "4,Include,1000000,2000000,a", "4,Exclude,3000000,4000000,b" }).Row(4),
        Range(kExclude, 3e6, 4e6, "b"));
}

TEST_F(Suppress, MissingFileIsReported)
{
    for (const QString name : { "gone.csv", "gone.tvs" }) {
        SuppressTable table = List({ Range(kInclude, 1e6, 2e6) });
        Answers().Expect(12780, { name, QStringLiteral("1") }, Ok);
        EXPECT_FALSE(ReadSuppressFile(FilePath(name), table));
        EXPECT_EQ(table, SuppressTable());
    }
}

TEST_F(Suppress, RowThatTheStoreRefusesIsReportedWithTheFile)
{
    SuppressTable table = List({ Range(kInclude, 1e6, 2e6), Range(kInclude, qQNaN(), 2e6) });
    const SuppressTable before = table;
    for (const QString name : { "Bands.csv", "Bands.tvs" }) {
        Answers().Expect(12883, { QStringLiteral("1") }, Ok);
        Answers().Expect(12726, { FilePath(name) }, Ok);
        EXPECT_FALSE(WriteSuppressFile(FilePath(name), table));
        EXPECT_FALSE(QFile::exists(FilePath(name)));
    }
    EXPECT_EQ(table.Row(0), before.Row(0));
}

TEST_F(Suppress, WritingAsksBeforeReplacing)
{
    SuppressTable table = List({ Range(kInclude, 1e6, 2e6) });
    for (const QString name : { "Bands.csv", "Bands.tvs" }) {
        Store(FilePath(name), "before");
        Answers().Expect(12734, { name }, No);
        EXPECT_FALSE(WriteSuppressFile(FilePath(name), table));
        EXPECT_EQ(Contents(FilePath(name)), "before");
    }
}

TEST_F(Suppress, DescriptionThatCsvCannotHoldIsRefused)
{
    SuppressTable table = List({ Range(kInclude, 1e6, 2e6) });
    table.Row(5) = Range(kInclude, 1e6, 2e6, "a;b");
    Answers().Expect(12804, { QStringLiteral("2") }, Ok); // data line
    EXPECT_FALSE(WriteSuppressFile(FilePath("Bands.csv"), table));
    EXPECT_FALSE(QFile::exists(FilePath("Bands.csv")));
}

TEST_F(Suppress, SortIsByStartStopAndIncludedFirst)
{
    SuppressTable table = List({ Range(kExclude, 5e6, 6e6, "c"), Range(kInclude, 5e6, 6e6, "b"),
        Range(kExclude, 5e6, 5.5e6, "a"), Range(kInclude, 1e6, 9e6, "first"), Range(kInclude, 5e6, 6e6, "b2") });
    table.Row(50) = Range(kInclude, 2e6, 3e6, "gap");
    ASSERT_TRUE(SortSuppressRows(table));
    QStringList order;
    for (int row = 0; row < 6; ++row)
        order.append(table.Row(row).Description);
    EXPECT_EQ(order, (QStringList{ "first", "gap", "a", "b", "b2", "c" }));
    EXPECT_FALSE(table.Row(50).Used);
    EXPECT_EQ(table.Name, "Bands");
    EXPECT_EQ(table.Description, "broadcast");
}

TEST_F(Suppress, MergeJoinsRangesOfOneSetting)
{
    SuppressTable table = List({ Range(kInclude, 3e6, 5e6, "second"), Range(kInclude, 1e6, 3e6),
        Range(kExclude, 2e6, 4e6, "other"), Range(kInclude, 6e6, 7e6, "apart") });
    ASSERT_TRUE(SortAndMergeSuppressRows(table));
    EXPECT_EQ(table.Row(0), Range(kInclude, 1e6, 5e6, "second"));
    EXPECT_EQ(table.Row(1), Range(kExclude, 2e6, 4e6, "other"));
    EXPECT_EQ(table.Row(2), Range(kInclude, 6e6, 7e6, "apart"));
    EXPECT_FALSE(table.Row(3).Used);
    EXPECT_EQ(table.Name, "Bands");
}

TEST_F(Suppress, EmptyListStaysEmptyWhenSortedOrMerged)
{
    SuppressTable table = List({});
    EXPECT_TRUE(SortSuppressRows(table));
    EXPECT_TRUE(SortAndMergeSuppressRows(table));
    EXPECT_EQ(table, List({}));
}

TEST_F(Suppress, CsvBadLineKeepsTheFieldsReadBefore)
{
    Answers().Expect(12785, { QStringLiteral("1") }, Ok);
    EXPECT_EQ(ReadLines({ "1,Include,1000000,?,fm" }).Row(1), Range(kInclude, 1e6, 0));
    Answers().Expect(12813, { QStringLiteral("1") }, Ok);
    EXPECT_EQ(ReadLines({ "1,Exclude,2000000,1000000,fm" }).Row(1), Range(kExclude, 2e6, 1e6, "fm"));
    Answers().Expect(12804, { QStringLiteral("1") }, Ok);
    EXPECT_TRUE(ReadLines({ "1,Exclude,2000000,1000000,it's" }).Row(1).Used) << "before the range is checked";
}

TEST_F(Suppress, CsvRowNumberIsCutToAnInteger)
{
    const SuppressTable table =
        ReadLines({ "99.9,Include,1000000,2000000,last", "-0.5,Include,1000000,2000000,first" });
    EXPECT_EQ(table.Row(99).Description, "last");
    EXPECT_EQ(table.Row(0).Description, "first");
}

TEST_F(Suppress, CsvRangeOfOneFrequencyIsRead)
{
    EXPECT_EQ(ReadLines({ "0,Include,1000000,1000000," }).Row(0), Range(kInclude, 1e6, 1e6));
}

TEST_F(Suppress, UnknownSettingIsKeptInBothForms)
{
    for (const QString name : { "Bands.csv", "Bands.tvs" }) {
        SuppressTable table = List({ Range(kUnknownInclude, 1e6, 2e6, "maybe") });
        ASSERT_TRUE(WriteSuppressFile(FilePath(name), table));
        ASSERT_TRUE(ReadSuppressFile(FilePath(name), table));
        EXPECT_EQ(table.Row(0), Range(255, 1e6, 2e6, "maybe"));
    }
}

TEST_F(Suppress, RowThatTheStoreDoesNotReturnIsReportedWithTheFile)
{
    TvFio().SuppressGetInclude = [](int16_t* status, int16_t index, int16_t*) { *status = index == 3 ? 23 : 0; };
    SuppressTable table = List({ Range(kInclude, 1e6, 2e6) });
    const SuppressTable before = table;
    for (const QString name : { "Bands.csv", "Bands.tvs" }) {
        Answers().Expect(12840, { QStringLiteral("3") }, Ok);
        Answers().Expect(12726, { FilePath(name) }, Ok);
        EXPECT_FALSE(WriteSuppressFile(FilePath(name), table));
        EXPECT_FALSE(QFile::exists(FilePath(name)));
    }
    EXPECT_EQ(table, before);
}

TEST_F(Suppress, BinaryReadFailureEmptiesTheTable)
{
    Store(FilePath("Bands.tvs"), "damaged");
    SuppressTable table = List({ Range(kInclude, 1e6, 2e6) });
    Answers().Expect(12827, Ok);
    EXPECT_FALSE(ReadSuppressFile(FilePath("Bands.tvs"), table));
    EXPECT_EQ(table, SuppressTable());
}

TEST_F(Suppress, FieldsGoToTheStoreInTheirOrder)
{
    static QStringList calls;
    calls.clear();
    TvFioApi& store = TvFio();
    store.SuppressSetInclude = [](int16_t*, int16_t) { calls.append("include"); };
    store.SuppressSetStartFrequency = [](int16_t*, double) { calls.append("start"); };
    store.SuppressSetStopFrequency = [](int16_t*, double) { calls.append("stop"); };
    store.SuppressSetDescription = [](int16_t*, const char*) { calls.append("description"); };
    store.SuppressSetData = [](int16_t*, int16_t index) { calls.append(QString::number(index)); };
    SuppressTable table;
    table.Row(7).Used = true;
    EXPECT_TRUE(WriteSuppressListDll(table));
    EXPECT_EQ(calls, (QStringList{ "include", "start", "stop", "description", "7" }));
}

TEST_F(Suppress, RowsReadBeforeAStoreFailureAreNotKept)
{
    SuppressTable table = List({ Range(kInclude, 1e6, 2e6) });
    ASSERT_TRUE(WriteSuppressFile(FilePath("Bands.tvs"), table));
    TvFio().SuppressGetStopFrequency = [](int16_t* status, int16_t index, double*) { *status = index == 3 ? 23 : 0; };
    Answers().Expect(12840, { QStringLiteral("3") }, Ok);
    EXPECT_FALSE(ReadSuppressFile(FilePath("Bands.tvs"), table));
    EXPECT_EQ(table, SuppressTable());
}

TEST_F(Suppress, CsvFormIsDecidedByTheExtensionTextOfTables)
{
    static auto real = TvLng().LngGetStr;
    TvLng().LngGetStr = [](int32_t id, const char* fallback, char* out, int32_t size) {
        return real(id == 11003 ? 10770 : id, fallback, out, size); // another language: CSV files end in .tvc
    };
    SuppressTable table = List({ Range(kInclude, 1e6, 2e6) });
    ASSERT_TRUE(WriteSuppressFile(FilePath("Bands.tvc"), table));
    EXPECT_TRUE(Contents(FilePath("Bands.tvc")).startsWith("Suppress List,"));
    ASSERT_TRUE(ReadSuppressFile(FilePath("Bands.tvc"), table));
    EXPECT_EQ(table.Row(0), Range(kInclude, 1e6, 2e6));
    ASSERT_TRUE(WriteSuppressFile(FilePath("Bands.csv"), table));
    EXPECT_FALSE(Contents(FilePath("Bands.csv")).startsWith("Suppress List,"));
}

} // namespace tarvik
