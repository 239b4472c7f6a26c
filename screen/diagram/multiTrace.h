// screen/diagram/multiTrace.h: the table that an editor shows as a diagram, and its conversion into traces.
#pragma once

#include "screen/diagram/traceBlocks.h"

#include <QString>

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace tarvik {

inline constexpr int kMaxTracePoints = 1000;
inline constexpr int kMaxTraceSeries = TVSWP_TRACES;
inline constexpr int kTraceSamples = TVSWP_SAMPLES;

/// Units of a table by their codes. Any other code means a quantity without unit.
enum class UnitCode : quint8 { None = 0, Hertz = 10, Degree = 11, DecibelPerMetre = 25 };

struct MultiTracePoint {
    double X = 0;
    double Y[kMaxTraceSeries] = {}; ///< one value per series
};
static_assert(sizeof(MultiTracePoint) == 32);

/// A table to be shown. Its rows are sorted by x, in either direction.
struct MultiTraceInput {
    QString Name; ///< title of the diagram
    UnitCode YUnit = UnitCode::None;
    UnitCode XUnit = UnitCode::None;
    qint16 PointCount = 0; ///< 1 to kMaxTracePoints
    qint16 SeriesCount = 0; ///< 1 to kMaxTraceSeries
    std::array<MultiTracePoint, kMaxTracePoints> Points{};
    std::array<QString, kMaxTraceSeries> SeriesNames; ///< for the legend; an empty one is replaced by its number
};

/// A point of one series.
struct TracePoint {
    double X = 0;
    double Y = 0;
};

/// kTraceSamples samples, linear in x from the first point to the last: the first sample belongs to the first point,
/// also if x falls. `points` is not empty. Of several points on one sample the last one decides; at the end of the
/// table it is the last but one. If first and last x are equal, every sample has the first value.
std::vector<double> Resample(std::span<const TracePoint> points);

/// Distance of the horizontal grid lines: a tenth of the range, rounded to a multiple of 0.1, at least 0.1. As it may
/// have been rounded down, ten of them can be up to half a unit less than the range.
double YStepOf(double smallest, double largest);

/// The traces of a table. Nothing for counts beyond the limits and for values that are not finite; nothing after a
/// report to the debug channel if there is no memory for the samples.
std::optional<OwnedTraces> ConvertTraces(const MultiTraceInput& input);

} // namespace tarvik
