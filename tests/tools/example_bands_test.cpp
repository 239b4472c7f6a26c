// The suppress lists of examples/.
#include "link/classes/textRules.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "tests/support/fixture.h"
#include "tools/examples/bands.h"

namespace tarvik {

namespace {

class ExampleBands : public ProgramTest {
protected:
    void SetUp() override
    {
        ReadInstrumentLimits();
        SetEditorType(FileClassSuppressList);
    }

    /// The band that contains a frequency; its include flag is unknown if there is none.
    static SuppressRow BandAt(const QString& list, double megahertz)
    {
        for (const SuppressTable& table : AllBandLists()) {
            for (const SuppressRow& row : table.Rows) {
                if (table.Name == list && row.Used && row.StartFrequency <= megahertz * 1e6
                    && megahertz * 1e6 < row.StopFrequency)
                    return row;
            }
        }
        return { false, kUnknownInclude, 0, 0, {} };
    }
};

} // namespace

TEST_F(ExampleBands, StrongTransmittersAreInside)
{
    for (const double megahertz : { 0.1625, 1.008, 6.0, 9.5, 15.5, 21.5, 98.0, 227.36, 482.0 })
        EXPECT_EQ(BandAt("Broadcast-Bands", megahertz).Include, kInclude) << megahertz;
    for (const double megahertz : { 0.518, 4.125, 7.1, 10.0, 14.2, 121.5, 156.8, 406.025, 700.0 })
        EXPECT_FALSE(BandAt("Broadcast-Bands", megahertz).Used) << megahertz;
}

TEST_F(ExampleBands, BaseStationsAreSuppressedAndMobilesAreNot)
{
    for (const double megahertz : { 763.0, 806.0, 947.2, 1476.0, 1842.5, 2140.0, 2350.0, 2655.0, 3600.0 })
        EXPECT_EQ(BandAt("Cellular-Bands", megahertz).Include, kInclude) << megahertz;
    for (const double megahertz : { 708.0, 847.0, 902.0, 1747.5, 1950.0, 2535.0 })
        EXPECT_EQ(BandAt("Cellular-Bands", megahertz).Include, kExclude) << megahertz;
    EXPECT_FALSE(BandAt("Cellular-Bands", 1090).Used);
}

TEST_F(ExampleBands, DuplexBandsAreAsWideAsTheirPartners)
{
    struct Duplex {
        double UpMhz;
        double DownMhz;
    };
    for (const auto [up, down] :
        { Duplex{ 710, 765 }, { 850, 800 }, { 900, 945 }, { 1750, 1845 }, { 1950, 2140 }, { 2540, 2660 } }) {
        const SuppressRow mobile = BandAt("Cellular-Bands", up);
        const SuppressRow base = BandAt("Cellular-Bands", down);
        EXPECT_EQ(mobile.StopFrequency - mobile.StartFrequency, base.StopFrequency - base.StartFrequency) << up;
        EXPECT_EQ(mobile.Description.section(u' ', 0, 0), base.Description.section(u' ', 0, 0)) << up;
    }
}

TEST_F(ExampleBands, ObeyTheRulesOfTheirList)
{
    for (const SuppressTable& table : AllBandLists()) {
        EXPECT_TRUE(ValidListName(table.Name));
        double lastHz = Limits().FrequencyHz.Min;
        for (const SuppressRow& row : table.Rows) {
            if (!row.Used)
                continue;
            EXPECT_TRUE(ValidText(row.Description) && row.Description.size() <= kTextLength);
            EXPECT_GE(row.StartFrequency, lastHz) << row.Description.toStdString();
            EXPECT_GT(row.StopFrequency, row.StartFrequency) << row.Description.toStdString();
            lastHz = row.StopFrequency;
        }
        EXPECT_LE(lastHz, Limits().FrequencyHz.Max);
    }
}

TEST_F(ExampleBands, BothFormatsHoldTheSameList)
{
    for (const SuppressTable& table : AllBandLists()) {
        const QString base = QStringLiteral(EXAMPLES_FOLDER "/") + table.Name;
        SuppressTable fromBinary;
        SuppressTable fromCsv;
        ASSERT_TRUE(ReadSuppressFile(base + ".tvs", fromBinary));
        ASSERT_TRUE(ReadSuppressFile(base + ".csv", fromCsv));
        EXPECT_TRUE(fromBinary == fromCsv) << table.Name.toStdString();
        EXPECT_TRUE(fromBinary == table) << table.Name.toStdString();
    }
}

} // namespace tarvik
