#include "tests/lists/kfactor/kfactor_fixture.h"

#include "closed/loader.h"
#include "lists/kfactor/kfactorCells.h"
#include "lists/kfactor/kfactorDiagram.h"
#include "lists/values/limits.h"

#include <QFile>

namespace tarvik {

namespace {

class Kfactor : public KfactorTest<ListTest> {
protected:
    /// Reads a CSV file of these data lines, whose errors are reported and end the reading.
    KfactorTable ReadLines(const QByteArrayList& lines)
    {
        KfactorTable table;
        EXPECT_TRUE(LoadKfactorFile(StoredCsv(lines), table));
        Answers().Verify();
        return table;
    }

    QString StoredCsv(const QByteArrayList& lines)
    {
        QByteArrayList all{ "K-Factor Table,Mast", "Description,north" };
        all += lines;
        Store(FilePath("Mast.csv"), JoinLines(all));
        return FilePath("Mast.csv");
    }
};

} // namespace

TEST_F(Kfactor, CsvReadsEntriesInOrderOfNumber)
{
    const KfactorTable table = ReadLines({ "1, 30000000, 1.5,-2.25", "2,85000000,3,4" });
    EXPECT_EQ(table.Name, "Mast");
    EXPECT_EQ(table.Description, "north");
    EXPECT_EQ(table.Count, 2);
    EXPECT_EQ(table.Row(0), Entry(30e6, 1.5, -2.25));
    EXPECT_EQ(table.Row(1), Entry(85e6, 3, 4));
    EXPECT_EQ(table.Row(2), KfactorEntry());
}

TEST_F(Kfactor, ExtensionTextOfTablesDecidesTheFormat)
{
    SeparateCsvExtensions();
    const KfactorTable table = Table({ Entry(30e6, 1, 2), Entry(40e6, 3, 4) });
    for (const auto& [name, isCsv] : { std::pair("Mast.txt", true), std::pair("Mast.csv", false) }) {
        ASSERT_TRUE(WriteKfactorFile(FilePath(name), table));
        EXPECT_EQ(Contents(FilePath(name)).startsWith("K-Factor Table,Mast\r\n"), isCsv) << name;
        KfactorTable read;
        ASSERT_TRUE(LoadKfactorFile(FilePath(name), read)) << name;
        EXPECT_EQ(read.Rows, table.Rows) << name;
    }
}

TEST_F(Kfactor, CsvTakesTheWholePartOfANumber)
{
    EXPECT_EQ(ReadLines({ "1.9,30000000,1,1", "2.0,40000000,1,1" }).Count, 2);
}

TEST_F(Kfactor, CsvEndsAtNumberOutOfOrderAndKeepsEarlierEntries)
{
    Answers().Expect(12782, { QStringLiteral("3") }, Ok);
    const KfactorTable table = ReadLines({ "1,30000000,1,1", "2,40000000,1,1", "4,50000000,1,1", "5,60000000,1,1" });
    EXPECT_EQ(table.Count, 2);
    EXPECT_EQ(table.Row(2), KfactorEntry());
}

TEST_F(Kfactor, CsvLineHasExactlyFourFields)
{
    Answers().Expect(12782, { QStringLiteral("1") }, Ok);
    EXPECT_EQ(ReadLines({ "1,30000000,1" }).Count, 0);
    Answers().Expect(12782, { QStringLiteral("2") }, Ok);
    EXPECT_EQ(ReadLines({ "1,30000000,1,1", "2,30000000,1,1,1" }).Count, 1);
    Answers().Expect(12782, { QStringLiteral("1") }, Ok);
    EXPECT_EQ(ReadLines({ "x,30000000,1,1" }).Count, 0);
}

TEST_F(Kfactor, CsvReportsBadFieldWithItsNumberAndLine)
{
    const QList<std::pair<int, QByteArray>> bad{ { 12792, "2,x,1,1" }, { 12793, "2,40000000,,1" },
        { 12794, "2,40000000,1,x" } };
    for (const auto& [message, line] : bad) {
        Answers().Expect(message, { QStringLiteral("2") }, Ok);
        const KfactorTable table = ReadLines({ "1,30000000,1,1", line });
        EXPECT_EQ(table.Count, 1) << message;
        EXPECT_EQ(table.Row(1), KfactorEntry()) << message;
    }
}

TEST_F(Kfactor, CsvClampsValuesToLimits)
{
    const KfactorTable table = ReadLines({ "1,1,999,-999", "2,9e9,0,0" });
    EXPECT_EQ(table.Row(0), Entry(8000, 200, -99.99));
    EXPECT_EQ(table.Row(1).Frequency, 8e9);
}

TEST_F(Kfactor, CsvReportsLinesBeyondTheTable)
{
    QByteArrayList lines;
    for (int number = 1; number <= kKfactorRows; ++number)
        lines.append(QByteArray::number(number) + ',' + QByteArray::number(1000000 + number) + ",1,1");
    EXPECT_EQ(ReadLines(lines).Count, 1000);
    EXPECT_EQ(ReadLines(lines + QByteArrayList{ "no second field" }).Count, 1000);
    Answers().Expect(12781, { QStringLiteral("Mast.csv"), QStringLiteral("1") }, Ok);
    EXPECT_EQ(ReadLines(lines + QByteArrayList{ "1001,9000000,1,1", "1002,9000001,1,1" }).Count, 1000);
}

TEST_F(Kfactor, CsvHeaderFailureLeavesEmptyTable)
{
    KfactorTable table = Table({ Entry(30e6, 1, 1) });
    Store(FilePath("x.csv"), "Memory List,Mast\r\nDescription,\r\n1,30000000,1,1\r\n");
    Answers().Expect(12777, QStringList(), Ok);
    EXPECT_FALSE(LoadKfactorFile(FilePath("x.csv"), table));
    EXPECT_EQ(table.Rows, KfactorTable().Rows);
    EXPECT_EQ(table.Name, "");
}

TEST_F(Kfactor, CsvKeepsRowNumbersSoGapsAreRefusedOnReading)
{
    KfactorTable table;
    table.Name = "Mast";
    table.Row(0) = Entry(30e6, 1.25, 2);
    table.Row(4) = Entry(40e6, -3, 4.5);
    ASSERT_TRUE(WriteKfactorFile(FilePath("Mast.csv"), table));
    EXPECT_EQ(Contents(FilePath("Mast.csv")),
        "K-Factor Table,Mast\r\nDescription,\r\n1, 30000000, 1.25, 2\r\n5, 40000000,-3, 4.5\r\n");
    Answers().Expect(12782, { QStringLiteral("2") }, Ok);
    KfactorTable read;
    ASSERT_TRUE(LoadKfactorFile(FilePath("Mast.csv"), read));
    EXPECT_EQ(read.Count, 1);
}

TEST_F(Kfactor, BinaryFileHasUsedRowsWithoutGaps)
{
    KfactorTable table;
    table.Name = "Mast";
    table.Description = "north";
    table.Row(3) = Entry(40e6, 1, 2);
    table.Row(9) = Entry(30e6, 3, 4);
    ASSERT_TRUE(WriteKfactorFile(FilePath("Mast.tvk"), table));
    KfactorTable read = Table({ Entry(1e6, 9, 9), Entry(2e6, 9, 9), Entry(3e6, 9, 9) });
    ASSERT_TRUE(LoadKfactorFile(FilePath("Mast.tvk"), read));
    EXPECT_EQ(read.Name, "Mast");
    EXPECT_EQ(read.Description, "north");
    EXPECT_EQ(read.Count, 2);
    EXPECT_EQ(read.Row(0), Entry(40e6, 1, 2));
    EXPECT_EQ(read.Row(1), Entry(30e6, 3, 4));
    EXPECT_EQ(read.Row(2), KfactorEntry());
}

TEST_F(Kfactor, MissingFileIsReported)
{
    for (const QString name : { "gone.csv", "gone.tvk" }) {
        KfactorTable table = Table({ Entry(30e6, 1, 1) });
        Answers().Expect(12780, { name, QStringLiteral("1") }, Ok);
        EXPECT_FALSE(LoadKfactorFile(FilePath(name), table));
        EXPECT_EQ(table.Count, 0);
    }
}

TEST_F(Kfactor, WritingAsksBeforeReplacing)
{
    const KfactorTable table = Table({ Entry(30e6, 1, 1), Entry(40e6, 1, 1) });
    for (const QString name : { "Mast.csv", "Mast.tvk" }) {
        Store(FilePath(name), "before");
        Answers().Expect(12734, { name }, No);
        EXPECT_FALSE(WriteKfactorFile(FilePath(name), table));
        EXPECT_EQ(Contents(FilePath(name)), "before");
    }
}

TEST_F(Kfactor, KeptFileLeavesTheStoreAlone)
{
    ASSERT_TRUE(WriteKFactorDll(Table({ Entry(30e6, 1, 1) })));
    Store(FilePath("Mast.tvk"), "before");
    Answers().Expect(12734, No);
    EXPECT_FALSE(WriteKFactorMRFile(FilePath("Mast.tvk"), Table({ Entry(qQNaN(), 1, 1) })));
    KfactorTable held;
    ASSERT_TRUE(ReadKfactorFromStore(held));
    EXPECT_EQ(held.Row(0), Entry(30e6, 1, 1));
}

TEST_F(Kfactor, StoreFailureOnReadingHasTheIndex)
{
    ASSERT_TRUE(WriteKFactorDll(Table({ Entry(30e6, 1, 1), Entry(40e6, 1, 1), Entry(50e6, 1, 1) })));
    TvFio().KfactorGetActive = [](std::int16_t* status, std::int16_t index, double* value) {
        *status = index == 1 ? 75 : 0;
        *value = 9;
    };
    Answers().Expect(12889, { QStringLiteral("1") }, Ok);
    KfactorTable table;
    EXPECT_FALSE(ReadKfactorFromStore(table));
    EXPECT_EQ(table.Row(0), Entry(30e6, 1, 9));
    EXPECT_FALSE(table.Row(2).Used);
}

TEST_F(Kfactor, StoreFailureOnWritingNamesTheRow)
{
    KfactorTable table = Table({ Entry(30e6, 1, 1) });
    table.Row(6) = Entry(qQNaN(), 1, 1);
    Answers().Expect(12891, { QStringLiteral("7") }, Ok);
    EXPECT_FALSE(WriteKFactorDll(table));
}

TEST_F(Kfactor, SortOrdersByFrequencyAndClosesGaps)
{
    KfactorTable table;
    table.Name = "Mast";
    table.Row(2) = Entry(85e6, 1, 2);
    table.Row(7) = Entry(30e6, 3, 4);
    table.Row(8) = KfactorEntry{ false, 77e6, 5, 6 };
    ASSERT_TRUE(SortKfactorRows(table));
    EXPECT_EQ(table.Count, 2);
    EXPECT_EQ(table.Name, "Mast");
    EXPECT_EQ(table.Row(0), Entry(30e6, 3, 4));
    EXPECT_EQ(table.Row(1), Entry(85e6, 1, 2));
    EXPECT_EQ(table.Row(8), KfactorEntry());
}

TEST_F(Kfactor, FailedSortLeavesTableUnchanged)
{
    KfactorTable table = Table({ Entry(85e6, 1, 1), Entry(qQNaN(), 1, 1) });
    table.Count = 2;
    Answers().Expect(12891, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(SortKfactorRows(table));
    EXPECT_EQ(table.Row(0), Entry(85e6, 1, 1));
    EXPECT_EQ(table.Count, 2);
    TvFio().KfactorTableSort = [](std::int16_t* status) { *status = 75; };
    table.Row(1) = Entry(30e6, 1, 1);
    Answers().Expect(12889, QStringList(), Ok); // no row is to blame
    EXPECT_FALSE(SortKfactorRows(table));
    EXPECT_EQ(table.Row(1), Entry(30e6, 1, 1));
}

TEST_F(Kfactor, FirstAndLastFrequencyAreThoseOfTheLastRead)
{
    KfactorTable table = ReadLines({ "1,30000000,1,1", "2,20000000,1,1", "3,85000000,1,1" });
    double first = 0;
    double last = 0;
    EXPECT_TRUE(FirstKfactorFrequency(table, first));
    EXPECT_TRUE(LastKfactorFrequency(table, last));
    EXPECT_EQ(first, 30e6);
    EXPECT_EQ(last, 85e6);
    EXPECT_FALSE(FirstKfactorFrequency(KfactorTable(), first));
    EXPECT_FALSE(LastKfactorFrequency(KfactorTable(), last));
    EXPECT_EQ(first, 30e6);
    EXPECT_EQ(last, 85e6);
}

TEST_F(Kfactor, DuplicateCountsEarlierRowsThatAreNotUsed)
{
    KfactorTable table = Table({ Entry(30e6, 1, 1), Entry(40e6, 1, 1), Entry(50e6, 1, 1) });
    EXPECT_EQ(DuplicateKfactorRow(table), -1);
    table.Row(1).Used = false;
    table.Row(2).Frequency = 40e6;
    EXPECT_EQ(DuplicateKfactorRow(table), 2);
    table.Row(2).Frequency = 50e6;
    table.Row(0).Frequency = 40e6; // an unused row further down does not count
    EXPECT_EQ(DuplicateKfactorRow(table), -1);
    table.Row(7) = Entry(0, 1, 1); // that of an empty row above it
    EXPECT_EQ(DuplicateKfactorRow(table), 7);
}

TEST_F(Kfactor, UnchangedCellKeepsDigitsThatItDoesNotShow)
{
    KfactorEntry entry = Entry(30000000.25, 1.2345, 2);
    QString text = KfactorCellText(entry, kKfactorColumnFrequency);
    EXPECT_EQ(text, "30.000000");
    EXPECT_TRUE(CheckKfactorCell(entry, kKfactorColumnFrequency, text));
    EXPECT_EQ(entry.Frequency, 30000000.25);
    text = KfactorCellText(entry, kKfactorColumnPassive);
    EXPECT_TRUE(CheckKfactorCell(entry, kKfactorColumnPassive, text));
    EXPECT_EQ(entry.Passive, 1.2345);
    text = "1,5";
    EXPECT_TRUE(CheckKfactorCell(entry, kKfactorColumnActive, text));
    EXPECT_EQ(entry.Active, 1.5);
    EXPECT_EQ(text, "1.50");
}

TEST_F(Kfactor, DiagramHasBothFactorsOverFrequency)
{
    KfactorTable table = Table({ Entry(30e6, 1, 2), Entry(40e6, 3, 4), Entry(50e6, 9, 9) });
    table.Count = 2;
    const MultiTraceInput diagram = KfactorDiagram(table, "title");
    EXPECT_EQ(diagram.Name, "title");
    EXPECT_EQ(diagram.PointCount, 2);
    EXPECT_EQ(diagram.SeriesCount, 2);
    EXPECT_EQ(diagram.SeriesNames[0], "Passive (dB/m)");
    EXPECT_EQ(diagram.SeriesNames[1], "Active (dB/m)");
    EXPECT_EQ(static_cast<int>(diagram.XUnit), 10);
    EXPECT_EQ(static_cast<int>(diagram.YUnit), 25);
    EXPECT_EQ(diagram.Points[1].X, 40e6);
    EXPECT_EQ(diagram.Points[1].Y[0], 3);
    EXPECT_EQ(diagram.Points[1].Y[1], 4);
    EXPECT_EQ(diagram.Points[2].X, 0);
}

} // namespace tarvik
