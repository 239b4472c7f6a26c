// Words, numbers, faults and the command line.
#include "tools/instrument/arguments.h"
#include "tools/instrument/commandWords.h"

#include <gtest/gtest.h>

namespace tarvik {

TEST(CommandWords, HeadersHaveShortAndLongForm)
{
    EXPECT_TRUE(HeaderMatches("MMEMory:DATA", "MMEM:DATA"));
    EXPECT_TRUE(HeaderMatches("MMEMory:DATA", "MMEMORY:DATA"));
    EXPECT_FALSE(HeaderMatches("MMEMory:DATA", "MMEMO:DATA"));
    EXPECT_FALSE(HeaderMatches("MMEMory:DATA", "MME:DATA"));
    EXPECT_FALSE(HeaderMatches("MMEMory:DATA", "MMEM"));
    EXPECT_FALSE(HeaderMatches("MMEMory:DATA", "MMEM:DATA:X"));
    EXPECT_FALSE(HeaderMatches("MMEMory:DATA", "MMEM:"));
    EXPECT_TRUE(HeaderMatches("*IDN", "*IDN"));
}

TEST(CommandWords, NumbersArePlainAndShort)
{
    EXPECT_EQ(ReadNumber("0"), 0);
    EXPECT_EQ(ReadNumber("-7"), -7);
    EXPECT_EQ(ReadNumber("999999999"), 999999999);
    for (const char* text : { "", "x", "1x", " 1", "1.0", "+1", "9999999999", "1e3" })
        EXPECT_FALSE(ReadNumber(text).has_value()) << text;
}

TEST(CommandWords, AcceptsCalendarDatesOnly)
{
    const auto leap = ReadDate("2028", "2", "29");
    ASSERT_TRUE(leap.has_value());
    EXPECT_EQ(leap->tm_year, 128);
    EXPECT_EQ(leap->tm_mon, 1);
    EXPECT_EQ(leap->tm_mday, 29);
    EXPECT_FALSE(ReadDate("2027", "2", "29").has_value());
    EXPECT_FALSE(ReadDate("2027", "13", "1").has_value());
    EXPECT_FALSE(ReadDate("2027", "0", "1").has_value());
    EXPECT_FALSE(ReadDate("1979", "12", "31").has_value());
    EXPECT_TRUE(ReadDate("1980", "1", "1").has_value());
}

TEST(CommandWords, AcceptsTimesOfDayOnly)
{
    ASSERT_TRUE(ReadTime("23", "59", "58").has_value());
    EXPECT_EQ(ReadTime("23", "59", "58")->tm_sec, 58);
    EXPECT_FALSE(ReadTime("24", "0", "0").has_value());
    EXPECT_FALSE(ReadTime("0", "60", "0").has_value());
    EXPECT_FALSE(ReadTime("0", "0", "60").has_value());
    EXPECT_FALSE(ReadTime("0", "-1", "0").has_value());
}

TEST(InstrumentFault, HasKindAndCommandNumber)
{
    ASSERT_TRUE(ReadFault("drop").has_value());
    EXPECT_EQ(ReadFault("drop")->Kind, FaultKind::Drop);
    EXPECT_EQ(ReadFault("drop")->AtCommand, 1U);
    ASSERT_TRUE(ReadFault("cut=12").has_value());
    EXPECT_EQ(ReadFault("cut=12")->Kind, FaultKind::Cut);
    EXPECT_EQ(ReadFault("cut=12")->AtCommand, 12U);
    for (const char* text : { "", "fire", "drop=", "drop=0", "drop=x", "Drop", "drop=1=2" })
        EXPECT_FALSE(ReadFault(text).has_value()) << text;
}

namespace {

/// The error in a command line; empty if there is none.
QString ErrorOf(const QStringList& arguments)
{
    InstrumentArguments result;
    QString error;
    return ReadArguments(arguments, result, error) ? QString() : error;
}

InstrumentArguments Read(const QString& line)
{
    InstrumentArguments result;
    QString error;
    EXPECT_TRUE(ReadArguments(line.split(u' '), result, error)) << error.toStdString();
    return result;
}

} // namespace

TEST(InstrumentArguments, AcceptsEveryOptionInBothForms)
{
    const InstrumentArguments all = Read(
        QStringLiteral("--root /r --port=6000-7000 --bind 0.0.0.0 --maker=M --model TR-300 --serial=7 --firmware 1.5 "
                       "--capacity=5000 --rate 1000 --delay=20 --fault drop=3 --fault=refuse --verbose"));
    EXPECT_EQ(all.Root, QLatin1String("/r"));
    EXPECT_EQ(all.FirstPort, 6000);
    EXPECT_EQ(all.LastPort, 7000);
    EXPECT_EQ(all.Address, QLatin1String("0.0.0.0"));
    EXPECT_EQ(all.Names.Maker, "M");
    EXPECT_EQ(all.Names.Model, "TR-300");
    EXPECT_EQ(all.Names.Serial, "7");
    EXPECT_EQ(all.Names.Firmware, "1.5");
    EXPECT_EQ(all.CapacityBytes, 5000);
    EXPECT_EQ(all.Link.BytesPerSecond, 1000);
    EXPECT_EQ(all.Link.Delay.count(), 20);
    ASSERT_EQ(all.Link.Faults.size(), 2U);
    EXPECT_EQ(all.Link.Faults[1].Kind, FaultKind::Refuse);
    EXPECT_TRUE(all.Link.Verbose);
}

TEST(InstrumentArguments, ListensOnLocalhostByDefault)
{
    const InstrumentArguments none;
    EXPECT_EQ(none.Address, QLatin1String("127.0.0.1"));
    EXPECT_EQ(none.FirstPort, 5555);
    EXPECT_EQ(none.LastPort, 5555);
}

TEST(InstrumentArguments, ReportsErrors)
{
    EXPECT_EQ(ErrorOf({ QStringLiteral("--colour") }), QLatin1String("unknown argument: --colour"));
    EXPECT_EQ(ErrorOf({ QStringLiteral("file") }), QLatin1String("unknown argument: file"));
    EXPECT_EQ(ErrorOf({ QStringLiteral("--port") }), QLatin1String("--port needs a value"));
    for (const char* argument : { "--port=x", "--port=65536", "--port=9-8", "--port=1-2-3", "--root=", "--rate=0",
             "--delay=-1", "--fault=fire", "--model=a,b", "--serial=", "--capacity=x" }) {
        const QString text = QString::fromLatin1(argument);
        EXPECT_EQ(ErrorOf({ text }),
            QStringLiteral("invalid value of %1: %2").arg(text.section(u'=', 0, 0), text.section(u'=', 1)));
    }
}

} // namespace tarvik
