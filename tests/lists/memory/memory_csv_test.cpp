#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"

#include <QFile>

namespace tarvik {

namespace {

constexpr int kFirstRow = kHeaderLines;

class MemoryCsv : public ListTest {
protected:
    MemoryCsv()
        : lines(MemoryCsvLines())
    {
    }

    QString Written()
    {
        QString path = FilePath("list.csv");
        Store(path, JoinLines(lines));
        return path;
    }

    void SetField(int row, int column, const QByteArray& field)
    {
        lines[kFirstRow + row] = WithField(lines[kFirstRow + row], column, field);
    }

    /// Reads the lines, which must succeed.
    MemoryTable Read()
    {
        MemoryTable table;
        EXPECT_TRUE(OpenMemoryList(Written(), table));
        return table;
    }

    /// Reads the lines, which must show `messageId` with `args` and leave an empty list.
    void ExpectRefused(int messageId, const QStringList& args)
    {
        MemoryTable table = EmptyMemoryTable();
        UseRow(table, 17, 1e8, "before");
        Answers().Expect(messageId, args, Ok);
        EXPECT_FALSE(OpenMemoryList(Written(), table)) << messageId;
        Answers().Verify();
        EXPECT_EQ(table, EmptyMemoryTable());
    }

    /// A bad field in row 4 must show `messageId` with the line number.
    void ExpectBadField(int column, const QByteArray& field, int messageId)
    {
        const QByteArrayList before = lines;
        SetField(4, column, field);
        ExpectRefused(messageId, { QStringLiteral("5") });
        lines = before;
    }

    QByteArrayList lines;
};

} // namespace

TEST_F(MemoryCsv, FileHasTwoHeaderLinesAnd1024Rows)
{
    ASSERT_EQ(lines.size(), 1026);
    EXPECT_EQ(lines[0], "Memory List,Test");
    EXPECT_EQ(lines[1], "Description,A list");
    EXPECT_EQ(lines[2].split(',').size(), 19);
}

TEST_F(MemoryCsv, LineHasNineteenFields)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Test";
    MemoryRecord& record = UseRow(table, 3, 145500000, QStringLiteral("Tower \u00e4"));
    record.Number = 99;
    table.Row(99).Number = 3;
    record.Demodulation = 1;
    record.Bandwidth = 7;
    record.SquelchLevel = -12.5;
    record.SquelchStatus = 1;
    record.AntennaNumber = 9;
    record.AttenuatorStatus = 1;
    record.AfcStatus = 1;
    record.Status = 1;
    record.DfSquelchStatus = 2;
    record.DfSquelchLevel = 3;
    record.DfMeasurementTime = 0.25;
    record.FrequencySpan = 12;
    record.DfStep = 33;
    record.DfBandwidth = 32;
    EXPECT_EQ(MemoryCsvLines(table)[kFirstRow + 3],
        "Used,3,99,Suppressed, 145500000,AM,12 kHz,-12.5,On,9,On,On,Tower \xE4,Gate, 3, 0.25,80 MHz,500 kHz,500 kHz");
}

TEST_F(MemoryCsv, ListRoundTrips)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van 7";
    table.MemoryListDescription = QStringLiteral("roof \u20ac");
    MemoryRecord& record = UseRow(table, 0, 123456789.123, QStringLiteral("\u00c4"));
    record.SquelchLevel = 0.1;
    record.DfMeasurementTime = 0.015;
    UseRow(table, 1023, 8e9);
    const QString path = FilePath("list.csv");
    ASSERT_TRUE(WriteMemoryList(path, table));
    MemoryTable read;
    ASSERT_TRUE(OpenMemoryList(path, read));
    EXPECT_EQ(read, table);
}

TEST_F(MemoryCsv, DeletedRowIsWrittenAsUnused)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    UseRow(table, 2, 1e8, "gone");
    table.Row(2).Used = false;
    const QString path = FilePath("list.csv");
    ASSERT_TRUE(WriteMemoryList(path, table));
    const QByteArrayList written = MemoryCsvLines(table);
    EXPECT_EQ(written.size(), 1026);
    EXPECT_TRUE(written[kFirstRow + 2].startsWith("Free,2,2,"));
}

TEST_F(MemoryCsv, ListWithRowDeletedInDialogCanBeReadBack)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    UseRow(table, 0, 1e8);
    table.Row(7) = MemoryRecord();
    const QString path = FilePath("list.csv");
    ASSERT_TRUE(WriteMemoryList(path, table));
    MemoryTable read;
    EXPECT_TRUE(OpenMemoryList(path, read));
}

TEST_F(MemoryCsv, SemicolonsAndDecimalCommasAreRead)
{
    const MemoryTable expected = Read();
    for (QByteArray& line : lines)
        line.replace(',', ';').replace('.', ',');
    for (int row = 0; row < kMemoryRows; ++row) { // the texts keep their points
        lines[kFirstRow + row].replace("12,5 kHz", "12.5 kHz").replace("1,5 kHz", "1.5 kHz");
    }
    EXPECT_EQ(Read(), expected);
}

TEST_F(MemoryCsv, EveryFieldIsRead)
{
    lines[kFirstRow + 4] =
        "Used,4,4,Suppressed, 145500000,AM,12 kHz,-12.5,On,9,On,On,Tower,On, 3, 0.25,80 MHz,25 kHz,50 Hz";
    const MemoryRecord record = Read().Row(4);
    EXPECT_TRUE(record.Used);
    EXPECT_EQ(record.Number, 4);
    EXPECT_EQ(record.Status, 1);
    EXPECT_EQ(record.Frequency, 145500000);
    EXPECT_EQ(record.Demodulation, 1);
    EXPECT_EQ(record.Bandwidth, 7);
    EXPECT_EQ(record.SquelchLevel, -12.5);
    EXPECT_EQ(record.SquelchStatus, 1);
    EXPECT_EQ(record.AntennaNumber, 9);
    EXPECT_EQ(record.AttenuatorStatus, 1);
    EXPECT_EQ(record.AfcStatus, 1);
    EXPECT_EQ(record.Description, "Tower");
    EXPECT_EQ(record.DfSquelchStatus, 1);
    EXPECT_EQ(record.DfSquelchLevel, 3);
    EXPECT_EQ(record.DfMeasurementTime, 0.25);
    EXPECT_EQ(record.FrequencySpan, 12);
    EXPECT_EQ(record.DfStep, 29);
    EXPECT_EQ(record.DfBandwidth, 0);
}

TEST_F(MemoryCsv, TwelveFieldsLeaveDirectionFinderAtDefaults)
{
    const MemoryRecord defaults = EmptyMemoryTable().Row(4);
    lines[kFirstRow + 4] = "Used,4,4,Active, 145500000,FM,15 kHz, 0,Off,0,Off,Off";
    const MemoryRecord record = Read().Row(4);
    EXPECT_TRUE(record.Used);
    EXPECT_EQ(record.Description, defaults.Description);
    EXPECT_EQ(record.DfMeasurementTime, defaults.DfMeasurementTime);
    EXPECT_EQ(record.FrequencySpan, defaults.FrequencySpan);
    EXPECT_EQ(record.DfStep, defaults.DfStep);
    EXPECT_EQ(record.DfBandwidth, defaults.DfBandwidth);
}

TEST_F(MemoryCsv, ThirteenFieldsIncludeDescription)
{
    lines[kFirstRow + 4] = "Used,4,4,Active, 145500000,FM,15 kHz, 0,Off,0,Off,Off,Tower";
    EXPECT_EQ(Read().Row(4).Description, "Tower");
}

TEST_F(MemoryCsv, FourteenFieldsRequireWholeDirectionFinder)
{
    lines[kFirstRow + 4] = "Used,4,4,Active, 145500000,FM,15 kHz, 0,Off,0,Off,Off,Tower,Off";
    ExpectRefused(12807, { QStringLiteral("5") });
}

TEST_F(MemoryCsv, ElevenFieldsAreRefused)
{
    lines[kFirstRow + 4] = "Used,4,4,Active, 145500000,FM,15 kHz, 0,Off,0,Off";
    ExpectRefused(12782, { QStringLiteral("5") });
}

TEST_F(MemoryCsv, LineOutOfOrderIsRefused)
{
    ExpectBadField(1, "5", 12782);
    ExpectBadField(1, "4.5", 12782);
    ExpectBadField(1, "x", 12782);
    ExpectBadField(1, "", 12782);
}

TEST_F(MemoryCsv, BadFieldShowsItsMessage)
{
    ExpectBadField(2, "x", 12795);
    ExpectBadField(0, "used", 12805);
    ExpectBadField(3, "x", 12796);
    ExpectBadField(4, "x", 12792);
    ExpectBadField(5, "XM", 12797);
    ExpectBadField(6, "1 Hz", 12798);
    ExpectBadField(7, "x", 12799);
    ExpectBadField(8, "on", 12800);
    ExpectBadField(9, "", 12801);
    ExpectBadField(10, "x", 12802);
    ExpectBadField(11, "x", 12803);
    ExpectBadField(12, "a'b", 12804);
    ExpectBadField(12, QByteArray("a\0b", 3), 12804);
    ExpectBadField(12, "a\x1B[31mb", 12804);
    ExpectBadField(12, "a\nb", 12804);
    ExpectBadField(12,
        "a\x9D"
        "b",
        12804);
    ExpectBadField(13, "x", 12806);
    ExpectBadField(14, "x", 12807);
    ExpectBadField(15, "x", 12808);
    ExpectBadField(16, "1 Hz", 12809);
    ExpectBadField(17, "1 Hz", 12810);
    ExpectBadField(18, "1 Hz", 12896);
}

TEST_F(MemoryCsv, FieldsOfUnusedLinesAreCheckedToo)
{
    ASSERT_TRUE(lines[kFirstRow + 4].startsWith("Free"));
    ExpectBadField(5, "XM", 12797);
}

TEST_F(MemoryCsv, FirstOfSeveralBadFieldsIsReported)
{
    struct Step {
        int Column;
        const char* Field;
        int MessageId;
    };
    // From the last check to the first; earlier errors remain. 0 only prepares the next step.
    const std::vector<Step> steps{ { 18, "x", 12896 }, { 16, "80 MHz", 0 }, { 17, "0.625 Hz", 12814 },
        { 17, "x", 12810 }, { 16, "x", 12809 }, { 15, "x", 12808 }, { 14, "x", 12807 }, { 13, "x", 12806 },
        { 12, "a'b", 12804 }, { 5, "IQ", 0 }, { 11, "On", 12812 }, { 5, "USB", 12811 }, { 11, "x", 12803 },
        { 10, "x", 12802 }, { 9, "x", 12801 }, { 8, "x", 12800 }, { 7, "x", 12799 }, { 6, "x", 12798 },
        { 5, "x", 12797 }, { 4, "x", 12792 }, { 3, "x", 12796 }, { 0, "x", 12805 }, { 2, "x", 12795 },
        { 1, "x", 12782 } };
    for (const Step& step : steps) {
        SetField(4, step.Column, step.Field);
        if (step.MessageId != 0)
            ExpectRefused(step.MessageId, { QStringLiteral("5") });
    }
}

TEST_F(MemoryCsv, BandwidthThatDoesNotFitDemodulationIsRefused)
{
    SetField(4, 5, "USB");
    SetField(4, 6, "500 kHz");
    ExpectRefused(12811, { QStringLiteral("5") });
}

TEST_F(MemoryCsv, AfcThatDoesNotFitDemodulationIsRefused)
{
    SetField(4, 5, "IQ");
    SetField(4, 11, "On");
    ExpectRefused(12812, { QStringLiteral("5") });
}

TEST_F(MemoryCsv, SpanThatDoesNotFitStepIsRefused)
{
    SetField(4, 16, "80 MHz");
    SetField(4, 17, "0.625 Hz");
    ExpectRefused(12814, { QStringLiteral("5") });
}

TEST_F(MemoryCsv, ThirdDfSquelchValueIsWrittenButRefusedOnReading)
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = "Van";
    UseRow(table, 4, 1e8).DfSquelchStatus = 2;
    lines = MemoryCsvLines(table);
    EXPECT_EQ(lines[kFirstRow + 4].split(',')[13], "Gate");
    ExpectRefused(12806, { QStringLiteral("5") });
}

TEST_F(MemoryCsv, RefusesSecondLineWithSameNumber)
{
    SetField(9, 2, "3");
    ExpectRefused(12795, { QStringLiteral("10") });
}

TEST_F(MemoryCsv, NumbersAreClampedToZeroAndMaximum)
{
    SetField(0, 2, "-5");
    SetField(1023, 2, "5000");
    const MemoryTable table = Read();
    EXPECT_EQ(table.Row(0).Number, 0);
    EXPECT_EQ(table.Row(1023).Number, 1023);
}

TEST_F(MemoryCsv, ValuesOutsideLimitsAreClamped)
{
    SetField(4, 4, " 99e9");
    SetField(4, 7, " 999");
    SetField(4, 9, "500");
    SetField(4, 14, "-999");
    SetField(4, 15, " 100");
    const MemoryRecord record = Read().Row(4);
    EXPECT_EQ(record.Frequency, 8e9);
    EXPECT_EQ(record.SquelchLevel, 130);
    EXPECT_EQ(record.AntennaNumber, 99);
    EXPECT_EQ(record.DfSquelchLevel, -30);
    EXPECT_EQ(record.DfMeasurementTime, 10);
}

TEST_F(MemoryCsv, EachValueHasItsOwnLimits)
{
    InstrumentLimits& limits = Limits();
    limits.FrequencyHz = { 1, 10 };
    limits.SquelchLevel = { 2, 20 };
    limits.AntennaNr = { 3, 30 };
    limits.DfSquelchLevel = { 4, 40 };
    limits.DfMeasTimeSec = { 5, 50 };
    for (const int column : { 4, 7, 9, 14, 15 }) {
        SetField(4, column, "-999");
        SetField(5, column, "9999");
    }
    const MemoryTable table = Read();
    EXPECT_EQ(table.Row(4).Frequency, 1);
    EXPECT_EQ(table.Row(5).Frequency, 10);
    EXPECT_EQ(table.Row(4).SquelchLevel, 2);
    EXPECT_EQ(table.Row(5).SquelchLevel, 20);
    EXPECT_EQ(table.Row(4).AntennaNumber, 3);
    EXPECT_EQ(table.Row(5).AntennaNumber, 30);
    EXPECT_EQ(table.Row(4).DfSquelchLevel, 4);
    EXPECT_EQ(table.Row(5).DfSquelchLevel, 40);
    EXPECT_EQ(table.Row(4).DfMeasurementTime, 5);
    EXPECT_EQ(table.Row(5).DfMeasurementTime, 50);
}

TEST_F(MemoryCsv, MinimumNumberOfStoreIsIgnored)
{
    Limits().MemoryNr = { 1, 1023 };
    EXPECT_EQ(Read().Row(0).Number, 0);
}

TEST_F(MemoryCsv, MaximumNumberIsThatOfStore)
{
    Limits().MemoryNr.Max = 1022; // the last row's number is clamped to it, which the row before has
    ExpectRefused(12795, { QStringLiteral("1024") });
}

TEST_F(MemoryCsv, LongDescriptionIsCut)
{
    SetField(4, 12, QByteArray(60, 'x'));
    EXPECT_EQ(Read().Row(4).Description, QString(32, u'x'));
}

TEST_F(MemoryCsv, ListWithoutDescriptionLineIsRead)
{
    lines.removeAt(1);
    const MemoryTable table = Read();
    EXPECT_EQ(table.MemoryListName, "Test");
    EXPECT_EQ(table.MemoryListDescription, "");
}

TEST_F(MemoryCsv, LastRowWithoutLineEndIsIgnored)
{
    const QString path = FilePath("list.csv");
    QByteArray bytes = JoinLines(lines);
    bytes.chop(2);
    Store(path, bytes);
    MemoryTable table;
    Answers().Expect(12817, QStringList(), Ok);
    EXPECT_FALSE(OpenMemoryList(path, table));
    EXPECT_EQ(table, EmptyMemoryTable());
}

TEST_F(MemoryCsv, MissingRowIsRefused)
{
    lines.removeLast();
    ExpectRefused(12817, {});
}

TEST_F(MemoryCsv, SurplusRowIsRefused)
{
    lines.append(lines.last());
    ExpectRefused(12781, { QStringLiteral("list.csv"), QStringLiteral("1") });
}

TEST_F(MemoryCsv, HeaderFailuresLeaveEmptyList)
{
    lines[0] = "Memory List";
    ExpectRefused(12776, {});
    lines[0] = "Suppress List,Van";
    ExpectRefused(12777, {});
    lines[0] = "Memory List,none";
    ExpectRefused(12770, { QStringLiteral("memory list") });
    lines = { "Memory List,Van" };
    ExpectRefused(12775, {});
}

TEST_F(MemoryCsv, MissingFileIsReported)
{
    MemoryTable table;
    Answers().Expect(12780, { QStringLiteral("gone.csv"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(OpenMemoryList(FilePath("gone.csv"), table));
}

} // namespace tarvik
