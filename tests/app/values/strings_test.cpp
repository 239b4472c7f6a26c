#include "app/values/strings.h"
#include "closed/loader.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

/// The text that the date parser passed to the general module.
QByteArray& PassedDate()
{
    static QByteArray text;
    return text;
}

int16_t TakeDate(const char* text, double* date)
{
    PassedDate() = text;
    *date = 45356; // 2024-03-05
    return PassedDate() == "2 31 2024" ? 1 : 0;
}

} // namespace

class Strings : public ProgramTest {
protected:
    Strings()
    {
        PassedDate().clear();
        TvGen().GenStrToDate = TakeDate;
    }

    /// "month day year" as the general module gets it; "refused" for no date.
    static QString Parsed(const QString& text)
    {
        bool ok = false;
        const QDate date = StrToDate(text, ok);
        EXPECT_EQ(ok, date.isValid());
        return ok ? QString::fromLatin1(PassedDate()) : QStringLiteral("refused");
    }
};

TEST_F(Strings, TrimmedFormatEndsInADigit)
{
    EXPECT_EQ(StrFormatTrim(12, u"0.###"), "12");
    EXPECT_EQ(StrFormatTrim(12.5, u"0.###", 0, 0), "12.5");
    EXPECT_EQ(StrFormatTrim(12, u"0"), "12");
}

TEST_F(Strings, PrefixFollowsThePower)
{
    EXPECT_EQ(StrPrefix(-24), "y");
    EXPECT_EQ(StrPrefix(-3), "m");
    EXPECT_EQ(StrPrefix(0), "");
    EXPECT_EQ(StrPrefix(3), "k");
    EXPECT_EQ(StrPrefix(18), "E");
    EXPECT_EQ(StrPrefix(21), "?");
    EXPECT_EQ(StrPrefix(4), "?");
    EXPECT_EQ(StrPrefix(-27), "?");
}

TEST_F(Strings, DigitPowerFindsHighestFirstFractionAndLowest)
{
    EXPECT_EQ(StrDigitPower("0120.0340", DigitPowerMode::Highest), 2);
    EXPECT_EQ(StrDigitPower("0120.0340", DigitPowerMode::FirstFraction), -2);
    EXPECT_EQ(StrDigitPower("0120.0340", DigitPowerMode::Lowest), -3);
}

TEST_F(Strings, DigitPowerCountsTheExponent)
{
    EXPECT_EQ(StrDigitPower("1.5E-7", DigitPowerMode::Highest), -7);
    EXPECT_EQ(StrDigitPower("1.5E-7", DigitPowerMode::Lowest), -8);
    EXPECT_EQ(StrDigitPower("2E+3", DigitPowerMode::Highest), 3);
}

TEST_F(Strings, DigitPowerOfZeroIsThatOfItsLastDigit)
{
    EXPECT_EQ(StrDigitPower("0", DigitPowerMode::Highest), 0);
    EXPECT_EQ(StrDigitPower("0.00", DigitPowerMode::Lowest), -2);
    EXPECT_EQ(StrDigitPower("", DigitPowerMode::Highest), 0);
}

TEST_F(Strings, DigitPowerWithoutAFractionIsThatOfTheLastNonZeroDigit)
{
    EXPECT_EQ(StrDigitPower("1200", DigitPowerMode::FirstFraction), 2);
}

TEST_F(Strings, ReplaceDoesNotSearchReplacements)
{
    EXPECT_EQ(StrReplace("aXaX", "X", "XX"), "aXXaXX");
    EXPECT_EQ(StrReplace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(StrReplace("text", "", "b"), "text");
    EXPECT_EQ(StrReplace("", "a", "b"), "");
}

TEST_F(Strings, EqualityIgnoresCaseAndOuterBlanks)
{
    EXPECT_TRUE(StrEqualNoCase(" .CSV", ".csv "));
    EXPECT_TRUE(StrEqualNoCase("Ä", "ä"));
    EXPECT_FALSE(StrEqualNoCase("a b", "ab"));
}

TEST_F(Strings, PathsGainAndLoseOneSeparator)
{
    EXPECT_EQ(PathNoSlash("\\Public\\", '\\'), "\\Public");
    EXPECT_EQ(PathNoSlash("\\Public\\\\", '\\'), "\\Public\\");
    EXPECT_EQ(PathNoSlash("\\", '\\'), "");
    EXPECT_EQ(PathNoSlash("", '\\'), "");
    EXPECT_EQ(PathNoSlash("/", '/'), "/");
    EXPECT_EQ(PathWithSlash("/home", '/'), "/home/");
    EXPECT_EQ(PathWithSlash("/home/", '/'), "/home/");
    EXPECT_EQ(PathWithSlash("", '\\'), "\\");
}

TEST_F(Strings, DateWithMonthFirst)
{
    EXPECT_EQ(Parsed("3/5/2024"), "3 5 2024");
    bool ok = false;
    EXPECT_EQ(StrToDate("3/5/2024", ok), QDate(2024, 3, 5));
}

TEST_F(Strings, DateWithDayFirst)
{
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(Parsed("5.3.2024"), "3 5 2024");
}

TEST_F(Strings, DateWithYearFirstMovesTheThirdNumberToTheFront)
{
    SetRegion(QLocale(QLocale::Swedish, QLocale::Sweden));
    EXPECT_EQ(Parsed("2024-03-05"), "5 3 2024"); // 5 2024 3, then day and year are exchanged
    EXPECT_EQ(Parsed("24-03-05"), "5 24 3");
    EXPECT_EQ(Parsed("05/03/24"), "5 24 3"); // 24 5 3, then month and day are exchanged
    EXPECT_EQ(Parsed("2024-03-25"), "2024 25 3");
}

TEST_F(Strings, DateWithYearFirstAndADayAboveTwelveIsRefused)
{
    BindModules();
    SetRegion(QLocale(QLocale::Swedish, QLocale::Sweden));
    bool ok = true;
    EXPECT_FALSE(StrToDate("2024-03-25", ok).isValid());
    EXPECT_FALSE(ok);
    EXPECT_EQ(StrToDate("2024-03-05", ok), QDate(2024, 5, 3));
    EXPECT_TRUE(ok);
}

TEST_F(Strings, DateMovesANumberAbove31OnlyAfterMonthAndDay)
{
    EXPECT_EQ(Parsed("12/31/2024"), "12 31 2024");
    EXPECT_EQ(Parsed("12/32/5"), "12 5 32");
    EXPECT_EQ(Parsed("13/5/2024"), "5 13 2024");
    EXPECT_EQ(Parsed("32/5/24"), "5 24 32");
}

TEST_F(Strings, DateExchangesNumbersThatDoNotFitTheirPlace)
{
    EXPECT_EQ(Parsed("25/3/2024"), "3 25 2024");
    EXPECT_EQ(Parsed("3/2024/5"), "3 5 2024");
    EXPECT_EQ(Parsed("2024-3-5"), "3 5 2024");
}

TEST_F(Strings, DateAllowsAnySeparators)
{
    EXPECT_EQ(Parsed(" 3 . of 5 - 2024 "), "3 5 2024");
}

TEST_F(Strings, DateNeedsThreeNumbers)
{
    EXPECT_EQ(Parsed(""), "refused");
    EXPECT_EQ(Parsed("3/5"), "refused");
    EXPECT_EQ(Parsed("May 5 2024"), "refused");
    EXPECT_EQ(Parsed("3/5/99999"), "refused");
    EXPECT_EQ(PassedDate(), "");
}

TEST_F(Strings, CaptionHasNeitherMnemonicNorKey)
{
    EXPECT_EQ(StrCaption("a & b\tc&.png"), "a && b c&&.png");
    EXPECT_EQ(StrCaption(""), "");
}

TEST_F(Strings, DateThatDoesNotExistIsRefused)
{
    EXPECT_EQ(Parsed("31/2/2024"), "refused");
}

TEST_F(Strings, DateIsCheckedByTheGeneralModule)
{
    BindModules();
    bool ok = false;
    EXPECT_EQ(StrToDate("2/29/2024", ok), QDate(2024, 2, 29));
    EXPECT_TRUE(ok);
    EXPECT_FALSE(StrToDate("2/29/2023", ok).isValid());
    EXPECT_FALSE(ok);
}

TEST_F(Strings, DateNeedsTheGeneralModule)
{
    ModulesReset();
    EXPECT_EQ(Parsed("3/5/2024"), "refused");
}

} // namespace tarvik
