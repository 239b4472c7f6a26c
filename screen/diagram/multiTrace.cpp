#include "screen/diagram/multiTrace.h"

#include "app/platform/debug.h"
#include "app/values/general.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double kXSteps = 631; // given so, although there are 629 distances between the samples
constexpr double kYDivisions = 10;
constexpr double kYRounding = 0.1;

/// Of the traces by position. 0x00BBGGRR.
constexpr std::array<uint32_t, kMaxTraceSeries> kTraceColours{ 0x0000FF, 0x10F3F7, 0x00FF00 };

using Table = std::span<const MultiTracePoint>;

bool IsFinite(const MultiTracePoint& point, int series)
{
    return std::isfinite(point.X)
        && std::all_of(point.Y, point.Y + series, [](double value) { return std::isfinite(value); });
}

/// The rows in use; empty if the table can't be shown.
Table TableOf(const MultiTraceInput& input)
{
    const bool isWithinLimits = input.PointCount >= 1 && input.PointCount <= kMaxTracePoints && input.SeriesCount >= 1
        && input.SeriesCount <= kMaxTraceSeries;
    if (!isWithinLimits)
        return {};
    const Table table(input.Points.data(), static_cast<size_t>(input.PointCount));
    const bool isFinite = std::all_of(table.begin(), table.end(),
        [&input](const MultiTracePoint& point) { return IsFinite(point, input.SeriesCount); });
    return isFinite ? table : Table();
}

std::vector<TracePoint> SeriesOf(Table table, int series)
{
    std::vector<TracePoint> points;
    points.reserve(table.size());
    for (const MultiTracePoint& point : table)
        points.push_back({ point.X, point.Y[series] });
    return points;
}

void FillLimits(TraceSet& set, Table table, double smallest, double largest)
{
    set.XFirst = table.front().X;
    set.XLast = table.back().X;
    set.XStep = (set.XLast - set.XFirst) / kXSteps;
    set.YStep = YStepOf(smallest, largest);
    set.YBottom = smallest;
    set.YTop = set.YStep * kYDivisions + smallest;
}

bool FillTrace(Trace& trace, const MultiTraceInput& input, size_t series, const std::vector<double>& samples)
{
    trace.XUnit = static_cast<uint8_t>(input.XUnit);
    trace.YUnit = static_cast<uint8_t>(input.YUnit);
    trace.YScale = 1.0; // rounded in any of the units it is the same
    trace.XScaleUnit = trace.XUnit;
    trace.XScale = 1.0;
    trace.Percent = 100.0;
    trace.Colour = kTraceColours[series];
    return TraceFill(trace, samples);
}

/// Index of the sample nearest below an x; limited, for a table that is not sorted.
int SampleAt(double x, double first, double range)
{
    const double at = (x - first) * (kTraceSamples - 1) / range;
    return static_cast<int>(std::clamp(at, 0.0, static_cast<double>(kTraceSamples - 1)));
}

} // namespace

std::vector<double> Resample(std::span<const TracePoint> points)
{
    std::vector<double> samples(kTraceSamples, points.front().Y);
    const double first = points.front().X;
    const double range = points.back().X - first;
    if (range == 0)
        return samples;
    double slope = 0;
    int reached = 0;
    for (size_t at = 1; at < points.size(); ++at) {
        const TracePoint& from = points[at - 1];
        const int a = SampleAt(from.X, first, range);
        const int b = SampleAt(points[at].X, first, range);
        if (b > a)
            slope = (points[at].Y - from.Y) / (b - a);
        for (int sample = a; sample <= b; ++sample)
            samples[static_cast<size_t>(sample)] = from.Y + (sample - a) * slope;
        reached = std::max(reached, b);
    }
    std::fill(samples.begin() + reached + 1, samples.end(), points.back().Y);
    return samples;
}

double YStepOf(double smallest, double largest)
{
    return std::max(RoundToStep((largest - smallest) / kYDivisions, kYRounding), kYRounding);
}

std::optional<OwnedTraces> ConvertTraces(const MultiTraceInput& input)
{
    const Table table = TableOf(input);
    if (table.empty())
        return std::nullopt;
    OwnedTraces traces;
    double smallest = table.front().Y[0];
    double largest = smallest;
    for (int series = 0; series < input.SeriesCount; ++series) {
        const std::vector<double> samples = Resample(SeriesOf(table, series));
        const auto [least, most] = std::minmax_element(samples.begin(), samples.end());
        smallest = std::min(smallest, *least);
        largest = std::max(largest, *most);
        const auto at = static_cast<size_t>(series);
        if (!FillTrace(traces.Set.Traces[at], input, at, samples)) {
            DebugReport("DvConvertMultiTraceData");
            return std::nullopt;
        }
    }
    traces.Set.SeriesCount = input.SeriesCount;
    FillLimits(traces.Set, table, smallest, largest);
    const bool isFinite = std::isfinite(traces.Set.XStep) && std::isfinite(traces.Set.YTop);
    return isFinite ? std::optional(std::move(traces)) : std::nullopt;
}

} // namespace tarvik
