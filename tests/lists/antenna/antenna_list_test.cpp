#include "tests/lists/antenna/antenna_fixture.h"

#include "closed/loader.h"
#include "lists/antenna/antennaFields.h"
#include "lists/values/limits.h"

#include <QFile>

namespace tarvik {

namespace {

class Antenna : public AntennaTest<ListTest> {
protected:
    /// Reads a CSV file of these data lines, whose errors are reported and end the reading.
    AntennaTable ReadLines(const QByteArrayList& lines)
    {
        Store(FilePath("Site.csv"), JoinLines(QByteArrayList{ "Antenna List,Site", "Description,roof" } + lines));
        AntennaTable table;
        EXPECT_TRUE(ReadAntennaFile(FilePath("Site.csv"), table));
        Answers().Verify();
        return table;
    }

    void ExpectReported(int message, const QByteArray& line)
    {
        Answers().Expect(message, { QStringLiteral("2") }, Ok);
        const AntennaTable table = ReadLines({ "1,Yes,First,30000000,90000000", line, "9,Yes,Last,1e6,2e6" });
        EXPECT_EQ(table.Row(0).Name, "First") << message;
        EXPECT_FALSE(table.Row(8).Used) << message;
    }
};

} // namespace

TEST_F(Antenna, BitPatternsHaveTheirTexts)
{
    EXPECT_EQ(ModBitPatternToStr(0), "00");
    EXPECT_EQ(ModBitPatternToStr(3), "11");
    EXPECT_EQ(ModBitPatternToStr(4), "--");
    EXPECT_EQ(ModBitPatternToStr(-1), "--");
    EXPECT_EQ(ModStrToBitPattern("10"), 2);
    EXPECT_EQ(ModStrToBitPattern("1"), 1);
    EXPECT_EQ(ModStrToBitPattern("  01"), 1);
    EXPECT_EQ(ModStrToBitPattern("01 "), 4);
    EXPECT_EQ(ModStrToBitPattern(""), 4);
    EXPECT_EQ(ModStrToBitPattern("2"), 4);
    EXPECT_EQ(ModStrToBitPattern("--"), 4);
}

TEST_F(Antenna, CsvHoldsAllFields)
{
    const AntennaTable table = List({ FullRow() });
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.csv"), table));
    EXPECT_EQ(Contents(FilePath("Site.csv")),
        "Antenna List,Site\r\nDescription,roof\r\n"
        "1,Yes,Dipole, 30000000, 90000000,-1000000,10,01,Mast,7, 12.5,Array\r\n");
    AntennaTable read;
    ASSERT_TRUE(ReadAntennaFile(FilePath("Site.csv"), read));
    EXPECT_EQ(read, table);
}

TEST_F(Antenna, RowNumberOfLinePlacesTheAntenna)
{
    const AntennaTable table =
        ReadLines({ "99,Yes,Last,1000000,2000000", "3,No,Third,1000000,2000000", "3,Yes,Again,3000000,4000000" });
    EXPECT_EQ(table.Row(98).Name, "Last");
    EXPECT_EQ(table.Row(2).Name, "Again");
    EXPECT_EQ(table.Row(2).Include, 1);
    EXPECT_FALSE(table.Row(0).Used);
}

TEST_F(Antenna, BinaryRowsKeepTheirPlaces)
{
    AntennaTable table = List({ FullRow() });
    table.Row(98) = FullRow();
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.tva"), table));
    AntennaTable read = List({ FullRow(), FullRow() });
    ASSERT_TRUE(ReadAntennaFile(FilePath("Site.tva"), read));
    EXPECT_EQ(read, table);
}

TEST_F(Antenna, BothNotationsOfTheIncludeFlagAreCountedAndWritten)
{
    AntennaTable table = List(QList<AntennaRow>(8, FullRow()));
    for (AntennaRow& row : table.Rows)
        row.Include = row.Used ? -1 : 0;
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.tva"), table));
    AntennaTable read;
    ASSERT_TRUE(ReadAntennaFile(FilePath("Site.tva"), read));
    EXPECT_EQ(read.Row(7).Include, 1);
    EXPECT_TRUE(AntennaCsv(read).contains("8,Yes,"));
    Answers().Expect(12774, QStringList(), Ok);
    EXPECT_TRUE(ValidateAntennaRows(read.Rows).has_value());
}

TEST_F(Antenna, IndexZeroOfTheStoreIsNeitherReadNorWritten)
{
    static TvFioApi real;
    real = TvFio();
    static QList<int> indexes;
    indexes.clear();
    TvFio().AntennaGetUsed = [](int16_t* status, int16_t index, int16_t* used) {
        indexes.append(index);
        real.AntennaGetUsed(status, index, used);
    };
    TvFio().AntennaSetData = [](int16_t* status, int16_t index) {
        indexes.append(index);
        real.AntennaSetData(status, index);
    };
    AntennaTable table = List({ FullRow() });
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.tva"), table));
    ASSERT_TRUE(ReadAntennaFile(FilePath("Site.tva"), table));
    EXPECT_EQ(indexes.first(), 1);
    EXPECT_EQ(indexes.last(), 99);
    EXPECT_FALSE(indexes.contains(0));
}

TEST_F(Antenna, CsvReportsBadFields)
{
    ExpectReported(12783, "100,Yes,x");
    ExpectReported(12783, "0,Yes,x");
    ExpectReported(12783, "x,Yes,x");
    ExpectReported(12784, "2,Yes,x,?,2000000");
    ExpectReported(12785, "2,Yes,x,1000000,?");
    ExpectReported(12786, "2,Yes,x,1000000,2000000,?");
    ExpectReported(12788, "2,Yes,it's,1000000,2000000");
    ExpectReported(12789, "2,Yes,x,1000000,2000000,0,12,00");
    ExpectReported(12790, "2,Yes,x,1000000,2000000,0,00,--");
    ExpectReported(12791, "2,Yes,x,1000000,2000000,0,00,00,it's");
    ExpectReported(12785, "2,Yes,x,1000000,2000000,0,00,00,k,?");
    ExpectReported(12785, "2,Yes,x,1000000,2000000,0,00,00,k,1,?");
    ExpectReported(12791, "2,Yes,x,1000000,2000000,0,00,00,k,1,2,it's");
    ExpectReported(12813, "2,Yes,x,2000000,1000000");
}

TEST_F(Antenna, NumbersAreReadBeforeTheName)
{
    ExpectReported(12784, "2,Yes,it's,?,?,?");
}

TEST_F(Antenna, FieldsMayBeMissing)
{
    const AntennaTable table = ReadLines({ "1", "2,Yes", "3,No,Short" });
    EXPECT_FALSE(table.Row(0).Used);
    EXPECT_TRUE(table.Row(1).Used);
    EXPECT_EQ(table.Row(1).Include, 1);
    EXPECT_EQ(table.Row(2).Name, "Short");
    EXPECT_EQ(table.Row(2).StartFrequency, 0);
}

TEST_F(Antenna, FirstFieldOfLineWithoutSeparatorIsNotChecked)
{
    EXPECT_TRUE(ReadLines({ "not a number", "5,Yes,Fifth" }).Row(4).Used);
}

TEST_F(Antenna, OtherIncludeWordMeansNotIncluded)
{
    EXPECT_EQ(ReadLines({ "1,perhaps,x,1000000,2000000" }).Row(0).Include, 0);
}

TEST_F(Antenna, BitFieldOfOneCharacterIsRead)
{
    EXPECT_EQ(ReadLines({ "1,Yes,x,1000000,2000000,0,1,0" }).Row(0).PassiveBits, 1);
}

TEST_F(Antenna, LinesBeyondTheTableAreReportedAndIgnored)
{
    QByteArrayList lines;
    for (int line = 0; line < 99; ++line)
        lines.append("1,Yes,Line" + QByteArray::number(line) + ",1000000,2000000");
    EXPECT_EQ(ReadLines(lines).Row(0).Name, "Line98");
    Answers().Expect(12781, { QStringLiteral("Site.csv"), QStringLiteral("1") }, Ok);
    EXPECT_EQ(ReadLines(lines + QByteArrayList{ "1,Yes,Ignored,1000000,2000000" }).Row(0).Name, "Line98");
}

TEST_F(Antenna, StoreFailureOnWritingNamesTheRow)
{
    AntennaTable table = List({ FullRow(), FullRow() });
    table.Row(1).StartFrequency = qQNaN();
    Answers().Expect(12870, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(WriteAntennaFile(FilePath("Site.tva"), table));
    EXPECT_FALSE(QFile::exists(FilePath("Site.tva")));
}

TEST_F(Antenna, MissingFileIsReported)
{
    for (const QString name : { "gone.csv", "gone.tva" }) {
        AntennaTable table = List({ FullRow() });
        Answers().Expect(12780, { name, QStringLiteral("1") }, Ok);
        EXPECT_FALSE(ReadAntennaFile(FilePath(name), table));
        EXPECT_EQ(table, AntennaTable());
    }
}

TEST_F(Antenna, WritingAsksBeforeReplacing)
{
    for (const QString name : { "Site.csv", "Site.tva" }) {
        Store(FilePath(name), "before");
        Answers().Expect(12734, { name }, No);
        EXPECT_FALSE(WriteAntennaFile(FilePath(name), List({ FullRow() })));
        EXPECT_EQ(Contents(FilePath(name)), "before");
    }
}

TEST_F(Antenna, TextThatCsvCannotHoldIsRefused)
{
    AntennaTable table = List({ FullRow() });
    table.Row(5) = FullRow();
    table.Row(5).CorrectionSetName = "a;b";
    Answers().Expect(12791, { QStringLiteral("2") }, Ok); // data line
    EXPECT_FALSE(WriteAntennaFile(FilePath("Site.csv"), table));
    table.Row(0).Name = "a,b";
    Answers().Expect(12788, { QStringLiteral("1") }, Ok);
    EXPECT_FALSE(WriteAntennaFile(FilePath("Site.csv"), table));
}

TEST_F(Antenna, OneLessThanTheLimitMayBeIncluded)
{
    ASSERT_EQ(Limits().MaxAntennasIncluded, 8);
    AntennaTable table = List(QList<AntennaRow>(7, FullRow()));
    EXPECT_FALSE(ValidateAntennaRows(table.Rows).has_value());
    table.Row(20) = FullRow();
    table.Row(20).Include = 0;
    EXPECT_FALSE(ValidateAntennaRows(table.Rows).has_value());
    table.Row(20).Include = 1;
    Answers().Expect(12774, QStringList(), Ok);
    const auto refusal = ValidateAntennaRows(table.Rows);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->Fault, AntennaFault::TooManyIncluded);
}

TEST_F(Antenna, StopBelowStartIsSwapped)
{
    AntennaTable table = List({ FullRow() });
    std::swap(table.Row(0).StartFrequency, table.Row(0).StopFrequency);
    EXPECT_FALSE(ValidateAntennaRows(table.Rows).has_value());
    EXPECT_EQ(table.Row(0).StartFrequency, 30e6);
    EXPECT_EQ(table.Row(0).StopFrequency, 90e6);
}

TEST_F(Antenna, FrequencyOutsideTheLimitsIsRefusedWithItsRow)
{
    AntennaTable table = List({ FullRow(), FullRow() });
    table.Row(1).StartFrequency = 0;
    table.Row(1).StopFrequency = 0;
    Answers().Expect(12773, QStringList(), Ok);
    auto refusal = ValidateAntennaRows(table.Rows);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->Fault, AntennaFault::StartFrequency);
    EXPECT_EQ(refusal->Row, 1);
    table.Row(1).StartFrequency = 1e6;
    table.Row(1).StopFrequency = 9e9;
    Answers().Expect(12773, QStringList(), Ok);
    refusal = ValidateAntennaRows(table.Rows);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->Fault, AntennaFault::StopFrequency);
}

TEST_F(Antenna, FieldsShowTheirPictures)
{
    const AntennaRow row = FullRow();
    EXPECT_EQ(AntennaFieldText(row, AntennaField::StartFrequency), "30.000000");
    EXPECT_EQ(AntennaFieldText(row, AntennaField::FrequencyOffset), "-1.000000");
    EXPECT_EQ(AntennaFieldText(row, AntennaField::NorthOffset), "12.5");
    EXPECT_EQ(AntennaFieldText(row, AntennaField::Code), "7");
    const AntennaRow empty;
    EXPECT_EQ(AntennaFieldText(empty, AntennaField::StopFrequency), "0.000000");
    EXPECT_EQ(AntennaFieldText(empty, AntennaField::NorthOffset), "0.0");
    EXPECT_EQ(AntennaFieldText(empty, AntennaField::Code), "0");
    EXPECT_EQ(AntennaFieldText(empty, AntennaField::Name), "");
}

TEST_F(Antenna, FieldsAreClampedToTheirLimits)
{
    AntennaRow row = FullRow();
    QString text = "400";
    EXPECT_TRUE(CheckAntennaField(row, AntennaField::NorthOffset, text));
    EXPECT_EQ(row.NorthOffset, 359.9);
    text = "999";
    EXPECT_TRUE(CheckAntennaField(row, AntennaField::Code, text));
    EXPECT_EQ(row.AntennaCode, 255);
    text = "-30000";
    EXPECT_TRUE(CheckAntennaField(row, AntennaField::FrequencyOffset, text));
    EXPECT_EQ(row.FrequencyOffset, -20e9);
    text = "";
    Answers().Expect(12771, QStringList(), Ok);
    EXPECT_FALSE(CheckAntennaField(row, AntennaField::StartFrequency, text));
    text = "a;b";
    Answers().Expect(12764, QStringList(), Ok);
    EXPECT_FALSE(CheckAntennaField(row, AntennaField::KfactorTable, text));
    EXPECT_EQ(row.KfactorTableName, "Mast");
}

TEST_F(Antenna, ActiveBitsOutOfRangeResetThePassiveChoice)
{
    AntennaRow row = FullRow();
    row.PassiveBits = 2;
    row.ActiveBits = 7;
    const BitChoices choices = ShowAntennaBits(row, { 1, 3 });
    EXPECT_EQ(choices.Passive, 0);
    EXPECT_EQ(choices.Active, 3);
    EXPECT_EQ(row.PassiveBits, 2);
    EXPECT_EQ(row.ActiveBits, 0);
    row = FullRow();
    row.PassiveBits = 4;
    EXPECT_EQ(ShowAntennaBits(row, { 1, 3 }).Passive, 0);
    EXPECT_EQ(row.PassiveBits, 0);
    EXPECT_EQ(row.ActiveBits, 1);
}

TEST_F(Antenna, FileWithoutDescriptionMayHaveOneLineMore)
{
    QByteArrayList lines{ "Antenna List,Site" };
    for (int line = 0; line < 100; ++line)
        lines.append("1,Yes,Line" + QByteArray::number(line) + ",1000000,2000000");
    Store(FilePath("Site.csv"), JoinLines(lines));
    AntennaTable table;
    EXPECT_TRUE(ReadAntennaFile(FilePath("Site.csv"), table));
    EXPECT_EQ(table.Row(0).Name, "Line99");
    Store(FilePath("Site.csv"), JoinLines(lines + QByteArrayList{ "1,Yes,Ignored,1000000,2000000" }));
    Answers().Expect(12781, { QStringLiteral("Site.csv"), QStringLiteral("1") }, Ok);
    EXPECT_TRUE(ReadAntennaFile(FilePath("Site.csv"), table));
    EXPECT_EQ(table.Row(0).Name, "Line99");
}

TEST_F(Antenna, BadLineKeepsTheFieldsReadBefore)
{
    Answers().Expect(12785, { QStringLiteral("1") }, Ok);
    AntennaRow row = ReadLines({ "1,Yes,x,1000000,?" }).Row(0);
    EXPECT_FALSE(row.Used) << "the frequencies come first";
    EXPECT_EQ(row.StartFrequency, 1e6);
    EXPECT_EQ(row.Name, "");
    Answers().Expect(12788, { QStringLiteral("1") }, Ok);
    row = ReadLines({ "1,Yes,it's,1000000,2000000,-1000000,01" }).Row(0);
    EXPECT_TRUE(row.Used);
    EXPECT_EQ(row.Include, 1);
    EXPECT_EQ(row.FrequencyOffset, -1e6);
    EXPECT_EQ(row.PassiveBits, 0);
}

TEST_F(Antenna, RowNumberOfLineIsCutToAnInteger)
{
    const AntennaTable table = ReadLines({ "99.9,Yes,Last", "1.5,Yes,First" });
    EXPECT_EQ(table.Row(98).Name, "Last");
    EXPECT_EQ(table.Row(0).Name, "First");
    ExpectReported(12783, "0.9,Yes,x");
}

TEST_F(Antenna, CsvClampsItsNumbers)
{
    const AntennaRow row = ReadLines({ "1,Yes,x,1,9e9,-30e9,00,00,k,999,400,c" }).Row(0);
    EXPECT_EQ(row.StartFrequency, 8000);
    EXPECT_EQ(row.StopFrequency, 8e9);
    EXPECT_EQ(row.FrequencyOffset, -20e9);
    EXPECT_EQ(row.AntennaCode, 255);
    EXPECT_EQ(row.NorthOffset, 359.9);
}

TEST_F(Antenna, AnyFlagThatIsNotZeroIncludes)
{
    QList<AntennaRow> rows(8, FullRow());
    for (AntennaRow& row : rows)
        row.Include = -1; // which a binary file may hold
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List(rows)));
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.csv"), List(rows)));
    for (const QString name : { "Site.tva", "Site.csv" }) {
        AntennaTable table;
        ASSERT_TRUE(ReadAntennaFile(FilePath(name), table));
        EXPECT_EQ(table.Row(7).Include, 1) << name.toStdString();
    }
    Answers().Expect(12774, QStringList(), Ok);
    AntennaTable table = List(rows);
    EXPECT_TRUE(ValidateAntennaRows(table.Rows).has_value());
}

TEST_F(Antenna, StoreFailureOnReadingNamesTheIndex)
{
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List({ FullRow(), FullRow() })));
    TvFio().AntennaGetNorthOffset = [](int16_t* status, int16_t index, double*) { *status = index == 2 ? 23 : 0; };
    AntennaTable table;
    Answers().Expect(12840, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(ReadAntennaFile(FilePath("Site.tva"), table));
    EXPECT_EQ(table, AntennaTable());
    TvFio().AntennaListGetDescription = [](int16_t* status, char*, int32_t) { *status = 10; };
    Answers().Expect(12830, QStringList(), Ok);
    EXPECT_FALSE(ReadAntennaFile(FilePath("Site.tva"), table));
}

TEST_F(Antenna, FieldsGoToTheStoreInTheirOrder)
{
    static QStringList calls;
    calls.clear();
    TvFioApi& store = TvFio();
    store.AntennaSetInclude = [](int16_t*, int16_t) { calls.append("include"); };
    store.AntennaSetName = [](int16_t*, const char*) { calls.append("name"); };
    store.AntennaSetStartFrequency = [](int16_t*, double) { calls.append("start"); };
    store.AntennaSetStopFrequency = [](int16_t*, double) { calls.append("stop"); };
    store.AntennaSetDefFrequencyOffset = [](int16_t*, double) { calls.append("offset"); };
    store.AntennaSetPassiveBits = [](int16_t*, int16_t) { calls.append("passive"); };
    store.AntennaSetActiveBits = [](int16_t*, int16_t) { calls.append("active"); };
    store.AntennaSetKFactorTableName = [](int16_t*, const char*) { calls.append("kfactor"); };
    store.AntennaSetAntennaCode = [](int16_t*, int16_t) { calls.append("code"); };
    store.AntennaSetNorthOffset = [](int16_t*, double) { calls.append("north"); };
    store.AntennaSetCorrectionSetName = [](int16_t*, const char*) { calls.append("correction"); };
    store.AntennaSetData = [](int16_t*, int16_t index) { calls.append(QString::number(index)); };
    ASSERT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List({ FullRow() })));
    EXPECT_EQ(calls,
        (QStringList{ "include", "name", "start", "stop", "offset", "passive", "active", "kfactor", "code", "north",
            "correction", "1" }));
}

TEST_F(Antenna, FrequencyOfAnEarlierRowIsRefusedBeforeLaterInclusions)
{
    AntennaTable table = List(QList<AntennaRow>(9, FullRow()));
    table.Row(2).StartFrequency = 0;
    Answers().Expect(12773, QStringList(), Ok);
    const auto refusal = ValidateAntennaRows(table.Rows);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->Row, 2);
}

TEST_F(Antenna, FrequenciesAtTheLimitsAreAccepted)
{
    AntennaTable table = List({ FullRow(), FullRow() });
    table.Row(0).StartFrequency = Limits().FrequencyHz.Min;
    table.Row(0).StopFrequency = Limits().FrequencyHz.Max;
    table.Row(1).Used = false;
    table.Row(1).StartFrequency = 0;
    EXPECT_FALSE(ValidateAntennaRows(table.Rows).has_value());
}

TEST_F(Antenna, LinkNamesOfFullLengthAreKept)
{
    AntennaTable table = List({ FullRow() });
    table.Row(0).Name = QString(32, u'n');
    table.Row(0).KfactorTableName = QString(40, u'k');
    table.Row(0).CorrectionSetName = QString(40, u'c');
    for (const QString name : { "Site.csv", "Site.tva" }) {
        ASSERT_TRUE(WriteAntennaFile(FilePath(name), table));
        AntennaTable read;
        ASSERT_TRUE(ReadAntennaFile(FilePath(name), read));
        EXPECT_EQ(read, table) << name.toStdString();
    }
}

} // namespace tarvik
