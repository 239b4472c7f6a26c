// Numbers with units: the format of each unit, and its SI prefix.
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
constexpr TextNumber<0> kMoreUnitsWithoutPrefixIfSignificant[] = { TextId::UnitDbMicrovoltPerMegahertz,
    TextId::UnitDbMicroamperePerMegahertz, TextId::UnitDecibelPerHertz };

/// Cube root of 1024, so that three powers of it are one binary prefix.
constexpr double kBinaryBase = 10.07936839916;
constexpr double kDecimalBase = 10;

constexpr int kMaxFixedDecimals = 32;
constexpr int kMaxOptionalDecimals = 36;
constexpr int kMinPower = -24;

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

/// Dividing by a negative power of ten would add a rounding error.
double Scaled(double value, double base, int power)
{
    return power < 0 ? value * std::pow(base, -power) : value / std::pow(base, power);
}

QString PictureWith(char16_t digit, int decimals, int most)
{
    return decimals <= 0 ? QStringLiteral("0") : QStringLiteral("0.") + QString(std::min(decimals, most), digit);
}

enum class Format { Fixed, Significant, Optional, Refused };

struct UnitFormat {
    TextNumber<0> Unit;
    Format Kind;
    int Parameter; ///< decimals of a fixed format, digits of a significant one
};

/// The first row that matches decides.
constexpr UnitFormat kUnitFormats[] = { { TextId::UnitDegree, Format::Fixed, 1 },
    { TextId::UnitDbMicrovolt, Format::Fixed, 1 }, { TextId::UnitDbi, Format::Fixed, 1 },
    { TextId::UnitDbPicowatt, Format::Fixed, 1 }, { TextId::UnitDbm, Format::Fixed, 1 },
    { TextId::UnitDbMicroamperePerMegahertz, Format::Fixed, 1 },
    { TextId::UnitDbMicrovoltPerMegahertz, Format::Fixed, 1 }, { TextId::UnitVolt, Format::Significant, 4 },
    { TextId::UnitAmpere, Format::Significant, 4 }, { TextId::UnitWatt, Format::Significant, 4 },
    { TextId::UnitVoltPerMetre, Format::Significant, 4 }, { TextId::UnitSecond, Format::Significant, 4 },
    { TextId::UnitHertz, Format::Optional, 0 }, { TextId::UnitBitPerSecond, Format::Optional, 0 },
    { TextId::UnitByte, Format::Refused, 0 }, { TextId::UnitDecibel, Format::Fixed, 1 },
    { TextId::UnitMegahertz, Format::Fixed, 3 }, { TextId::UnitMetre, Format::Fixed, 4 } };

UnitFormat FormatOf(const QString& unit, double value)
{
    constexpr double kFirstWholeSeconds = 1000;
    constexpr UnitFormat kWhole{ {}, Format::Fixed, 0 };
    const auto row = std::find_if(std::begin(kUnitFormats), std::end(kUnitFormats),
        [&unit](const UnitFormat& candidate) { return IsUnit(unit, candidate.Unit); });
    if (row == std::end(kUnitFormats) || (row->Unit == TextId::UnitSecond && value >= kFirstWholeSeconds))
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
    return power < kMinPower ? 0 : power;
}

QString StrValueFormat(double value, QString& unit, bool autoPrefix)
{
    const int power = autoPrefix ? PowerOfThousand(value) : 0;
    const UnitFormat format = FormatOf(unit, value);
    const QString given = unit;
    switch (format.Kind) {
    case Format::Fixed:
        return StrValueFixed(value, -format.Parameter, 0, given, unit);
    case Format::Significant:
        return StrValueSignificant(value, format.Parameter, given, unit, autoPrefix);
    case Format::Optional:
        return StrValueOptional(value, power == 0 ? 3 : 0, power, given, unit);
    case Format::Refused:
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
    return FormatPicture(scaled, PictureWith(u'0', used - decimals, kMaxFixedDecimals));
}

QString StrValueOptional(double value, int decimals, int power, const QString& unit, QString& unitText)
{
    const bool isWhole = IsUnit(unit, TextId::UnitSecond) && value > 1;
    const int used = TakesNoPrefix(unit) || isWhole ? 0 : power;
    unitText = StrPrefix(used) + unit;
    return StrFormatTrim(Scaled(value, kDecimalBase, used), PictureWith(u'#', used - decimals, kMaxOptionalDecimals));
}

QString StrValueSignificant(double value, int digits, const QString& unit, QString& unitText, bool autoPrefix)
{
    constexpr int kLowestInPicture = -27;
    const bool takesNone = IsOneOf(unit, kUnitsWithoutPrefix) || IsOneOf(unit, kMoreUnitsWithoutPrefixIfSignificant);
    const int power = autoPrefix && !takesNone ? PowerOfThousand(value) : 0;
    const double scaled = Scaled(value, kDecimalBase, power);
    const QString plain = PlainNumberText(scaled);
    const int decimals = digits - (StrDigitPower(plain, DigitPowerMode::Highest) + 1);
    const int lowest = StrDigitPower(plain, DigitPowerMode::Lowest);
    QString picture = QStringLiteral("####################0");
    if (decimals > 0 && lowest < 0)
        picture += u'.' + QString(lowest >= kLowestInPicture ? decimals : 1, u'#');
    unitText = StrPrefix(power) + unit;
    return StrFormatTrim(scaled, picture);
}

} // namespace tarvik
