#include "tests/support/fixture.h"

#include "app/values/numberText.h"

namespace tarvik {

namespace {

/// -1 for a text that is refused.
double NumberIn(const QByteArray& text)
{
    double value = -1;
    const bool isRead = ReadNumber(text, value);
    EXPECT_EQ(isRead, value != -1) << text.constData();
    return value;
}

struct NumberCase {
    const char* Text;
    double Number;
};

} // namespace

TEST(NumberText, NeedsADigitBeforeOtherCharacters)
{
    for (const char* text : { "12", " 12 ", "\t12", "12abc", "-1.5e3", "- 5", "+,.e7" }) {
        EXPECT_TRUE(HoldsNumber(QString::fromLatin1(text))) << text;
    }
    for (const char* text : { "", "  ", "abc12", " -e ", "+-.,", "\0012" }) {
        EXPECT_FALSE(HoldsNumber(QString::fromLatin1(text))) << text;
    }
}

TEST(NumberText, ABlankThatIsNoneInAFileIsOneInTypedText)
{
    EXPECT_TRUE(HoldsNumber(u"\u00a0 12"));
    EXPECT_EQ(NumberIn("\xA0 12"), -1);
}

TEST(NumberText, ReadsNumberAtStartInEitherNotation)
{
    for (const NumberCase& number : {
             NumberCase{ "12,5", 12.5 },
             { "12.5", 12.5 },
             { "1.234,5", 1234.5 },
             { "1234.5", 1234.5 },
             { "1,234.5", 1.2345 },
             { "1,000.5", 1.0005 },
             { ".5", 0.5 },
             { "5.", 5 },
             { "+7", 7 },
             { " -5.25 ", -5.25 },
             { "1e3", 1000 },
             { "1e3x", 1000 },
             { "12 MHz", 12 },
             { " +12 MHz 7", 12 },
             { "146.5 entries", 146.5 },
             { "12.5 MHz, about", 12.5 },
         })
        EXPECT_EQ(NumberIn(number.Text), number.Number) << number.Text;
}

TEST(NumberText, CharactersOfRegionsBecomePlainOnes)
{
    constexpr QChar kArabic(0x066B);
    EXPECT_EQ(PlainNumber(QStringLiteral("100\u066B5"), kArabic), "100.5");
    EXPECT_EQ(PlainNumber(QStringLiteral("100\u066B5"), u'.'), "100.5");
    EXPECT_EQ(PlainNumber(QStringLiteral("1,000\u066B5"), kArabic), "1,000,5");
    EXPECT_EQ(PlainNumber(QStringLiteral("1'5"), u'\''), "1.5");
    EXPECT_EQ(PlainNumber(QStringLiteral("1.234,5"), u','), "1.234,5");
    EXPECT_EQ(PlainNumber(QStringLiteral("\u2212\u0661\u06F2\u0967"), u'.'), "-121");
    EXPECT_EQ(PlainNumber(QStringLiteral("\u200E-\u200E5\u200F\u061C"), u'.'), "-5");
    EXPECT_EQ(PlainNumber(QStringLiteral("7\u00B2 \u066C"), u'.'), QStringLiteral("7\u00B2 \u066C"));
}

TEST(NumberText, OnlyThoseCharactersAreNumberSigns)
{
    for (const char16_t sign : { u'\u066B', u'\u2212', u'\u0661', u'\u06F9', u'\u200E', u'\u200F', u'\u061C' })
        EXPECT_TRUE(IsNumberSign(sign, u'.')) << int(sign);
    for (const char16_t other : { u'1', u'.', u',', u'-', u'\u00B2', u'\u066C', u'\u6F22' })
        EXPECT_FALSE(IsNumberSign(other, u',')) << int(other);
    EXPECT_TRUE(IsNumberSign(u'\'', u'\''));
}

TEST(NumberText, RefusesAnythingElse)
{
    for (const char* text : { "", " ", "abc", "abc12", "MHz 12", "-", "- e", " -e ", "+-.,", "- 5", "1 2", "1.2.3",
             "1,2,3", "12-5", "+-3", "--3", "1e999" })
        EXPECT_EQ(NumberIn(text), -1) << text;
}

TEST(NumberText, Takes400Characters)
{
    EXPECT_EQ(NumberIn(QByteArray(400, '0')), 0);
    EXPECT_EQ(NumberIn(QByteArray(401, '0')), -1);
    EXPECT_EQ(NumberIn(QByteArray(100000, '1')), -1);
}

TEST(PlainNumberOfRegion, HasPointForMarkOfRegion)
{
    EXPECT_EQ(PlainNumber("1'5", u'\''), "1.5");
    EXPECT_EQ(PlainNumber("1,2'5", u'\''), "1,2,5"); // an error
    EXPECT_EQ(PlainNumber("1'5", u'.'), "1'5");
}

} // namespace tarvik
