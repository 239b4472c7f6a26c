// screen/diagram/diagramContent.h: what the texts of a diagram tell about its traces.
#pragma once

#include "screen/diagram/multiTrace.h"

#include <QString>

#include <array>
#include <vector>

namespace tarvik {

/// What of the data is seen: all of it.
struct DiagramView {
    double XFirst = 0;
    double XLast = 0;
    double XStep = 0;
    double YBottom = 0;
    double YTop = 0;
    double YStep = 0;
    std::array<bool, 2> Flags{};
};

struct DiagramContent {
    QString Name;
    UnitCode XUnit = UnitCode::None;
    UnitCode YUnit = UnitCode::None;
    std::vector<QString> SeriesNames; ///< of the traces in use
    DiagramView View;
};

/// Content of the diagram of a table and its traces.
DiagramContent DiagramContentOf(const MultiTraceInput& input, const TraceSet& set);

} // namespace tarvik
