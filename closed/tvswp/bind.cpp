#include "closed/tvswp/markers.h"
#include "closed/tvswp/stroke.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <utility>

namespace tvswp {

namespace {

constexpr int16_t kSuccess = 0;
constexpr int16_t kFailure = 1;

constexpr int32_t kMaxSide = 32767;
constexpr double kMaxScale = 16;
constexpr int32_t kMaxSamples = 1 << 20;

/// At scale 1, pixels.
constexpr double kLineRadius = 1;
constexpr double kOutline = 1;
constexpr double kMarkerRadius = 4;
constexpr double kMarkerDistance = 90;

/// Lines go on above and below the clip rectangle with their slope, up to this many pixels.
constexpr double kMaxOutside = 1e6;

constexpr uint32_t kDark = 0xFF202020;
constexpr uint32_t kLight = 0xFFFFFFFF;

bool IsSide(int32_t first, int32_t end)
{
    return first > -kMaxSide && end <= kMaxSide && end > first && end - first <= kMaxSide;
}

bool IsUsable(const TvSwpContext& context)
{
    return context.Pixels != nullptr && IsSide(0, context.Width) && IsSide(0, context.Height)
        && context.Stride >= context.Width && IsSide(context.Left, context.Right) && IsSide(context.Top, context.Bottom)
        && context.Scale > 0 && context.Scale <= kMaxScale;
}

bool IsUsable(const TraceSet& traces)
{
    const double height = traces.YTop - traces.YBottom;
    return std::isfinite(traces.YBottom) && std::isfinite(traces.YTop) && std::isfinite(height) && height > 0;
}

/// The samples of a trace; empty if it is not drawn.
std::vector<double> SamplesOf(const Trace& trace, TvSwpBlock block)
{
    const int32_t count = trace.SampleCount;
    if (trace.InUse != 1 || count < 2 || count > kMaxSamples)
        return {};
    uint32_t size = 0;
    const void* bytes = block(trace.Handle, &size);
    if (bytes == nullptr || size / sizeof(double) < static_cast<uint32_t>(count))
        return {};
    std::vector<double> samples(static_cast<size_t>(count));
    std::memcpy(samples.data(), bytes, samples.size() * sizeof(double));
    const bool isFinite = std::all_of(samples.begin(), samples.end(), [](double each) { return std::isfinite(each); });
    return isFinite ? samples : std::vector<double>();
}

/// The samples as points of the clip rectangle.
std::vector<Point> LineOf(const std::vector<double>& samples, const TraceSet& traces, const Canvas& canvas)
{
    const double xStep = canvas.Width() / static_cast<double>(samples.size() - 1);
    const double bottom = traces.YBottom;
    const double yScale = canvas.Height() / (traces.YTop - bottom);
    std::vector<Point> line(samples.size());
    for (size_t at = 0; at < samples.size(); ++at) {
        const double above = (samples[at] - bottom) * yScale;
        line[at] = { static_cast<double>(at) * xStep,
            std::clamp(canvas.Height() - above, -kMaxOutside, canvas.Height() + kMaxOutside) };
    }
    return line;
}

/// 0x00BBGGRR as 0xffRRGGBB.
uint32_t PixelOf(uint32_t colour)
{
    return 0xFF000000U | (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

bool IsVeryDark(uint32_t pixel)
{
    constexpr uint32_t kBrightest = 80;
    return std::max({ pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF }) < kBrightest;
}

/// A trace ready to be painted: all memory is there.
struct Drawing {
    std::vector<Point> Line;
    Stroke Outline;
    Stroke Core;
    MarkerStyle Markers;
};

Drawing DrawingOf(std::vector<Point> line, size_t position, uint32_t colour, double scale, const Canvas& canvas)
{
    const MarkerStyle markers{ static_cast<Marker>(position), kMarkerRadius * scale, kOutline * scale,
        kMarkerDistance * scale, colour, IsVeryDark(colour) ? kLight : kDark };
    Stroke outline(line, (kLineRadius + kOutline) * scale, canvas);
    Stroke core(line, kLineRadius * scale, canvas);
    return { std::move(line), std::move(outline), std::move(core), markers };
}

void Paint(const Canvas& canvas, const Drawing& drawing, StrokeScratch& scratch)
{
    drawing.Outline.Paint(canvas, drawing.Markers.OutlineColour, scratch);
    drawing.Core.Paint(canvas, drawing.Markers.Colour, scratch);
    PaintMarkers(canvas, drawing.Line, drawing.Markers);
}

void Draw(const TvSwpContext& context, const TraceSet& traces, TvSwpBlock block)
{
    const Canvas canvas(context);
    if (canvas.IsEmpty())
        return;
    std::vector<Drawing> drawings;
    for (size_t at = 0; at < TVSWP_TRACES; ++at) {
        const Trace& trace = traces.Traces[at];
        const std::vector<double> samples = SamplesOf(trace, block);
        if (!samples.empty())
            drawings.push_back(
                DrawingOf(LineOf(samples, traces, canvas), at, PixelOf(trace.Colour), context.Scale, canvas));
    }
    StrokeScratch scratch(canvas);
    for (const Drawing& drawing : drawings)
        Paint(canvas, drawing, scratch);
}

int16_t DrawTraces(const TvSwpContext* context, const TraceSet* traces, TvSwpBlock block)
{
    if (context == nullptr || traces == nullptr || block == nullptr || !IsUsable(*context) || !IsUsable(*traces))
        return kFailure;
    try {
        Draw(*context, *traces, block);
        return kSuccess;
    } catch (const std::bad_alloc&) {
        return kFailure;
    }
}

} // namespace

} // namespace tvswp

int16_t TvSwpBind(TvSwpApi* api)
{
    if (api == nullptr || api->Size < sizeof(TvSwpApi))
        return 1;
    api->SwpDrawTraces = &tvswp::DrawTraces;
    return 0;
}
