#include "tests/lists/list_fixture.h"

#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryCells.h"
#include "lists/memory/memoryEntry.h"
#include "lists/values/limits.h"

namespace tarvik {

namespace {

class MemoryEntryRules : public ListTest {
protected:
    MemoryEntryRules()
    {
        MemoryEntry() = EmptyMemoryTable().Row(7);
    }
};

class MemoryCells : public ListTest {
protected:
    MemoryRecord record = EmptyMemoryTable().Row(7);
};

} // namespace

TEST_F(MemoryEntryRules, FieldsShowEntry)
{
    MemoryRecord& entry = MemoryEntry();
    entry.Frequency = 145500000;
    entry.SquelchLevel = -3.456;
    entry.AntennaNumber = 12;
    entry.DfMeasurementTime = 0.5;
    entry.DfBandwidth = 32;
    const MemoryEntryFields fields = FieldsOfMemoryEntry();
    EXPECT_EQ(fields.Frequency, "145.500000");
    EXPECT_EQ(fields.SquelchLevel, "-3.46");
    EXPECT_EQ(fields.AntennaNumber, "12");
    EXPECT_EQ(fields.DfMeasurementTime, "0.50");
    EXPECT_EQ(fields.DfBandwidth, 32);
    EXPECT_EQ(MemoryEntryTitle(), "Memory Entry - 7");
}

TEST_F(MemoryEntryRules, DemodulationsAboveThreeAreShownAsFirst)
{
    for (int code = 0; code < 8; ++code) {
        MemoryEntry().Demodulation = static_cast<std::int16_t>(code);
        EXPECT_EQ(FieldsOfMemoryEntry().Demodulation, code > 3 ? 0 : code);
    }
}

TEST_F(MemoryEntryRules, OkStoresFirstDemodulationForThoseAboveThree)
{
    MemoryEntry().Demodulation = 5;
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    EXPECT_EQ(AcceptMemoryEntry(fields), MemoryEntryField::None);
    EXPECT_EQ(MemoryEntry().Demodulation, 0);
}

TEST_F(MemoryEntryRules, OkStoresEveryField)
{
    MemoryEntryFields fields;
    fields.Frequency = "145,5";
    fields.Demodulation = 1;
    fields.Bandwidth = 7;
    fields.SquelchLevel = "12.5";
    fields.SquelchStatus = 1;
    fields.AntennaNumber = "9";
    fields.AttenuatorStatus = 1;
    fields.AfcStatus = 1;
    fields.Description = "Tower";
    fields.Status = 1;
    fields.DfSquelchStatus = 2;
    fields.DfSquelchLevel = "-1";
    fields.DfMeasurementTime = "2";
    fields.FrequencySpan = 12;
    fields.DfStep = 29;
    fields.DfBandwidth = 4;
    EXPECT_EQ(AcceptMemoryEntry(fields), MemoryEntryField::None);
    MemoryRecord expected;
    expected.Used = true;
    expected.Number = 7;
    expected.Frequency = 145500000;
    expected.Demodulation = 1;
    expected.Bandwidth = 7;
    expected.SquelchLevel = 12.5;
    expected.SquelchStatus = 1;
    expected.AntennaNumber = 9;
    expected.AttenuatorStatus = 1;
    expected.AfcStatus = 1;
    expected.Description = "Tower";
    expected.Status = 1;
    expected.DfSquelchStatus = 2;
    expected.DfSquelchLevel = -1;
    expected.DfMeasurementTime = 2;
    expected.FrequencySpan = 12;
    expected.DfStep = 29;
    expected.DfBandwidth = 4;
    EXPECT_EQ(MemoryEntry(), expected);
    EXPECT_EQ(fields.Frequency, "145.500000");
}

TEST_F(MemoryEntryRules, OkOnUnchangedFieldsKeepsEveryDigit)
{
    MemoryEntry().Frequency = 145500000.25;
    MemoryEntry().DfMeasurementTime = 0.015;
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    EXPECT_EQ(AcceptMemoryEntry(fields), MemoryEntryField::None);
    EXPECT_EQ(MemoryEntry().Frequency, 145500000.25);
    EXPECT_EQ(MemoryEntry().DfMeasurementTime, 0.015);
}

TEST_F(MemoryEntryRules, OkMakesEntryUsed)
{
    ASSERT_FALSE(MemoryEntry().Used);
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    EXPECT_EQ(AcceptMemoryEntry(fields), MemoryEntryField::None);
    EXPECT_TRUE(MemoryEntry().Used);
}

TEST_F(MemoryEntryRules, ValuesOutsideLimitsAreClamped)
{
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    fields.Frequency = "99999";
    fields.SquelchLevel = "500";
    fields.AntennaNumber = "500";
    fields.DfMeasurementTime = "0";
    EXPECT_EQ(AcceptMemoryEntry(fields), MemoryEntryField::None);
    EXPECT_EQ(MemoryEntry().Frequency, 8e9);
    EXPECT_EQ(MemoryEntry().SquelchLevel, 130);
    EXPECT_EQ(MemoryEntry().AntennaNumber, 99);
    EXPECT_EQ(MemoryEntry().DfMeasurementTime, 0.01);
}

TEST_F(MemoryEntryRules, EachValueHasItsOwnLimits)
{
    InstrumentLimits& limits = Limits();
    limits.FrequencyHz = { 1e6, 10e6 };
    limits.SquelchLevel = { 2, 20 };
    limits.AntennaNr = { 3, 30 };
    limits.DfSquelchLevel = { 4, 40 };
    limits.DfMeasTimeSec = { 5, 50 };
    const auto accept = [](const QString& typed) {
        MemoryEntryFields fields = FieldsOfMemoryEntry();
        for (QString* text : { &fields.Frequency, &fields.SquelchLevel, &fields.AntennaNumber, &fields.DfSquelchLevel,
                 &fields.DfMeasurementTime })
            *text = typed;
        EXPECT_EQ(AcceptMemoryEntry(fields), MemoryEntryField::None);
        return QStringList{ fields.Frequency, fields.SquelchLevel, fields.AntennaNumber, fields.DfSquelchLevel,
            fields.DfMeasurementTime };
    };
    EXPECT_EQ(accept("-999"), QStringList({ "1.000000", "2.00", "3", "4.00", "5.00" }));
    EXPECT_EQ(accept("9999"), QStringList({ "10.000000", "20.00", "30", "40.00", "50.00" }));
    EXPECT_EQ(MemoryEntry().DfSquelchLevel, 40);
}

TEST_F(MemoryEntryRules, OkReportsFirstOfSeveralFailures)
{
    using Field = MemoryEntryField;
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    const auto expectFailure = [&](Field field, int messageId) {
        Answers().Expect(messageId, QStringList(), Ok);
        EXPECT_EQ(AcceptMemoryEntry(fields), field);
    };
    // From the last check to the first; earlier errors remain.
    fields.FrequencySpan = 12;
    fields.DfStep = 0;
    expectFailure(Field::FrequencySpan, 12818);
    fields.DfMeasurementTime = "x";
    expectFailure(Field::DfMeasurementTime, 12765);
    fields.DfSquelchLevel.clear();
    expectFailure(Field::DfSquelchLevel, 12771);
    fields.Demodulation = 3;
    fields.AfcStatus = 1;
    expectFailure(Field::AfcStatus, 12816);
    fields.Demodulation = 5;
    fields.Bandwidth = 15;
    expectFailure(Field::Bandwidth, 12815);
    fields.AntennaNumber = "x";
    expectFailure(Field::AntennaNumber, 12765);
    fields.SquelchLevel = "x";
    expectFailure(Field::SquelchLevel, 12765);
    fields.Frequency.clear();
    expectFailure(Field::Frequency, 12771);
    EXPECT_FALSE(MemoryEntry().Used);
}

TEST_F(MemoryEntryRules, FailureKeepsEarlierNumbersInEntry)
{
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    fields.Frequency = "200";
    fields.SquelchLevel = "11";
    fields.Description = "not taken";
    fields.DfMeasurementTime = "x";
    Answers().Expect(12765, Ok);
    EXPECT_EQ(AcceptMemoryEntry(fields), MemoryEntryField::DfMeasurementTime);
    EXPECT_EQ(MemoryEntry().Frequency, 2e8);
    EXPECT_EQ(MemoryEntry().SquelchLevel, 11);
    EXPECT_EQ(MemoryEntry().Description, "");
}

TEST_F(MemoryEntryRules, LeavingFieldStoresNothing)
{
    const MemoryRecord before = MemoryEntry();
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    fields.Frequency = "200,5";
    EXPECT_TRUE(CheckMemoryEntryField(MemoryEntryField::Frequency, fields));
    EXPECT_EQ(fields.Frequency, "200.500000");
    EXPECT_EQ(MemoryEntry(), before);
}

TEST_F(MemoryEntryRules, DescriptionWithForbiddenCharacterIsReported)
{
    MemoryEntryFields fields = FieldsOfMemoryEntry();
    fields.Description = "a;b";
    Answers().Expect(12764, QStringList(), Ok);
    EXPECT_FALSE(CheckMemoryEntryField(MemoryEntryField::Description, fields));
}

TEST_F(MemoryEntryRules, DeleteLeavesUnusedRowOfZeros)
{
    MemoryEntry().Used = true;
    DeleteMemoryEntry();
    EXPECT_EQ(MemoryEntry(), MemoryRecord());
    EXPECT_EQ(MemoryEntry().Number, 0);
}

TEST_F(MemoryCells, UnusedRowShowsOnlyItsNumber)
{
    EXPECT_EQ(MemoryCellText(record, kMemoryColumnNumber), "7");
    for (const int column : { kMemoryColumnFrequency, kMemoryColumnDemodulation, kMemoryColumnDescription })
        EXPECT_EQ(MemoryCellText(record, column), "");
}

TEST_F(MemoryCells, UsedRowShowsItsFields)
{
    record.Used = true;
    record.Frequency = 145500000;
    record.Demodulation = 1;
    record.Description = "Tower";
    EXPECT_EQ(MemoryCellText(record, kMemoryColumnFrequency), "145.500000");
    EXPECT_EQ(MemoryCellText(record, kMemoryColumnDemodulation), "AM");
    EXPECT_EQ(MemoryCellText(record, kMemoryColumnDescription), "Tower");
}

TEST_F(MemoryCells, CheckedFrequencyIsStoredAndFormatted)
{
    QString text = "145,5";
    EXPECT_TRUE(CheckMemoryCell(record, kMemoryColumnFrequency, text));
    EXPECT_EQ(record.Frequency, 145500000);
    EXPECT_EQ(text, "145.500000");
}

TEST_F(MemoryCells, UnchangedFrequencyKeepsItsDigits)
{
    record.Frequency = 145500000.25;
    QString text = "145.500000";
    EXPECT_TRUE(CheckMemoryCell(record, kMemoryColumnFrequency, text));
    EXPECT_EQ(record.Frequency, 145500000.25);
}

TEST_F(MemoryCells, BadDescriptionIsReportedAndNotStored)
{
    QString text = "a,b";
    Answers().Expect(12764, QStringList(), Ok);
    EXPECT_FALSE(CheckMemoryCell(record, kMemoryColumnDescription, text));
    EXPECT_EQ(record.Description, "");
}

} // namespace tarvik
