#include "screen/diagram/diagramText.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "app/values/strings.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

const QString kSeparator = QStringLiteral(" : ");

QString UnitText(UnitCode unit)
{
    switch (unit) {
    case UnitCode::Hertz:
        return LngStr(TextId::UnitHertz).trimmed();
    case UnitCode::Degree:
        return LngStr(TextId::UnitDegree).trimmed();
    case UnitCode::DecibelPerMetre:
        return LngStr(TextId::UnitDecibelPerMetre).trimmed();
    default:
        return {};
    }
}

/// `value` without the digits that no reader of a label of this axis needs.
double RoundedForLabel(double value, double range)
{
    constexpr int kDigits = 3; // after the highest one of the range
    return RoundToStep(value, std::pow(10.0, std::floor(std::log10(std::abs(range))) - kDigits));
}

/// Power of ten of the prefix with which the largest value has two digits or more before its point, if any does: tables
/// up to 10 GHz are in MHz, as in the editors.
int PrefixPowerOf(double largest)
{
    constexpr double kTwoDigits = 10;
    constexpr int kThousand = 3;
    const int power = PowerOfThousand(largest);
    return power > 0 && largest / std::pow(10.0, power) < kTwoDigits ? power - kThousand : power;
}

/// Labels of the x axis; `unit` gets its prefix.
AxisLabels XLabelsOf(const DiagramView& view, QString& unit)
{
    const int power = PrefixPowerOf(std::max(std::abs(view.XFirst), std::abs(view.XLast)));
    const QString plain = unit;
    const auto text = [&](double value) { return StrValueOptional(value, power == 0 ? -3 : 0, power, plain, unit); };
    AxisLabels labels;
    const double range = view.XLast - view.XFirst;
    if (range == 0) {
        labels[kDivisions / 2] = text(view.XFirst);
        return labels;
    }
    for (size_t at = 1; at < kDivisions; ++at)
        labels[at] = text(RoundedForLabel(view.XFirst + range * static_cast<double>(at) / kDivisions, range));
    labels.front() = text(view.XFirst);
    labels.back() = text(view.XLast);
    return labels;
}

AxisLabels YLabelsOf(const DiagramView& view, const QString& unit)
{
    constexpr int kOneDecimal = -1;
    AxisLabels labels;
    QString unitText;
    for (size_t at = 0; at < labels.size(); ++at)
        labels[at] = StrValueFixed(view.YBottom + static_cast<double>(at) * view.YStep, kOneDecimal, 0, unit, unitText);
    return labels;
}

} // namespace

DiagramText DiagramTextOf(const DiagramContent& content)
{
    DiagramText text;
    text.Title = content.Name;
    text.Legend = content.SeriesNames;
    text.LegendSeparator = kSeparator;
    QString unit = UnitText(content.XUnit);
    text.XLabels = XLabelsOf(content.View, unit);
    text.XCaption = LngStr(TextId::Frequency) + (unit.isEmpty() ? QString() : kSeparator + unit);
    text.YCaption = UnitText(content.YUnit);
    text.YLabels = YLabelsOf(content.View, text.YCaption);
    return text;
}

} // namespace tarvik
