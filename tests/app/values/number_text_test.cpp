#include "tests/support/fixture.h"

#include "app/values/numberText.h"

namespace tarvik {

namespace {

/// -1 for a text that is refused.
double NumberIn(const char* text)
{
    double value = -1;
    const bool isRead = ReadNumber(text, value);
    EXPECT_EQ(isRead, value != -1) << text;
    return value;
}

} // namespace

TEST(NumberText, ADigitBeforeForeignCharactersIsNeeded)
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

TEST(NumberText, EitherMarkIsTheDecimalOne)
{
    EXPECT_EQ(NumberIn("12,5"), 12.5);
    EXPECT_EQ(NumberIn("12.5"), 12.5);
    EXPECT_EQ(NumberIn("1.234,5"), 1234.5);
    EXPECT_EQ(NumberIn("1,234.5"), 1.2345);
}

TEST(NumberText, ANumberEndsAtItsFirstForeignCharacter)
{
    EXPECT_EQ(NumberIn(" +12 MHz 7"), 12);
    EXPECT_EQ(NumberIn("1e3x"), 1000);
}

TEST(NumberText, WhatIsNoOneNumberIsRefused)
{
    for (const char* text :
        { "", "abc", "abc12", "-", " -e ", "+-.,", "- 5", "1 2", "1.2.3", "1,2,3", "12-5", "+-3", "1e999" })
        EXPECT_EQ(NumberIn(text), -1) << text;
    EXPECT_EQ(NumberIn(QByteArray(400, '0').constData()), 0);
    EXPECT_EQ(NumberIn(QByteArray(401, '0').constData()), -1);
}

} // namespace tarvik
