// tests/screen/diagram/diagram_fixture.h: tables to be shown as diagrams.
#pragma once

#include "screen/diagram/diagram.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

/// A K-factor table of an antenna: rising, with ripples. `points` from 30 MHz to 1 GHz.
inline MultiTraceInput KfactorInput(int points = 200, int series = 2)
{
    MultiTraceInput input;
    input.Name = QStringLiteral("Biconical 30-1000");
    input.XUnit = UnitCode::Hertz;
    input.YUnit = UnitCode::DecibelPerMetre;
    input.PointCount = static_cast<qint16>(points);
    input.SeriesCount = static_cast<qint16>(series);
    for (int at = 0; at < points; ++at) {
        const double part = points == 1 ? 0 : static_cast<double>(at) / (points - 1);
        const double passive = 8 + 16 * part + 2 * std::sin(20 * part);
        input.Points[static_cast<size_t>(at)] = { 30e6 + 970e6 * part, { passive, passive - 9 + 2 * part, 5 + part } };
    }
    input.SeriesNames = { QStringLiteral("Passive"), QStringLiteral("Active"), QStringLiteral("Third") };
    return input;
}

} // namespace tarvik
