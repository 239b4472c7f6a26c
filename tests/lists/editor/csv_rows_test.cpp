#include "tests/lists/list_fixture.h"

#include "lists/editor/csvRows.h"

namespace tarvik {

namespace {

constexpr TextNumber<1> kMessage(12792);
constexpr Range<double> kTens{ -10, 10 };

class CsvRowsTest : public ListTest {
protected:
    /// At the first of `lines`.
    CsvRows& At(const QByteArray& lines)
    {
        source.Bytes = lines;
        source.FileName = QStringLiteral("a.csv");
        source.At = 0;
        rows.emplace(source);
        EXPECT_TRUE(rows->Next());
        return *rows;
    }

    /// The next check must show `kMessage` with the number of the first line.
    void ExpectRefusal()
    {
        Answers().Expect(kMessage.Number, { QStringLiteral("1") }, Ok);
    }

    CsvSource source;
    std::optional<CsvRows> rows;
};

} // namespace

TEST_F(CsvRowsTest, LineNumbersStartAtOne)
{
    CsvRows& at = At("a,b\r\nc\r\nrest");
    EXPECT_EQ(at.Line(), 1);
    EXPECT_EQ(at.FieldCount(), 2);
    EXPECT_EQ(at.Field(1), QByteArrayView("b"));
    EXPECT_TRUE(at.Field(2).isEmpty());
    ASSERT_TRUE(at.Next());
    EXPECT_EQ(at.Line(), 2);
    EXPECT_EQ(at.FieldCount(), 1);
    EXPECT_FALSE(at.Next());
    EXPECT_EQ(at.Line(), 2);
}

TEST_F(CsvRowsTest, StartsAfterHeader)
{
    source.Bytes = "header\r\nrow\r\n";
    source.At = 8;
    CsvRows walk(source);
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(walk.Field(0), QByteArrayView("row"));
    EXPECT_EQ(walk.Line(), 1);
}

TEST_F(CsvRowsTest, RefusalShowsLineNumber)
{
    CsvRows& at = At("a\r\nb\r\n");
    at.Next();
    EXPECT_TRUE(at.Require(true, kMessage));
    Answers().Expect(kMessage.Number, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(at.Require(false, kMessage));
    Answers().Expect(kMessage.Number, { QStringLiteral("2") }, Ok);
    EXPECT_FALSE(at.Refuse(kMessage));
}

TEST_F(CsvRowsTest, TooManyLinesAreReportedWithFileName)
{
    const CsvRows& at = At("a\r\n");
    Answers().Expect(12781, { QStringLiteral("a.csv"), QStringLiteral("1") }, Ok);
    EXPECT_FALSE(at.RefuseLength());
}

TEST_F(CsvRowsTest, NumberWithoutLimitsShowsNoMessage)
{
    const CsvRows& at = At("x, 1e300,-2.5\r\n");
    double value = 7;
    EXPECT_FALSE(at.Number(0, value));
    EXPECT_FALSE(at.Number(3, value));
    EXPECT_EQ(value, 7);
    EXPECT_TRUE(at.Number(1, value));
    EXPECT_EQ(value, 1e300);
    EXPECT_TRUE(at.Number(2, value));
    EXPECT_EQ(value, -2.5);
}

TEST_F(CsvRowsTest, RealNumbersAreClamped)
{
    const CsvRows& at = At(" 5.5,99,-99\r\n");
    double value = 0;
    EXPECT_TRUE(at.Real(0, value, kTens, kMessage));
    EXPECT_EQ(value, 5.5);
    EXPECT_TRUE(at.Real(1, value, kTens, kMessage));
    EXPECT_EQ(value, 10);
    EXPECT_TRUE(at.Real(2, value, kTens, kMessage));
    EXPECT_EQ(value, -10);
}

TEST_F(CsvRowsTest, IntegersAreClampedAndRounded)
{
    const CsvRows& at = At("2.5,70000\r\n");
    std::int16_t value = 0;
    EXPECT_TRUE(at.Integer(0, value, { 0, 9 }, kMessage));
    EXPECT_EQ(value, 3);
    EXPECT_TRUE(at.Integer(1, value, { 0, 9 }, kMessage));
    EXPECT_EQ(value, 9);
}

TEST_F(CsvRowsTest, NonNumberIsRefusedAndChangesNothing)
{
    const CsvRows& at = At("x\r\n");
    double real = 7;
    std::int16_t integer = 7;
    for (const int column : { 0, 1 }) { // the second is missing
        ExpectRefusal();
        EXPECT_FALSE(at.Real(column, real, kTens, kMessage));
        ExpectRefusal();
        EXPECT_FALSE(at.Integer(column, integer, { 0, 9 }, kMessage));
    }
    EXPECT_EQ(real, 7);
    EXPECT_EQ(integer, 7);
}

TEST_F(CsvRowsTest, TextGivesItsCode)
{
    const CodeTexts demodulations{ kDemodulationCodes };
    const CsvRows& at = At(QByteArray("x,") + demodulations.TextOf(5).toByteArray() + "\r\n");
    std::int16_t code = 0;
    EXPECT_TRUE(at.Coded(1, code, demodulations, kMessage));
    EXPECT_EQ(code, 5);
}

TEST_F(CsvRowsTest, UnknownTextIsRefusedAndChangesNothing)
{
    const CodeTexts demodulations{ kDemodulationCodes };
    const CodeTexts used{ kUsedStatusCodes };
    const CsvRows& at = At("x\r\n");
    std::int16_t code = 7;
    for (const CodeTexts* texts : { &demodulations, &used }) { // their codes of unknown texts differ
        ExpectRefusal();
        EXPECT_FALSE(at.Coded(0, code, *texts, kMessage));
        EXPECT_EQ(code, 7);
    }
}

TEST_F(CsvRowsTest, LongTextIsCut)
{
    const CsvRows& at = At("roof \xE4\r\n");
    QString text;
    EXPECT_TRUE(at.Text(0, text, 32, kMessage));
    EXPECT_EQ(text, QStringLiteral("roof \u00e4"));
    EXPECT_TRUE(at.Text(0, text, 2, kMessage));
    EXPECT_EQ(text, "ro");
    EXPECT_TRUE(at.Text(1, text, 2, kMessage));
    EXPECT_EQ(text, "");
}

TEST_F(CsvRowsTest, TextWithForbiddenCharacterIsRefused)
{
    const CsvRows& at = At("ro;of\r\n");
    QString text;
    ExpectRefusal();
    EXPECT_FALSE(at.Text(0, text, 32, kMessage));
    ExpectRefusal();
    EXPECT_FALSE(at.Text(0, text, 2, kMessage)) << "also where it is cut off";
}

} // namespace tarvik
