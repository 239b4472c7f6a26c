// The module of traces through its table of operations.
#include "closed/tvswp.h"
#include "tests/closed/scarcememory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr uint32_t kPaper = 0xffcecbce;
constexpr uint32_t kRed = 0xffff0000;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The caller's table of blocks: handles are 1, 2 and 3.
std::vector<std::vector<double>>& Blocks()
{
    static std::vector<std::vector<double>> blocks;
    return blocks;
}

const void* BlockOf(uint32_t handle, uint32_t* size)
{
    if (handle == 0 || handle > Blocks().size())
        return nullptr;
    const std::vector<double>& block = Blocks()[handle - 1];
    *size = static_cast<uint32_t>(block.size() * sizeof(double));
    return block.data();
}

class Traces : public testing::Test {
protected:
    Traces()
    {
        swp.Size = sizeof swp;
        EXPECT_EQ(TvSwpBind(&swp), 0);
        Blocks().clear();
        set.YTop = 10;
        SetSize(400, 200);
        context.Scale = 1;
    }

    void SetSize(int width, int height)
    {
        pixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), kPaper);
        context.Pixels = pixels.data();
        context.Width = width;
        context.Height = height;
        context.Stride = width;
        SetClip(0, 0, width, height);
    }

    void SetClip(int left, int top, int right, int bottom)
    {
        context.Left = left;
        context.Top = top;
        context.Right = right;
        context.Bottom = bottom;
    }

    /// A trace at the next position, with a value for each sample.
    void Add(const std::function<double(int)>& value, uint32_t colour = 0x0000FF)
    {
        Trace& trace = set.Traces[Blocks().size()];
        std::vector<double> samples(TVSWP_SAMPLES);
        for (int at = 0; at < TVSWP_SAMPLES; ++at)
            samples[static_cast<size_t>(at)] = value(at);
        Blocks().push_back(samples);
        trace.SampleCount = TVSWP_SAMPLES;
        trace.InUse = 1;
        trace.Handle = static_cast<uint32_t>(Blocks().size());
        trace.Colour = colour;
    }

    void AddLevel(double value, uint32_t colour = 0x0000FF)
    {
        Add([value](int) { return value; }, colour);
    }

    int16_t Draw()
    {
        return swp.SwpDrawTraces(&context, &set, &BlockOf);
    }

    uint32_t At(int x, int y) const
    {
        return pixels[static_cast<size_t>(y) * static_cast<size_t>(context.Stride) + static_cast<size_t>(x)];
    }

    bool IsUnchanged() const
    {
        return std::all_of(pixels.begin(), pixels.end(), [](uint32_t pixel) { return pixel == kPaper; });
    }

    int Count(uint32_t colour) const
    {
        return static_cast<int>(std::count(pixels.begin(), pixels.end(), colour));
    }

    /// Red pixels in other rows than these: of markers.
    int RedBesideLine(int first, int last) const
    {
        int count = 0;
        for (int y = 0; y < context.Height; ++y) {
            for (int x = 0; x < context.Width; ++x)
                count += (y < first || y > last) && At(x, y) == kRed ? 1 : 0;
        }
        return count;
    }

    void ExpectRefused()
    {
        EXPECT_NE(Draw(), 0);
        EXPECT_TRUE(IsUnchanged());
    }

    TvSwpApi swp{};
    TraceSet set{};
    TvSwpContext context{};
    std::vector<uint32_t> pixels;
};

/// Distance from a point to the nearest of the segments between the samples, up to 3 pixels to either side.
double DistanceTo(const std::vector<double>& heights, double xStep, double x, double y)
{
    double nearest = kInfinity;
    const auto first = static_cast<size_t>(std::max((x - 3) / xStep, 1.0));
    const auto end = std::min(static_cast<size_t>((x + 3) / xStep) + 2, heights.size());
    for (size_t at = first; at < end; ++at) {
        const double x0 = static_cast<double>(at - 1) * xStep;
        const double dy = heights[at] - heights[at - 1];
        const double along =
            std::clamp(((x - x0) * xStep + (y - heights[at - 1]) * dy) / (xStep * xStep + dy * dy), 0.0, 1.0);
        nearest = std::min(nearest, std::hypot(x - x0 - along * xStep, y - heights[at - 1] - along * dy));
    }
    return nearest;
}

/// Parts of a pixel within 1 and within 2 of the curve, from many points in it.
std::pair<double, double> CoveredParts(const std::vector<double>& heights, double xStep, int x, int y)
{
    constexpr int kParts = 8;
    int line = 0;
    int outlined = 0;
    for (int part = 0; part < kParts * kParts; ++part) {
        const double px = x + (part % kParts + 0.5) / kParts;
        const double py = y + (part / kParts + 0.5) / kParts;
        const double distance = DistanceTo(heights, xStep, px, py);
        line += distance <= 1 ? 1 : 0;
        outlined += distance <= 2 ? 1 : 0;
    }
    constexpr double kAll = kParts * kParts;
    return { line / kAll, outlined / kAll };
}

} // namespace

TEST_F(Traces, LevelTraceReachesFromEdgeToEdgeOfItsHeight)
{
    AddLevel(2.5);
    ASSERT_EQ(Draw(), 0);
    for (const int x : { 0, 1, 200, 398, 399 }) {
        EXPECT_EQ(At(x, 149), kRed) << x;
        EXPECT_EQ(At(x, 150), kRed) << x;
    }
    EXPECT_EQ(At(0, 146), kPaper);
    EXPECT_EQ(At(0, 153), kPaper);
}

TEST_F(Traces, BottomAndTopAreTheEdgesOfTheClipRectangle)
{
    SetClip(50, 30, 350, 170);
    AddLevel(0);
    AddLevel(10, 0x00FF00);
    ASSERT_EQ(Draw(), 0);
    EXPECT_EQ(At(50, 169), kRed);
    EXPECT_EQ(At(349, 169), kRed);
    EXPECT_EQ(At(50, 30), 0xff00ff00);
    EXPECT_EQ(At(349, 30), 0xff00ff00);
}

TEST_F(Traces, SamplesAreSpreadOverTheWholeWidth)
{
    Add([](int at) { return at * 10.0 / 629; });
    ASSERT_EQ(Draw(), 0);
    for (const int x : { 3, 100, 399 }) {
        const int y = static_cast<int>(200 - (x + 0.5) / 2);
        EXPECT_TRUE(At(x, y) == kRed || At(x, y - 1) == kRed || At(x, y + 1) == kRed) << x;
    }
    EXPECT_EQ(At(3, 100), kPaper);
}

TEST_F(Traces, NothingIsDrawnOutsideTheClipRectangle)
{
    SetClip(60, 40, 330, 150);
    Add([](int at) { return at % 2 == 0 ? -50.0 : 60.0; });
    Add([](int at) { return 10 * std::sin(at * 0.05); }, 0x10F3F7);
    AddLevel(0, 0x00FF00);
    ASSERT_EQ(Draw(), 0);
    for (int y = 0; y < context.Height; ++y) {
        for (int x = 0; x < context.Width; ++x) {
            const bool isInside = x >= 60 && x < 330 && y >= 40 && y < 150;
            if (!isInside) {
                ASSERT_EQ(At(x, y), kPaper) << x << ' ' << y;
            }
        }
    }
    EXPECT_GT(Count(0xff00ff00), 200);
}

TEST_F(Traces, CoverPixelsByTheirAreaNearTheCurve)
{
    SetSize(160, 120);
    std::mt19937 random(5);
    std::vector<double> values(TVSWP_SAMPLES);
    for (size_t at = 0; at < values.size(); ++at)
        values[at] = 5 + 4 * std::sin(static_cast<double>(at) * 0.045) + static_cast<int>(random() % 100) * 0.002;
    Add([&](int at) { return values[static_cast<size_t>(at)]; });
    ASSERT_EQ(Draw(), 0);
    std::vector<double> heights;
    for (const double value : values)
        heights.push_back(120 - value * 12);
    double errors = 0;
    int edges = 0;
    // Away from the only marker, which is in the middle.
    for (int y = 0; y < 120; ++y) {
        for (int x = 100; x < 140; ++x) {
            const auto [line, outlined] = CoveredParts(heights, 160.0 / 629, x, y);
            const double green = (1 - line) * ((1 - outlined) * 0xcb + outlined * 0x20);
            const double error = std::abs((At(x, y) >> 8 & 0xFF) - green);
            EXPECT_LT(error, 28) << x << ' ' << y << ' ' << line << ' ' << outlined;
            errors += error;
            edges += (line > 0 && line < 1) || (outlined > 0 && outlined < 1) ? 1 : 0;
        }
    }
    EXPECT_GT(edges, 100);
    EXPECT_LT(errors / edges, 8) << "of pixels at edges";
}

TEST_F(Traces, LinesAreAntialiased)
{
    Add([](int at) { return 2 + at * 0.001; });
    ASSERT_EQ(Draw(), 0);
    std::vector<uint32_t> reds = pixels;
    std::sort(reds.begin(), reds.end());
    reds.erase(std::unique(reds.begin(), reds.end()), reds.end());
    EXPECT_GT(reds.size(), 20U);
}

TEST_F(Traces, ScaleWidensTheLine)
{
    for (const int scale : { 1, 2, 3 }) {
        SetSize(60, 60);
        Blocks().clear();
        AddLevel(5);
        context.Scale = scale;
        ASSERT_EQ(Draw(), 0);
        int width = 0;
        for (int y = 0; y < 60; ++y)
            width += At(2, y) == kRed ? 1 : 0;
        EXPECT_EQ(width, 2 * scale);
    }
}

TEST_F(Traces, ColoursHaveRedInTheLowByte)
{
    AddLevel(2, 0x0000FF);
    AddLevel(5, 0x10F3F7);
    AddLevel(8, 0x00FF00);
    ASSERT_EQ(Draw(), 0);
    EXPECT_EQ(At(0, 160), 0xffff0000);
    EXPECT_EQ(At(0, 100), 0xfff7f310);
    EXPECT_EQ(At(0, 40), 0xff00ff00);
}

TEST_F(Traces, PositionsDifferByTheirMarkers)
{
    std::vector<std::vector<uint32_t>> shapes;
    for (size_t position = 0; position < TVSWP_TRACES; ++position) {
        SetSize(30, 30); // room for one marker, in the middle
        Blocks().clear();
        set = {};
        set.YTop = 10;
        AddLevel(5);
        std::swap(set.Traces[0], set.Traces[position]);
        ASSERT_EQ(Draw(), 0);
        EXPECT_GT(RedBesideLine(14, 15), 15) << position;
        EXPECT_EQ(At(0, 15), kRed);
        shapes.push_back(pixels);
    }
    EXPECT_NE(shapes[0], shapes[1]);
    EXPECT_NE(shapes[1], shapes[2]);
    EXPECT_NE(shapes[0], shapes[2]);
}

TEST_F(Traces, MarkersOfEqualTracesAvoidEachOther)
{
    SetSize(900, 100);
    AddLevel(5, 0x0000FF);
    ASSERT_EQ(Draw(), 0);
    const int alone = RedBesideLine(49, 50);
    SetSize(900, 100);
    AddLevel(5, 0x0000FF);
    ASSERT_EQ(Draw(), 0);
    EXPECT_GT(RedBesideLine(49, 50), alone * 3 / 2);
}

TEST_F(Traces, DarkOutlineKeepsLightLinesLegible)
{
    AddLevel(5, 0xFFFFFF);
    AddLevel(2, 0x000000);
    ASSERT_EQ(Draw(), 0);
    EXPECT_EQ(At(0, 98), 0xff202020);
    EXPECT_EQ(At(0, 158), 0xffffffff);
}

TEST_F(Traces, UnusedTracesAreNotDrawn)
{
    AddLevel(5);
    set.Traces[0].InUse = 0;
    EXPECT_EQ(Draw(), 0);
    EXPECT_TRUE(IsUnchanged());
}

TEST_F(Traces, TracesWithoutValidSamplesAreNotDrawn)
{
    const auto refuse = [this](const std::function<void(Trace&)>& damage) {
        SetSize(400, 200);
        Blocks().clear();
        AddLevel(5, 0x0000FF);
        AddLevel(5, 0x00FF00);
        damage(set.Traces[0]);
        EXPECT_EQ(Draw(), 0);
        EXPECT_EQ(Count(kRed), 0);
        EXPECT_GT(Count(0xff00ff00), 0) << "the other trace";
    };
    refuse([](Trace& trace) { trace.Handle = 0; });
    refuse([](Trace& trace) { trace.Handle = 99; });
    refuse([](Trace& trace) { trace.SampleCount = 631; });
    refuse([](Trace& trace) { trace.SampleCount = 1; });
    refuse([](Trace& trace) { trace.SampleCount = 0; });
    refuse([](Trace& trace) { trace.SampleCount = -1; });
    refuse([](Trace& trace) { trace.SampleCount = std::numeric_limits<int32_t>::max(); });
    refuse([](Trace& trace) { trace.InUse = 255; });
    refuse([](Trace&) { Blocks()[0][300] = kNan; });
    refuse([](Trace&) { Blocks()[0][629] = kInfinity; });
    refuse([](Trace&) { Blocks()[0].clear(); });
}

TEST_F(Traces, TwoSamplesAreEnough)
{
    Blocks().push_back({ 5, 5 });
    set.Traces[0] = {};
    set.Traces[0].InUse = 1;
    set.Traces[0].Handle = 1;
    set.Traces[0].SampleCount = 2;
    set.Traces[0].Colour = 0x0000FF;
    EXPECT_EQ(Draw(), 0);
    EXPECT_EQ(At(0, 100), kRed);
    EXPECT_EQ(At(399, 100), kRed);
}

TEST_F(Traces, ExtremeValuesStayOutsideThePicture)
{
    Add([](int at) { return at < 315 ? 1e308 : -1e308; });
    EXPECT_EQ(Draw(), 0);
    EXPECT_EQ(At(0, 100), kPaper);
    EXPECT_EQ(At(399, 100), kPaper);
    EXPECT_EQ(At(200, 100), kRed) << "the line between them crosses it";
}

TEST_F(Traces, NullArgumentsAreRefused)
{
    AddLevel(5);
    EXPECT_NE(swp.SwpDrawTraces(nullptr, &set, &BlockOf), 0);
    EXPECT_NE(swp.SwpDrawTraces(&context, nullptr, &BlockOf), 0);
    EXPECT_NE(swp.SwpDrawTraces(&context, &set, nullptr), 0);
    context.Pixels = nullptr;
    EXPECT_NE(Draw(), 0);
    EXPECT_TRUE(IsUnchanged());
}

TEST_F(Traces, ContextsThatCannotBeDrawnAreRefused)
{
    AddLevel(5);
    const TvSwpContext whole = context;
    const auto refuse = [&](const std::function<void()>& damage) {
        context = whole;
        damage();
        ExpectRefused();
    };
    constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
    constexpr int32_t kLeast = std::numeric_limits<int32_t>::min();
    refuse([&] { context.Width = 0; });
    refuse([&] { context.Height = -1; });
    refuse([&] { context.Width = kMost; });
    refuse([&] { context.Stride = 399; });
    refuse([&] { context.Stride = kLeast; });
    refuse([&] { context.Right = context.Left; });
    refuse([&] { context.Bottom = -5; });
    refuse([&] { context.Left = kLeast; });
    refuse([&] { context.Right = kMost; });
    refuse([&] { context.Scale = 0; });
    refuse([&] { context.Scale = -1; });
    refuse([&] { context.Scale = 17; });
    refuse([&] { context.Scale = kNan; });
}

TEST_F(Traces, LimitsThatAreNoRangeAreRefused)
{
    AddLevel(5);
    for (const auto& [bottom, top] : { std::pair(0.0, 0.0), std::pair(1.0, 0.0), std::pair(kNan, 1.0),
             std::pair(0.0, kNan), std::pair(0.0, kInfinity), std::pair(-1e308, 1e308) }) {
        set.YBottom = bottom;
        set.YTop = top;
        ExpectRefused();
    }
}

TEST_F(Traces, ClipRectangleMayReachOutOfThePicture)
{
    AddLevel(5);
    SetClip(-100, -50, 500, 250);
    EXPECT_EQ(Draw(), 0);
    EXPECT_EQ(At(0, 100), kRed);
    EXPECT_EQ(At(399, 100), kRed);
    SetSize(400, 200);
    SetClip(400, 0, 500, 200);
    EXPECT_EQ(Draw(), 0);
    SetClip(0, -90, 400, -10);
    EXPECT_EQ(Draw(), 0);
    EXPECT_TRUE(IsUnchanged());
}

TEST_F(Traces, SmallestAndLargestClipRectanglesWork)
{
    AddLevel(5);
    SetClip(7, 7, 8, 8);
    EXPECT_EQ(Draw(), 0);
    EXPECT_EQ(At(7, 7), kRed);
    SetClip(-16000, -16000, 16767, 16767);
    EXPECT_EQ(Draw(), 0);
}

TEST_F(Traces, PixelsBetweenTheRowsStayUntouched)
{
    AddLevel(5);
    pixels.assign(size_t{ 450 } * 200, kPaper);
    context.Pixels = pixels.data();
    context.Stride = 450;
    EXPECT_EQ(Draw(), 0);
    EXPECT_EQ(At(399, 100), kRed);
    for (int y = 0; y < 200; ++y) {
        for (int x = 400; x < 450; ++x)
            ASSERT_EQ(At(x, y), kPaper);
    }
}

TEST_F(Traces, ShortageOfMemoryLeavesThePixels)
{
    SetSize(4000, 400);
    AddLevel(5);
    AddLevel(7);
    {
        const ScarceMemory scarce(size_t{ 1 } << 15U);
        ExpectRefused();
    }
    EXPECT_EQ(Draw(), 0);
}

TEST(TracesModule, RefusesTooSmallTable)
{
    TvSwpApi small{};
    small.Size = sizeof small - 1;
    EXPECT_NE(TvSwpBind(&small), 0);
    EXPECT_EQ(small.SwpDrawTraces, nullptr);
    EXPECT_NE(TvSwpBind(nullptr), 0);
}
