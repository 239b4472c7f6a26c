// Numbers with units: the way of writing of each unit, and the SI prefix in front of it.
#include "app/platform/debug.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/strings.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tarvik {

namespace {

constexpr TextNumber<0> kUnitsWithoutPrefix[] = { TextId::UnitDbMicrovolt, TextId::UnitDbMicrovoltPerMetre,
    TextId::UnitDbMicroampere, TextId::UnitDbMicroamperePerMetre, TextId::UnitDbmPerHertz, TextId::UnitDbWatt,
    TextId::UnitDecibel, TextId::UnitDecibelPerMetre, TextId::UnitDbCarrier, TextId::UnitRadian, TextId::UnitDegree,
    TextId::UnitCelsius, TextId::UnitPercent, TextId::UnitMinute, TextId::UnitDbm, TextId::UnitDbPicowatt,
    TextId::UnitMegahertz };
constexpr TextNumber<0> kMoreWithoutPrefixWhenSignificant[] = { TextId::UnitDbMicrovoltPerMegahertz,
    TextId::UnitDbMicroamperePerMegahertz, TextId::UnitDecibelPerHertz };

/// Cube root of 1024, so that three powers of it are one binary prefix.
constexpr double kBinaryBase = 10.07936839916;
constexpr double kDecimalBase = 10;

constexpr int kMostFixedDecimals = 32;
constexpr int kMostOptionalDecimals = 36;
constexpr int kLeastPower = -24;

bool IsUnit(const QString& unit, TextNumber<0> known)
{
    return unit.trimmed() == LngStr(known).trimmed();
}

template <typename Ids>
bool IsOneOf(const QString& unit, const Ids& ids)
{
    return std::any_of(std::begin(ids), std::end(ids), [&unit](TextNumber<0> id) { return IsUnit(unit, id); });
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
    TextNumber<0> Unit;
    Writing Way;
    int Parameter; ///< decimals of a fixed writing, digits of a significant one
};

/// The first row that matches decides.
constexpr UnitWriting kUnitWritings[] = { { TextId::UnitDegree, Writing::Fixed, 1 },
    { TextId::UnitDbMicrovolt, Writing::Fixed, 1 }, { TextId::UnitDbi, Writing::Fixed, 1 },
    { TextId::UnitDbPicowatt, Writing::Fixed, 1 }, { TextId::UnitDbm, Writing::Fixed, 1 },
    { TextId::UnitDbMicroamperePerMegahertz, Writing::Fixed, 1 },
    { TextId::UnitDbMicrovoltPerMegahertz, Writing::Fixed, 1 }, { TextId::UnitVolt, Writing::Significant, 4 },
    { TextId::UnitAmpere, Writing::Significant, 4 }, { TextId::UnitWatt, Writing::Significant, 4 },
    { TextId::UnitVoltPerMetre, Writing::Significant, 4 }, { TextId::UnitSecond, Writing::Significant, 4 },
    { TextId::UnitHertz, Writing::Optional, 0 }, { TextId::UnitBitPerSecond, Writing::Optional, 0 },
    { TextId::UnitByte, Writing::Refused, 0 }, { TextId::UnitDecibel, Writing::Fixed, 1 },
    { TextId::UnitMegahertz, Writing::Fixed, 3 }, { TextId::UnitMetre, Writing::Fixed, 4 } };

UnitWriting WritingOf(const QString& unit, double value)
{
    constexpr double kFromHereWhole = 1000;
    constexpr UnitWriting kWhole{ {}, Writing::Fixed, 0 };
    const auto row = std::find_if(std::begin(kUnitWritings), std::end(kUnitWritings),
        [&unit](const UnitWriting& candidate) { return IsUnit(unit, candidate.Unit); });
    if (row == std::end(kUnitWritings) || (row->Unit == TextId::UnitSecond && value >= kFromHereWhole))
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
        (IsUnit(unit, TextId::UnitSecond) && value > 1) || (IsUnit(unit, TextId::UnitMetre) && value < 1);
    const int used = TakesNoPrefix(unit) || isWhole ? 0 : power;
    const double scaled = Scaled(value, IsUnit(unit, TextId::UnitByte) ? kBinaryBase : kDecimalBase, used);
    unitText = StrPrefix(used) + unit;
    return FormatPicture(scaled, PictureWith(u'0', used - decimals, kMostFixedDecimals));
}

QString StrValueOptional(double value, int decimals, int power, const QString& unit, QString& unitText)
{
    const bool isWhole = IsUnit(unit, TextId::UnitSecond) && value > 1;
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
