#include "app/values/numberPicture.h"
#include "tests/support/fixture.h"

#include <limits>

namespace tarvik {

using Picture = ProgramTest;

TEST_F(Picture, ShowsMandatoryAndOmitsOptionalDigits)
{
    EXPECT_EQ(FormatPicture(446.00625, u"#0.000000"), "446.006250");
    EXPECT_EQ(FormatPicture(446.00625, u"0.######"), "446.00625");
    EXPECT_EQ(FormatPicture(7, u"000"), "007");
    EXPECT_EQ(FormatPicture(0.5, u"#.0"), ".5");
    EXPECT_EQ(FormatPicture(0, u"#"), "");
    EXPECT_EQ(FormatPicture(1234567, u"#0"), "1234567");
}

TEST_F(Picture, KeepsThePointOfAnOptionalFraction)
{
    EXPECT_EQ(FormatPicture(12, u"0.###"), "12.");
}

TEST_F(Picture, RoundsHalvesAwayFromZeroOnDecimalDigits)
{
    EXPECT_EQ(FormatPicture(0.0000005, u"#0.000000"), "0.000001");
    EXPECT_EQ(FormatPicture(-0.0000005, u"#0.000000"), "-0.000001");
    EXPECT_EQ(FormatPicture(0.00000049, u"#0.000000"), "0.000000");
    EXPECT_EQ(FormatPicture(1.005, u"0.00"), "1.01");
    EXPECT_EQ(FormatPicture(2.5, u"0"), "3");
    EXPECT_EQ(FormatPicture(-2.5, u"0"), "-3");
    EXPECT_EQ(FormatPicture(0.5, u"0"), "1");
    EXPECT_EQ(FormatPicture(0.05, u"0"), "0");
    EXPECT_EQ(FormatPicture(999.9999996, u"#0.000000"), "1000.000000");
    EXPECT_EQ(FormatPicture(9.96, u"0.0"), "10.0");
}

TEST_F(Picture, RoundsArithmeticErrorsAway)
{
    EXPECT_EQ(FormatPicture(0.1 + 0.2, u"0.####################"), "0.3");
    EXPECT_EQ(FormatPicture(1.005 * 1000, u"0.##"), "1005.");
}

TEST_F(Picture, KeepsEveryHertzOfTheWholeRange)
{
    EXPECT_EQ(FormatPicture(7999999999.0 / 1000000, u"#0.000000"), "7999.999999");
    EXPECT_EQ(FormatPicture(8000.0 / 1000000, u"#0.000000"), "0.008000");
    EXPECT_EQ(FormatPicture(-20000000000.0 / 1000000, u"#0.000000"), "-20000.000000");
}

TEST_F(Picture, ZeroHasNoSign)
{
    EXPECT_EQ(FormatPicture(-0.0, u"0.0"), "0.0");
    EXPECT_EQ(FormatPicture(-0.04, u"0.0"), "0.0");
}

TEST_F(Picture, WritesTheDecimalCharacterOfTheRegion)
{
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(FormatPicture(1234.5, u"0.00"), "1234,50");
}

TEST_F(Picture, HandlesExtremeValues)
{
    EXPECT_EQ(FormatPicture(std::numeric_limits<double>::max(), u"0").size(), 309);
    EXPECT_EQ(FormatPicture(std::numeric_limits<double>::denorm_min(), u"0.00"), "0.00");
    EXPECT_EQ(FormatPicture(std::numeric_limits<double>::infinity(), u"0"), "");
    EXPECT_EQ(FormatPicture(std::numeric_limits<double>::quiet_NaN(), u"0"), "");
}

TEST_F(Picture, PlainTextHasAPointInEveryRegionAndNoExponent)
{
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(PlainNumberText(0.75), "0.75");
    EXPECT_EQ(PlainNumberText(-1), "-1");
    EXPECT_EQ(PlainNumberText(0), "0");
    EXPECT_EQ(PlainNumberText(1e20), "100000000000000000000");
    EXPECT_EQ(PlainNumberText(1.5e-7), "0.00000015");
    EXPECT_EQ(PlainNumberText(15360.127, 7), "15360.13");
    EXPECT_EQ(PlainNumberText(static_cast<double>(0.1F), 7), "0.1");
    EXPECT_EQ(PlainNumberText(123456789, 7), "123456800");
}

} // namespace tarvik
