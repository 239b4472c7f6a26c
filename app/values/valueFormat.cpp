// Numbers with units: the way of writing of each unit, and the SI prefix in front of it.
#include "app/platform/debug.h"
#include "app/text/lang.h"
#include "app/values/strings.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tarvik {

namespace {

/// Units whose rules differ from those of their neighbours.
constexpr int kUnitWholeAboveOne = 14148;
constexpr int kUnitWholeBelowOne = 14152;
constexpr int kUnitBinary = 14162; ///< its prefixes count by 1024

constexpr int kUnitsWithoutPrefix[] = { 14118, 14119, 14120, 14121, 14122, 14123, 14125, 14126, 14127, 14130, 14131,
    14132, 14137, 14138, 14145, 14146, 14147 };
constexpr int kMoreWithoutPrefixWhenSignificant[] = { 14150, 14151, 14156 };

/// Cube root of 1024, so that three powers of it are one binary prefix.
constexpr double kBinaryBase = 10.07936839916;
constexpr double kDecimalBase = 10;

constexpr int kMostFixedDecimals = 32;
constexpr int kMostOptionalDecimals = 36;
constexpr int kLeastPower = -24;

bool IsUnit(const QString& unit, int textId)
{
    return unit.trimmed() == LngStr(textId).trimmed();
}

template <typename Ids>
bool IsOneOf(const QString& unit, const Ids& ids)
{
    return std::any_of(std::begin(ids), std::end(ids), [&unit](int id) { return IsUnit(unit, id); });
}

bool TakesNoPrefix(const QString& unit)
{
    return unit.trimmed().isEmpty() || IsOneOf(unit, kUnitsWithoutPrefix);
}

/// Dividing by ten to a negative power would add an error of its own.
double Scaled(double value, double base, int power)
{
    return power < 0 ? value * std::pow(base, -power) : value / std::pow(base, power);
}

QString PictureWith(char16_t digit, int decimals, int most)
{
    return decimals <= 0 ? QStringLiteral("0") : QStringLiteral("0.") + QString(std::min(decimals, most), digit);
}

enum class Writing { Fixed, Significant, Optional, Refused };

struct UnitWriting {
    int UnitId;
    Writing Way;
    int Parameter; ///< decimals of a fixed writing, digits of a significant one
};

/// The first row that matches decides.
constexpr UnitWriting kUnitWritings[] = { { 14131, Writing::Fixed, 1 }, { 14118, Writing::Fixed, 1 },
    { 14157, Writing::Fixed, 1 }, { 14146, Writing::Fixed, 1 }, { 14145, Writing::Fixed, 1 },
    { 14151, Writing::Fixed, 1 }, { 14150, Writing::Fixed, 1 }, { 14117, Writing::Significant, 4 },
    { 14129, Writing::Significant, 4 }, { 14153, Writing::Significant, 4 }, { 14160, Writing::Significant, 4 },
    { 14148, Writing::Significant, 4 }, { 14116, Writing::Optional, 0 }, { 14154, Writing::Optional, 0 },
    { kUnitBinary, Writing::Refused, 0 }, { 14125, Writing::Fixed, 1 }, { 14147, Writing::Fixed, 3 },
    { 14152, Writing::Fixed, 4 } };

UnitWriting WritingOf(const QString& unit, double value)
{
    constexpr double kFromHereWhole = 1000;
    constexpr UnitWriting kWhole{ 0, Writing::Fixed, 0 };
    const auto row = std::find_if(std::begin(kUnitWritings), std::end(kUnitWritings),
        [&unit](const UnitWriting& candidate) { return IsUnit(unit, candidate.UnitId); });
    if (row == std::end(kUnitWritings) || (row->UnitId == kUnitWholeAboveOne && value >= kFromHereWhole))
        return kWhole;
    return *row;
}

} // namespace

int PowerOfThousand(double value)
{
    double rest = std::abs(value);
    if (rest == 0 || !std::isfinite(rest))
        return 0;
    int power = 0;
    for (; rest < 1; power -= 3)
        rest *= 1000;
    for (; rest >= 1000; power += 3)
        rest /= 1000;
    return power < kLeastPower ? 0 : power;
}

QString StrValueFormat(double value, QString& unit, bool autoPrefix)
{
    const int power = autoPrefix ? PowerOfThousand(value) : 0;
    const UnitWriting writing = WritingOf(unit, value);
    const QString given = unit;
    switch (writing.Way) {
    case Writing::Fixed:
        return StrValueFixed(value, -writing.Parameter, 0, given, unit);
    case Writing::Significant:
        return StrValueSignificant(value, writing.Parameter, given, unit, autoPrefix);
    case Writing::Optional:
        return StrValueOptional(value, power == 0 ? 3 : 0, power, given, unit);
    case Writing::Refused:
        break;
    }
    DebugAssert("StrValueFormat", false);
    return {};
}

QString StrValueFixed(double value, int decimals, int power, const QString& unit, QString& unitText)
{
    const bool isWhole =
        (IsUnit(unit, kUnitWholeAboveOne) && value > 1) || (IsUnit(unit, kUnitWholeBelowOne) && value < 1);
    const int used = TakesNoPrefix(unit) || isWhole ? 0 : power;
    const double scaled = Scaled(value, IsUnit(unit, kUnitBinary) ? kBinaryBase : kDecimalBase, used);
    unitText = StrPrefix(used) + unit;
    return FormatPicture(scaled, PictureWith(u'0', used - decimals, kMostFixedDecimals));
}

QString StrValueOptional(double value, int decimals, int power, const QString& unit, QString& unitText)
{
    const bool isWhole = IsUnit(unit, kUnitWholeAboveOne) && value > 1;
    const int used = TakesNoPrefix(unit) || isWhole ? 0 : power;
    unitText = StrPrefix(used) + unit;
    return StrFormatTrim(Scaled(value, kDecimalBase, used), PictureWith(u'#', used - decimals, kMostOptionalDecimals));
}

QString StrValueSignificant(double value, int digits, const QString& unit, QString& unitText, bool autoPrefix)
{
    constexpr int kLowestInPicture = -27;
    const bool takesNone = IsOneOf(unit, kUnitsWithoutPrefix) || IsOneOf(unit, kMoreWithoutPrefixWhenSignificant);
    const int power = autoPrefix && !takesNone ? PowerOfThousand(value) : 0;
    const double scaled = Scaled(value, kDecimalBase, power);
    const QString plain = PlainNumberText(scaled);
    const int decimals = digits - (StrDigitPower(plain, DigitPowerHighest) + 1);
    const int lowest = StrDigitPower(plain, DigitPowerLowest);
    QString picture = QStringLiteral("####################0");
    if (decimals > 0 && lowest < 0)
        picture += u'.' + QString(lowest >= kLowestInPicture ? decimals : 1, u'#');
    unitText = StrPrefix(power) + unit;
    return StrFormatTrim(scaled, picture);
}

} // namespace tarvik
