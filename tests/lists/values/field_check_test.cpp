#include "tests/lists/list_fixture.h"

#include "app/values/general.h"
#include "app/values/numberText.h"
#include "lists/values/fieldCheck.h"

#include <QLocale>
#include <QSet>

namespace tarvik {

namespace {

class FieldCheck : public ListTest {
protected:
    static double Number(const QString& text)
    {
        double value = -1;
        EXPECT_TRUE(StrToDoubleChecked(text, value)) << text.toStdString();
        return value;
    }
};

constexpr Range<double> kWide{ -1e12, 1e12 };

} // namespace

TEST_F(FieldCheck, TypedTextAndFileFieldsAreReadByReadNumber)
{
    for (const char* text : { "12,5", " 146000000", "1.234,5", "1,000.5", " -5.25 ", "12 MHz", "12.5 MHz, about", "",
             "abc", "MHz 12", "1 2", "1.2.3", "-", "5e", "--3", "1e999" }) {
        double expected = -1;
        double typed = -1;
        double field = -1;
        const bool isNumber = ReadNumber(text, expected);
        EXPECT_EQ(StrToDoubleChecked(QString::fromLatin1(text), typed), isNumber) << text;
        EXPECT_EQ(StrToDoubleChecked(QByteArrayView(text), field), isNumber) << text;
        EXPECT_EQ(typed, expected) << text;
        EXPECT_EQ(field, expected) << text;
    }
}

TEST_F(FieldCheck, RegionWithDecimalCommaAcceptsBothNotations)
{
    TheSeams().Region = [] { return QLocale(QLocale::German); };
    EXPECT_EQ(DecimalSeparator(), u',');
    EXPECT_EQ(Number("12,5"), 12.5);
    EXPECT_EQ(Number("12.5"), 12.5);
    QString text = QStringLiteral("145.5");
    double hertz = 0;
    ASSERT_TRUE(CheckCellScaled(text, hertz, kWide, kMegahertzCell));
    EXPECT_EQ(text, "145,500000");
    ASSERT_TRUE(CheckCellScaled(text, hertz, kWide, kMegahertzCell));
    EXPECT_EQ(hertz, 145500000.0);
}

TEST_F(FieldCheck, RegionWithOtherDecimalSeparatorReadsWhatItWrites)
{
    TheSeams().Region = [] { return QLocale(QLocale::Arabic, QLocale::Egypt); };
    ASSERT_NE(DecimalSeparator(), u'.');
    ASSERT_NE(DecimalSeparator(), u',');
    QString text = QStringLiteral("145.5");
    double hertz = 0;
    ASSERT_TRUE(CheckCellScaled(text, hertz, kWide, kMegahertzCell));
    ASSERT_TRUE(CheckCellScaled(text, hertz, kWide, kMegahertzCell));
    EXPECT_EQ(hertz, 145500000.0);
}

TEST_F(FieldCheck, EveryRegionReadsWhatItsCellsShow)
{
    QSet<QChar> marks;
    for (const QLocale& region :
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        SetRegion(region);
        marks.insert(DecimalSeparator());
        for (const CellFormat& format : { kMegahertzCell, kLevelCell, CellFormat{ "##0", 1.0 } }) {
            for (const double value : { 0.0, 1.0, 12.0, -5.0, 20e6, 145.5e6, 1234567890.0, 8e9, -130.25, 1e12 }) {
                QString text = CellText(value, format);
                const QString shown = text;
                double read = 0;
                ASSERT_TRUE(CheckCellScaled(text, read, kWide, format)) << region.name().toStdString();
                EXPECT_EQ(text, shown) << region.name().toStdString() << ' ' << value;
            }
        }
    }
    EXPECT_EQ(marks, (QSet<QChar>{ u'.', u',', QChar(0x066B) }));
}

TEST_F(FieldCheck, EveryRegionReadsItsOwnDigitsAndMinus)
{
    for (QLocale region : QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        if (region.zeroDigit().size() > 1)
            continue; // outside the characters that a cell holds
        SetRegion(region);
        region.setNumberOptions(QLocale::OmitGroupSeparator);
        const QString typed = region.toString(100.5, 'f', 1);
        EXPECT_EQ(Number(typed), 100.5) << region.name().toStdString();
        EXPECT_EQ(Number(region.negativeSign() + typed), -100.5) << region.name().toStdString();
    }
}

TEST_F(FieldCheck, ArabicDecimalMarkIsOneInEveryRegion)
{
    EXPECT_EQ(Number(QStringLiteral("100\u066B5")), 100.5);
    double value = 7;
    EXPECT_FALSE(StrToDoubleChecked(QStringLiteral("1,000\u066B5"), value));
    EXPECT_FALSE(StrToDoubleChecked(QStringLiteral("1.000\u066B5"), value));
    EXPECT_FALSE(StrToDoubleChecked(QStringLiteral("1\u066B000\u066B5"), value));
    EXPECT_EQ(value, 7);
}

TEST_F(FieldCheck, MegahertzAreStoredAsHertzAndFormatted)
{
    QString text = QStringLiteral("145,5");
    double hertz = 0;
    ASSERT_TRUE(CheckCellScaled(text, hertz, kWide, kMegahertzCell));
    EXPECT_EQ(hertz, 145500000.0);
    EXPECT_EQ(text, "145.500000");
}

TEST_F(FieldCheck, MegahertzWithSixDecimalsGiveWholeHertz)
{
    for (int hertz = 8'000'001; hertz < 8'000'000'00; hertz += 7'654'321) {
        QString text =
            QString::number(hertz / 1000000) + u'.' + QString::number(hertz % 1000000).rightJustified(6, u'0');
        double value = 0;
        ASSERT_TRUE(CheckCellScaled(text, value, kWide, kMegahertzCell));
        EXPECT_EQ(value, hertz);
    }
}

TEST_F(FieldCheck, ValueOutsideLimitsIsClampedWithoutMessage)
{
    QString text = QStringLiteral("9000");
    double hertz = 0;
    ASSERT_TRUE(CheckCellScaled(text, hertz, Limits().FrequencyHz, kMegahertzCell));
    EXPECT_EQ(hertz, 8e9);
    EXPECT_EQ(text, "8000.000000");
    text = QStringLiteral("-4");
    ASSERT_TRUE(CheckCellScaled(text, hertz, Limits().FrequencyHz, kMegahertzCell));
    EXPECT_EQ(hertz, 8000);
    EXPECT_EQ(text, "0.008000");
}

TEST_F(FieldCheck, EmptyCellIsReportedAndChangesNothing)
{
    QString text;
    double value = 7;
    Answers().Expect(12771, QStringList(), Ok);
    EXPECT_FALSE(CheckCellScaled(text, value, kWide, kMegahertzCell));
    EXPECT_EQ(value, 7);
    EXPECT_TRUE(text.isEmpty());
}

TEST_F(FieldCheck, BadCellIsReportedAndChangesNothing)
{
    QString text = QStringLiteral("abc");
    double value = 7;
    Answers().Expect(12765, QStringList(), Ok);
    EXPECT_FALSE(CheckCellScaled(text, value, kWide, kMegahertzCell));
    EXPECT_EQ(value, 7);
    EXPECT_EQ(text, "abc");
}

TEST_F(FieldCheck, MessagesCanBeSuppressed)
{
    double value = 7;
    QString empty;
    QString bad = QStringLiteral("x");
    EXPECT_FALSE(CheckCellScaled(empty, value, kWide, kMegahertzCell, { false, true }));
    EXPECT_FALSE(CheckCellDouble(bad, value, kWide, "#0.00", { true, false }));
}

TEST_F(FieldCheck, DoubleCellIsNotScaled)
{
    QString text = QStringLiteral("12,345");
    double value = 0;
    ASSERT_TRUE(CheckCellDouble(text, value, { -30, 130 }, "#0.00"));
    EXPECT_EQ(value, 12.345);
    EXPECT_EQ(text, "12.35");
}

TEST_F(FieldCheck, TrailingPointIsRemoved)
{
    QString text = QStringLiteral("12");
    double value = 0;
    ASSERT_TRUE(CheckCellDouble(text, value, kWide, "#0."));
    EXPECT_EQ(text, "12");
}

TEST_F(FieldCheck, IntegerCellIsClampedThenRounded)
{
    std::int16_t value = 0;
    QString text = QStringLiteral("2.5");
    ASSERT_TRUE(CheckCellInt(text, value, { 0, 99 }, "#0"));
    EXPECT_EQ(value, 3);
    EXPECT_EQ(text, "3");
    text = QStringLiteral("1e9");
    ASSERT_TRUE(CheckCellInt(text, value, { 0, 99 }, "#0"));
    EXPECT_EQ(value, 99);
    EXPECT_EQ(text, "99");
}

TEST_F(FieldCheck, EmptyIntegerCellIsReported)
{
    std::int16_t value = 3;
    QString text;
    Answers().Expect(12771, Ok);
    EXPECT_FALSE(CheckCellInt(text, value, { 0, 99 }, "#0"));
    EXPECT_EQ(value, 3);
}

TEST_F(FieldCheck, FieldIsClamped)
{
    double value = 0;
    ASSERT_TRUE(ParseFieldDouble("9e12", value, { 0, 5 }, TextNumber<1>(12792), 3));
    EXPECT_EQ(value, 5);
    std::int16_t number = 0;
    ASSERT_TRUE(ParseFieldInt(" -7", number, { 0, 99 }, TextNumber<1>(12801), 3));
    EXPECT_EQ(number, 0);
}

TEST_F(FieldCheck, BadFieldShowsMessageOfCallerWithLine)
{
    double value = 4;
    Answers().Expect(12792, { QStringLiteral("17") }, Ok);
    EXPECT_FALSE(ParseFieldDouble("x", value, kWide, TextNumber<1>(12792), 17));
    EXPECT_EQ(value, 4);
    std::int16_t number = 4;
    Answers().Expect(12801, { QStringLiteral("18") }, Ok);
    EXPECT_FALSE(ParseFieldInt("", number, { 0, 9 }, TextNumber<1>(12801), 18));
    EXPECT_EQ(number, 4);
}

TEST_F(FieldCheck, CellDoesNotEndInAMark)
{
    const CellFormat format{ "#0.##", 1.0 };
    EXPECT_EQ(CellText(12, format), "12");
    SetRegion(QLocale(QLocale::German));
    EXPECT_EQ(CellText(12, format), "12");
    EXPECT_EQ(CellText(12.5, format), "12,5");
}

} // namespace tarvik
