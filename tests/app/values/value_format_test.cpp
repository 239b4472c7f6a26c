#include "app/text/lang.h"
#include "app/values/strings.h"
#include "tests/support/fixture.h"

#include <limits>
#include <set>

namespace tarvik {

class ValueFormat : public ProgramTest {
protected:
    struct Result {
        QString Text;
        QString Unit;
        bool operator==(const Result&) const = default;
    };
    friend void PrintTo(const Result& result, std::ostream* out)
    {
        *out << result.Text.toStdString() << ' ' << result.Unit.toStdString();
    }

    static Result Formatted(double value, int unitId, bool autoPrefix = true)
    {
        QString unit = LngStr(unitId);
        const QString text = StrValueFormat(value, unit, autoPrefix);
        return { text, unit };
    }

    /// The result with the prefix `prefixId` (0 for none).
    static Result Is(const char* text, int prefixId, int unitId)
    {
        return { QString::fromLatin1(text), (prefixId == 0 ? QString() : LngStr(prefixId)) + LngStr(unitId) };
    }
};

TEST_F(ValueFormat, UnitsAreDistinct)
{
    QStringList units;
    for (int id = 14116; id <= 14162; ++id)
        units.append(LngStr(id).trimmed());
    EXPECT_FALSE(units.contains(QString()));
    EXPECT_EQ(units.removeDuplicates(), 0);
}

TEST_F(ValueFormat, FrequencyGetsItsPrefix)
{
    EXPECT_EQ(Formatted(1234, 14116), Is("1.234", 14108, 14116));
    EXPECT_EQ(Formatted(1200000, 14116), Is("1.2", 14109, 14116));
    EXPECT_EQ(Formatted(446006250, 14116), Is("446.00625", 14109, 14116));
    EXPECT_EQ(Formatted(8e9, 14116), Is("8", 14110, 14116));
}

TEST_F(ValueFormat, FrequencyBelowAThousandHasNoDecimals)
{
    EXPECT_EQ(Formatted(12.3, 14116), Is("12", 0, 14116));
    EXPECT_EQ(Formatted(0, 14116), Is("0", 0, 14116));
    EXPECT_EQ(Formatted(0.5, 14116), Is("500", 14107, 14116));
}

TEST_F(ValueFormat, HasNoPrefixWithoutAutoPrefix)
{
    EXPECT_EQ(Formatted(1234567, 14116, false), Is("1234567", 0, 14116));
    EXPECT_EQ(Formatted(0.0012, 14117, false), Is("0.0012", 0, 14117));
}

TEST_F(ValueFormat, LevelsHaveOneDecimalAndNoPrefix)
{
    for (const int unit : { 14131, 14118, 14157, 14146, 14145, 14151, 14150, 14125 })
        EXPECT_EQ(Formatted(1234.55, unit), Is("1234.6", 0, unit)) << unit;
}

TEST_F(ValueFormat, ElectricUnitsHaveFourDigits)
{
    for (const int unit : { 14117, 14129, 14153, 14160 }) {
        EXPECT_EQ(Formatted(0.0123456, unit), Is("12.35", 14107, unit)) << unit;
        EXPECT_EQ(Formatted(1500, unit), Is("1.5", 14108, unit)) << unit;
        EXPECT_EQ(Formatted(123456, unit), Is("123.5", 14108, unit)) << unit;
    }
}

TEST_F(ValueFormat, TimesHaveFourDigitsUpToAThousandAndNoneFromThere)
{
    EXPECT_EQ(Formatted(999.94, 14148), Is("999.9", 0, 14148));
    EXPECT_EQ(Formatted(999.95, 14148), Is("1000", 0, 14148));
    EXPECT_EQ(Formatted(1000, 14148), Is("1000", 0, 14148));
    EXPECT_EQ(Formatted(12345.6, 14148), Is("12346", 0, 14148));
    EXPECT_EQ(Formatted(0.0015, 14148), Is("1.5", 14107, 14148));
}

TEST_F(ValueFormat, OtherUnitsHaveTheirOwnDecimals)
{
    EXPECT_EQ(Formatted(1.23456, 14147), Is("1.235", 0, 14147));
    EXPECT_EQ(Formatted(1.23456, 14152), Is("1.2346", 0, 14152));
    EXPECT_EQ(Formatted(0.00004, 14152), Is("0.0000", 0, 14152));
    EXPECT_EQ(Formatted(64000, 14154), Is("64", 14108, 14154));
    EXPECT_EQ(Formatted(99.6, 14137), Is("100", 0, 14137));
}

TEST_F(ValueFormat, UnitsWithoutAFormatHaveNeitherDecimalsNorPrefix)
{
    const std::set<int> own{ 14116, 14117, 14118, 14125, 14129, 14131, 14145, 14146, 14147, 14148, 14150, 14151, 14152,
        14153, 14154, 14157, 14160, 14162 };
    for (int unit = 14116; unit <= 14162; ++unit) {
        if (own.contains(unit))
            continue;
        EXPECT_EQ(Formatted(1234.5, unit), Is("1235", 0, unit)) << unit;
    }
}

TEST_F(ValueFormat, EachFormatHasItsUnitsWithoutPrefix)
{
    const std::set<int> never{ 14118, 14119, 14120, 14121, 14122, 14123, 14125, 14126, 14127, 14130, 14131, 14132,
        14137, 14138, 14145, 14146, 14147 };
    const std::set<int> neverWhenSignificant{ 14150, 14151, 14156 };
    for (int id = 14116; id <= 14162; ++id) {
        const QString unit = LngStr(id);
        const auto expected = [&unit](bool takesNone) { return (takesNone ? QString() : LngStr(14108)) + unit; };
        QString shown;
        StrValueFixed(1500, 0, 3, unit, shown);
        EXPECT_EQ(shown, expected(never.contains(id) || id == 14148)) << id;
        StrValueOptional(1500, 0, 3, unit, shown);
        EXPECT_EQ(shown, expected(never.contains(id) || id == 14148)) << id;
        StrValueSignificant(1500, 4, unit, shown, true);
        EXPECT_EQ(shown, expected(never.contains(id) || neverWhenSignificant.contains(id))) << id;
    }
}

TEST_F(ValueFormat, EmptyUnitTakesAPrefixOnlyWithSignificantDigits)
{
    QString unit;
    EXPECT_EQ(StrValueOptional(1500, 0, 3, "", unit), "1500");
    EXPECT_EQ(unit, "");
    EXPECT_EQ(StrValueSignificant(1500, 4, "", unit, true), "1.5");
    EXPECT_EQ(unit, "k");
}

TEST_F(ValueFormat, ValueOfOneKeepsItsPower)
{
    QString unit;
    EXPECT_EQ(StrValueFixed(1, 0, -3, LngStr(14148), unit), "1000");
    EXPECT_EQ(unit, "ms");
    EXPECT_EQ(StrValueOptional(1, 0, -3, LngStr(14148), unit), "1000");
    EXPECT_EQ(unit, "ms");
    EXPECT_EQ(StrValueFixed(1, 0, 3, LngStr(14152), unit), "0.001");
    EXPECT_EQ(unit, "km");
}

TEST_F(ValueFormat, UnknownUnitHasNoDecimals)
{
    QString unit = QStringLiteral("apples");
    EXPECT_EQ(StrValueFormat(1234.5, unit, true), "1235");
    EXPECT_EQ(unit, "apples");
}

TEST_F(ValueFormat, BytesAreRefused)
{
    EXPECT_EQ(Formatted(1024, 14162), Is("", 0, 14162));
}

TEST_F(ValueFormat, UnitIsComparedTrimmed)
{
    QString unit = u' ' + LngStr(14125) + u' ';
    EXPECT_EQ(StrValueFormat(1.25, unit, true), "1.3");
}

TEST_F(ValueFormat, FollowsTheRegion)
{
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(Formatted(1234, 14116), Is("1,234", 14108, 14116));
    EXPECT_EQ(Formatted(5000, 14116), Is("5", 14108, 14116));
}

TEST_F(ValueFormat, FixedCountsDecimalsFromThePower)
{
    QString unit;
    EXPECT_EQ(StrValueFixed(1234567, 0, 3, LngStr(14116), unit), "1234.567");
    EXPECT_EQ(unit, "kHz");
    EXPECT_EQ(StrValueFixed(1234567, 3, 3, LngStr(14116), unit), "1235");
    EXPECT_EQ(StrValueFixed(12, 5, 0, LngStr(14116), unit), "12");
    EXPECT_EQ(StrValueFixed(12, -50, 0, LngStr(14116), unit), "12." + QString(32, '0'));
}

TEST_F(ValueFormat, FixedDropsThePowerOfUnitsWithoutPrefix)
{
    QString unit;
    EXPECT_EQ(StrValueFixed(1234, -1, 3, LngStr(14145), unit), "1234.0");
    EXPECT_EQ(unit, "dBm");
    EXPECT_EQ(StrValueFixed(1234, -1, 3, "", unit), "1234.0");
    EXPECT_EQ(StrValueFixed(2, 0, 3, LngStr(14148), unit), "2");
    EXPECT_EQ(StrValueFixed(0.5, 0, -3, LngStr(14148), unit), "500");
    EXPECT_EQ(unit, "ms");
    EXPECT_EQ(StrValueFixed(0.5, -1, -3, LngStr(14152), unit), "0.5");
    EXPECT_EQ(StrValueFixed(2000, 2, 3, LngStr(14152), unit), "2.0");
    EXPECT_EQ(unit, "km");
}

TEST_F(ValueFormat, FixedCountsBytesBy1024)
{
    QString unit;
    EXPECT_EQ(StrValueFixed(1024, 0, 3, LngStr(14162), unit), "1.000");
    EXPECT_EQ(StrValueFixed(1572864, 5, 6, LngStr(14162), unit), "1.5");
    EXPECT_EQ(unit, "MB");
}

TEST_F(ValueFormat, FixedShowsAQuestionMarkForAPowerWithoutPrefix)
{
    QString unit;
    StrValueFixed(1, 0, 4, LngStr(14116), unit);
    EXPECT_EQ(unit, "?Hz");
}

TEST_F(ValueFormat, OptionalOmitsZerosAndPoint)
{
    QString unit;
    EXPECT_EQ(StrValueOptional(5000, 0, 3, LngStr(14116), unit), "5");
    EXPECT_EQ(StrValueOptional(5250, 0, 3, LngStr(14116), unit), "5.25");
    EXPECT_EQ(StrValueOptional(5250, 2, 3, LngStr(14116), unit), "5.3");
    EXPECT_EQ(StrValueOptional(5.25, -2, 3, LngStr(14145), unit), "5.25");
    EXPECT_EQ(StrValueOptional(2.5, 0, 3, LngStr(14148), unit), "3");
    EXPECT_EQ(unit, "s");
}

TEST_F(ValueFormat, SignificantDigitsCountFromTheFirstOne)
{
    QString unit;
    EXPECT_EQ(StrValueSignificant(0.00012345, 3, LngStr(14117), unit, false), "0.000123");
    EXPECT_EQ(StrValueSignificant(123456, 3, LngStr(14117), unit, false), "123456");
    EXPECT_EQ(StrValueSignificant(0, 4, LngStr(14117), unit, true), "0");
    EXPECT_EQ(StrValueSignificant(-12.3456, 4, LngStr(14117), unit, true), "-12.35");
    EXPECT_EQ(unit, "V");
}

TEST_F(ValueFormat, SignificantWithDigitsFarBelowThePointKeepsOneDecimal)
{
    QString unit;
    EXPECT_EQ(StrValueSignificant(1.25e-27, 4, LngStr(14117), unit, false), "0");
}

TEST_F(ValueFormat, SignificantHasDigitsDownToThe27thDecimal)
{
    QString unit;
    EXPECT_EQ(StrValueSignificant(3e-27, 4, LngStr(14117), unit, false), "0." + QString(26, '0') + '3');
    EXPECT_EQ(StrValueSignificant(3e-28, 4, LngStr(14117), unit, false), "0");
}

TEST_F(ValueFormat, OptionalHasAtMost36Decimals)
{
    QString unit;
    EXPECT_EQ(StrValueOptional(3e-36, -50, 0, LngStr(14116), unit), "0." + QString(35, '0') + '3');
    EXPECT_EQ(StrValueOptional(3e-37, -50, 0, LngStr(14116), unit), "0");
}

TEST_F(ValueFormat, SignificantDropsThePrefixOfMoreUnits)
{
    QString unit;
    EXPECT_EQ(StrValueSignificant(1234.5, 4, LngStr(14156), unit, true), "1235");
    EXPECT_EQ(unit, "dB/Hz");
}

TEST_F(ValueFormat, PowerOfThousandCountsInThrees)
{
    EXPECT_EQ(PowerOfThousand(0), 0);
    EXPECT_EQ(PowerOfThousand(1), 0);
    EXPECT_EQ(PowerOfThousand(999.999), 0);
    EXPECT_EQ(PowerOfThousand(1000), 3);
    EXPECT_EQ(PowerOfThousand(-1e6), 6);
    EXPECT_EQ(PowerOfThousand(0.5), -3);
    EXPECT_EQ(PowerOfThousand(0.0005), -6);
    EXPECT_EQ(PowerOfThousand(1.5e-24), -24);
    EXPECT_EQ(PowerOfThousand(1e-30), 0);
    EXPECT_EQ(PowerOfThousand(std::numeric_limits<double>::infinity()), 0);
}

} // namespace tarvik
