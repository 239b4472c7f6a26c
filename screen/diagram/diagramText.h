// screen/diagram/diagramText.h: the texts of a diagram: labels of its axes with units, legend.
#pragma once

#include "screen/diagram/diagramContent.h"

#include <QString>

#include <array>
#include <vector>

namespace tarvik {

inline constexpr int kDivisions = 10;
using AxisLabels = std::array<QString, kDivisions + 1>;

struct DiagramText {
    QString Title;
    std::vector<QString> Legend; ///< by trace
    QString LegendSeparator;
    QString XCaption; ///< quantity and unit
    QString YCaption; ///< unit
    AxisLabels XLabels; ///< left to right
    AxisLabels YLabels; ///< bottom to top
};

/// One SI prefix serves all labels of the x axis, so they are plain numbers, and the unit is in the caption. Labels
/// between the ends of the x axis are rounded to a thousandth of the range's highest digit. Labels of the y axis have
/// one decimal, as the steps are multiples of 0.1. An x axis without range has its one value in the middle.
DiagramText DiagramTextOf(const DiagramContent& content);

} // namespace tarvik
