// Conversion of tables into traces.
#include "screen/diagram/multiTrace.h"

#include "closed/loader.h"
#include "tests/support/fixture.h"
#include "tests/support/unbindModule.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <set>

namespace tarvik {

namespace {

using Points = std::vector<TracePoint>;

/// What a sample is by its definition, computed one sample at a time: the last segment that reaches it decides.
double SampleByDefinition(const Points& points, int sample)
{
    const long double first = points.front().X;
    const long double range = points.back().X - points.front().X;
    if (range == 0)
        return points.front().Y;
    const auto indexOf = [&](const TracePoint& point) {
        const double product = (point.X - points.front().X) * 629.0; // in double, as the boundaries depend on it
        return static_cast<int>(std::floor(product / static_cast<double>(range)));
    };
    for (size_t at = points.size() - 1; at >= 1; --at) {
        const int from = indexOf(points[at - 1]);
        const int to = indexOf(points[at]);
        if (sample < from || sample > to)
            continue;
        if (from == to)
            return points[at - 1].Y;
        const long double part = static_cast<long double>(sample - from) / (to - from);
        return static_cast<double>(
            points[at - 1].Y + part * (static_cast<long double>(points[at].Y) - points[at - 1].Y));
    }
    ADD_FAILURE() << "no segment reaches " << sample << static_cast<double>(first);
    return 0;
}

void ExpectAllSamples(const Points& points)
{
    const std::vector<double> samples = Resample(points);
    ASSERT_EQ(samples.size(), 630U);
    for (int at = 0; at < 630; ++at) {
        const double expected = SampleByDefinition(points, at);
        ASSERT_NEAR(samples[static_cast<size_t>(at)], expected, std::abs(expected) * 1e-12 + 1e-300) << at;
    }
}

Points Reversed(Points points)
{
    return { points.rbegin(), points.rend() };
}

/// A table of ascending, unevenly spaced frequencies.
Points UnevenPoints(int count, double scale)
{
    std::mt19937 random(static_cast<unsigned>(count));
    Points points;
    double x = 20e6;
    for (int at = 0; at < count; ++at) {
        points.push_back({ x, (static_cast<int>(random() % 2001) - 1000) * 0.01 * scale });
        x += static_cast<double>(random() % 5000000 + 1);
    }
    return points;
}

/// Numbers of a set are passed by value, as `+number`: its layout aligns them to four bytes only.
class MultiTraces : public ProgramTest {
protected:
    static MultiTraceInput Input(const std::vector<MultiTracePoint>& points, int series)
    {
        MultiTraceInput input;
        input.Name = QStringLiteral("Biconical");
        input.XUnit = UnitCode::Hertz;
        input.YUnit = UnitCode::DecibelPerMetre;
        input.PointCount = static_cast<qint16>(points.size());
        input.SeriesCount = static_cast<qint16>(series);
        std::copy(points.begin(), points.end(), input.Points.begin());
        return input;
    }

    static std::vector<double> SamplesOf(const Trace& trace)
    {
        uint32_t size = 0;
        const void* block = TraceBlockOf(trace.Handle, &size);
        EXPECT_NE(block, nullptr);
        EXPECT_EQ(size, 5040U);
        std::vector<double> samples(size / sizeof(double));
        if (block != nullptr)
            std::memcpy(samples.data(), block, size);
        return samples;
    }

    static bool HasBlock(uint32_t handle)
    {
        uint32_t size = 0;
        return TraceBlockOf(handle, &size) != nullptr;
    }
};

template <typename Value>
void Put(QByteArray& bytes, int at, Value value)
{
    std::memcpy(bytes.data() + at, &value, sizeof value);
}

int blocksInUse = 0;
int allocations = 0;
int failingAllocation = -1;

/// Counts the blocks of the general module.
void CountBlocks()
{
    static void* (*allocate)(const char*, int32_t) = nullptr;
    static void (*release)(void*) = nullptr;
    blocksInUse = 0;
    allocations = 0;
    failingAllocation = -1;
    allocate = TvGen().GenVbStrToGlobal;
    release = TvGen().GenElemsFree;
    TvGen().GenVbStrToGlobal = [](const char* bytes, int32_t size) -> void* {
        if (allocations++ == failingAllocation)
            return nullptr;
        ++blocksInUse;
        return allocate(bytes, size);
    };
    TvGen().GenElemsFree = [](void* block) {
        blocksInUse -= block == nullptr ? 0 : 1;
        release(block);
    };
}

} // namespace

TEST(Resampling, OnePointGivesEqualSamples)
{
    EXPECT_EQ(Resample(Points{ { 85e6, 7.25 } }), std::vector<double>(630, 7.25));
}

TEST(Resampling, TwoPointsGiveAStraightLine)
{
    const std::vector<double> samples = Resample(Points{ { 20e6, 10 }, { 1000e6, 16.29 } });
    for (int at = 0; at < 630; ++at)
        ASSERT_NEAR(samples[static_cast<size_t>(at)], 10 + at * 0.01, 1e-12) << at;
    ExpectAllSamples({ { 20e6, 10 }, { 1000e6, 16.29 } });
}

TEST(Resampling, UnevenlySpacedPointsAreLinearBetween)
{
    const std::vector<double> samples = Resample(Points{ { 0, 0 }, { 100, 100 }, { 629, -429 } });
    for (int at = 0; at < 630; ++at)
        ASSERT_NEAR(samples[static_cast<size_t>(at)], at <= 100 ? at : 200 - at, 1e-10) << at;
    for (const int count : { 3, 17, 400, 1000 })
        ExpectAllSamples(UnevenPoints(count, 1));
}

TEST(Resampling, MorePointsThanSamples)
{
    Points points;
    for (int at = 0; at < 1000; ++at)
        points.push_back({ at * 1e6, static_cast<double>(at) });
    ExpectAllSamples(points);
    const std::vector<double> samples = Resample(points);
    EXPECT_EQ(samples.front(), 1) << "the second point falls on the first sample too";
    EXPECT_EQ(samples.back(), 999);
}

TEST(Resampling, FallingOrderDrawsFromTheHighX)
{
    const std::vector<double> samples = Resample(Points{ { 1000, 1 }, { 500, 2 }, { 371, 5 } });
    EXPECT_EQ(samples.front(), 1);
    EXPECT_NEAR(samples[500], 2, 1e-12);
    EXPECT_NEAR(samples.back(), 5, 1e-12);
    for (const int count : { 2, 17, 1000 })
        ExpectAllSamples(Reversed(UnevenPoints(count, 1)));
}

TEST(Resampling, TwoEqualXMakeAStep)
{
    const std::vector<double> samples = Resample(Points{ { 0, 1 }, { 300, 1 }, { 300, 9 }, { 629, 9 } });
    EXPECT_EQ(samples[299], 1);
    EXPECT_EQ(samples[300], 9);
    EXPECT_EQ(samples[629], 9);
    ExpectAllSamples({ { 0, 1 }, { 300, 1 }, { 300, 9 }, { 629, 9 } });
    ExpectAllSamples({ { 0, 1 }, { 0, 4 }, { 300, 9 }, { 629, 9 } });
    ExpectAllSamples({ { 0, 1 }, { 300, 9 }, { 629, 9 }, { 629, 11 } });
}

TEST(Resampling, RangeOfZeroGivesTheFirstValue)
{
    EXPECT_EQ(Resample(Points{ { 5, 3 }, { 5, 4 }, { 5, 8 } }), std::vector<double>(630, 3));
    EXPECT_EQ(Resample(Points{ { 5, 3 }, { 9, 4 }, { 5, 8 } }), std::vector<double>(630, 3));
}

TEST(Resampling, TinyAndLargeValuesKeepTheirDigits)
{
    for (const double scale : { 1e-9, 1e3 }) {
        ExpectAllSamples(UnevenPoints(50, scale));
        ExpectAllSamples({ { 20e6, scale }, { 1000e6, -scale } });
    }
}

TEST(Resampling, EverySampleIsReachedWhateverTheRounding)
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> range(1, 1e10);
    for (int round = 0; round < 20000; ++round) {
        const double first = range(random);
        const std::vector<double> samples = Resample(Points{ { first, 1 }, { first + range(random), 2 } });
        ASSERT_NEAR(samples[629], 2, 0.01);
        ASSERT_NEAR(samples[628], 2, 0.01);
    }
}

TEST(Resampling, UnsortedPointsStayWithinTheSamples)
{
    const std::vector<double> samples = Resample(Points{ { 10, 1 }, { -500, 2 }, { 9000, 3 }, { 20, 4 } });
    EXPECT_EQ(samples.size(), 630U);
}

TEST(YSteps, AreATenthOfTheRangeRoundedToTenths)
{
    EXPECT_DOUBLE_EQ(YStepOf(0, 10), 1);
    EXPECT_DOUBLE_EQ(YStepOf(3, 17.4), 1.4);
    EXPECT_DOUBLE_EQ(YStepOf(0, 2.5), 0.3) << "halves go up";
    EXPECT_DOUBLE_EQ(YStepOf(-1e3, 1e3), 200);
}

TEST(YSteps, AreAtLeastATenth)
{
    EXPECT_DOUBLE_EQ(YStepOf(5, 5), 0.1);
    EXPECT_DOUBLE_EQ(YStepOf(0, 1e-9), 0.1);
    EXPECT_DOUBLE_EQ(YStepOf(0, 1.4), 0.1);
}

TEST_F(MultiTraces, SetHasItsGivenBytes)
{
    const std::optional<OwnedTraces> traces =
        ConvertTraces(Input({ { 30e6, { 3.5, 23.5 } }, { 661e6, { 13.5, 8.5 } } }, 2));
    ASSERT_TRUE(traces.has_value());
    QByteArray expected(208, '\0');
    Put(expected, 0, 1e6); // (661e6 - 30e6) / 631
    Put(expected, 8, 30e6);
    Put(expected, 16, 661e6);
    Put(expected, 24, 2.0);
    Put(expected, 32, 3.5);
    Put(expected, 40, 23.5);
    Put(expected, 48, qint32(2));
    const std::array<quint32, 3> colours{ 0x0000FF, 0x10F3F7, 0x00FF00 };
    for (int series = 0; series < 2; ++series) {
        const int at = 52 + series * 52;
        const uint32_t handle = traces->Set.Traces[series].Handle;
        EXPECT_NE(handle, 0U);
        Put(expected, at, qint32(630));
        Put(expected, at + 4, quint8(1));
        Put(expected, at + 8, handle);
        Put(expected, at + 14, quint8(10));
        Put(expected, at + 15, quint8(25));
        Put(expected, at + 16, 1.0);
        Put(expected, at + 24, quint8(10));
        Put(expected, at + 28, 1.0);
        Put(expected, at + 36, 100.0);
        Put(expected, at + 48, colours[static_cast<size_t>(series)]);
    }
    const QByteArray actual(reinterpret_cast<const char*>(&traces->Set), sizeof traces->Set);
    EXPECT_EQ(actual.toHex(' '), expected.toHex(' '));
}

TEST_F(MultiTraces, BlocksHoldTheSamplesOfTheirSeries)
{
    const std::optional<OwnedTraces> traces =
        ConvertTraces(Input({ { 30e6, { 1, 2, 3 } }, { 60e6, { 4, 8, -3 } }, { 90e6, { 0, 2, 3 } } }, 3));
    ASSERT_TRUE(traces.has_value());
    std::set<uint32_t> handles;
    for (int series = 0; series < 3; ++series) {
        const Trace& trace = traces->Set.Traces[series];
        handles.insert(trace.Handle);
        const double first = series + 1;
        const std::array<double, 3> middle{ 4, 8, -3 };
        const std::array<double, 3> last{ 0, 2, 3 };
        EXPECT_EQ(SamplesOf(trace),
            Resample(Points{ { 30e6, first }, { 60e6, middle[static_cast<size_t>(series)] },
                { 90e6, last[static_cast<size_t>(series)] } }));
    }
    EXPECT_EQ(handles.size(), 3U);
    EXPECT_EQ(traces->Set.Traces[2].Colour, 0x00FF00U);
}

TEST_F(MultiTraces, RangeIsThatOfAllSeriesInUse)
{
    const std::optional<OwnedTraces> traces =
        ConvertTraces(Input({ { 1, { 5, 40, 900 } }, { 2, { -10, 7, 900 } } }, 2));
    ASSERT_TRUE(traces.has_value());
    EXPECT_DOUBLE_EQ(+traces->Set.YBottom, -10);
    EXPECT_DOUBLE_EQ(+traces->Set.YStep, 5);
    EXPECT_DOUBLE_EQ(+traces->Set.YTop, 40);
    EXPECT_EQ(traces->Set.Traces[2].InUse, 0);
    EXPECT_EQ(traces->Set.Traces[2].Handle, 0U);
}

TEST_F(MultiTraces, SinglePointGetsARangeOfOneUnit)
{
    const std::optional<OwnedTraces> traces = ConvertTraces(Input({ { 85e6, { 7 } } }, 1));
    ASSERT_TRUE(traces.has_value());
    EXPECT_EQ(SamplesOf(traces->Set.Traces[0]), std::vector<double>(630, 7));
    EXPECT_EQ(+traces->Set.XStep, 0);
    EXPECT_DOUBLE_EQ(+traces->Set.YStep, 0.1);
    EXPECT_EQ(+traces->Set.YBottom, 7);
    EXPECT_DOUBLE_EQ(+traces->Set.YTop, 8);
}

TEST_F(MultiTraces, FlatCurveGetsARangeOfOneUnit)
{
    const std::optional<OwnedTraces> traces = ConvertTraces(Input({ { 1, { -3 } }, { 2, { -3 } }, { 9, { -3 } } }, 1));
    ASSERT_TRUE(traces.has_value());
    EXPECT_DOUBLE_EQ(+traces->Set.YStep, 0.1);
    EXPECT_DOUBLE_EQ(+traces->Set.YTop, -2);
}

TEST_F(MultiTraces, FallingXKeepsItsOrder)
{
    const std::optional<OwnedTraces> traces = ConvertTraces(Input({ { 661, { 1 } }, { 30, { 2 } } }, 1));
    ASSERT_TRUE(traces.has_value());
    EXPECT_EQ(+traces->Set.XFirst, 661);
    EXPECT_EQ(+traces->Set.XLast, 30);
    EXPECT_DOUBLE_EQ(+traces->Set.XStep, -1);
    EXPECT_EQ(SamplesOf(traces->Set.Traces[0]).front(), 1);
}

TEST_F(MultiTraces, ThousandPointsAreTheMost)
{
    std::vector<MultiTracePoint> points(1000);
    for (size_t at = 0; at < points.size(); ++at)
        points[at] = { static_cast<double>(at), { 1, 2, 3 } };
    MultiTraceInput input = Input(points, 3);
    EXPECT_TRUE(ConvertTraces(input).has_value());
    input.PointCount = 1001;
    EXPECT_FALSE(ConvertTraces(input).has_value());
}

TEST_F(MultiTraces, TablesOutsideTheLimitsAreRefused)
{
    const MultiTraceInput valid = Input({ { 1, { 1 } }, { 2, { 2 } } }, 1);
    const auto refused = [&](qint16 points, qint16 series) {
        MultiTraceInput input = valid;
        input.PointCount = points;
        input.SeriesCount = series;
        return !ConvertTraces(input).has_value();
    };
    EXPECT_FALSE(refused(2, 1));
    EXPECT_TRUE(refused(0, 1));
    EXPECT_TRUE(refused(-1, 1));
    EXPECT_TRUE(refused(32767, 1));
    EXPECT_TRUE(refused(2, 0));
    EXPECT_TRUE(refused(2, 4));
    EXPECT_TRUE(refused(2, -1));
}

TEST_F(MultiTraces, ValuesThatAreNoNumbersAreRefused)
{
    const double bad[]{ std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity() };
    for (const double value : bad) {
        EXPECT_FALSE(ConvertTraces(Input({ { 1, { 1 } }, { 2, { value } } }, 1)).has_value());
        EXPECT_FALSE(ConvertTraces(Input({ { value, { 1 } }, { 2, { 1 } } }, 1)).has_value());
        EXPECT_TRUE(ConvertTraces(Input({ { 1, { 1, value } }, { 2, { 1, value } } }, 1)).has_value()) << "not in use";
    }
    EXPECT_FALSE(ConvertTraces(Input({ { 1, { -1e308 } }, { 2, { 1e308 } } }, 1)).has_value());
}

TEST_F(MultiTraces, BlocksAreFreedWithTheSet)
{
    CountBlocks();
    uint32_t handle = 0;
    {
        const std::optional<OwnedTraces> traces = ConvertTraces(Input({ { 1, { 1, 2, 3 } }, { 2, { 1, 2, 3 } } }, 3));
        ASSERT_TRUE(traces.has_value());
        handle = traces->Set.Traces[0].Handle;
        EXPECT_EQ(blocksInUse, 3);
        EXPECT_TRUE(HasBlock(handle));
    }
    EXPECT_EQ(blocksInUse, 0);
    EXPECT_FALSE(HasBlock(handle));
}

TEST_F(MultiTraces, ReleasedTraceIsEmpty)
{
    CountBlocks();
    std::optional<OwnedTraces> traces = ConvertTraces(Input({ { 1, { 1, 2 } }, { 2, { 1, 2 } } }, 2));
    ASSERT_TRUE(traces.has_value());
    Trace& trace = traces->Set.Traces[0];
    TraceRelease(trace);
    EXPECT_EQ(blocksInUse, 1);
    EXPECT_EQ(trace.SampleCount, 0);
    EXPECT_EQ(trace.InUse, 0);
    EXPECT_EQ(trace.Handle, 0U);
    TraceRelease(trace);
    EXPECT_EQ(blocksInUse, 1);
}

TEST_F(MultiTraces, MovedTracesAreOwnedOnce)
{
    CountBlocks();
    {
        OwnedTraces first = *ConvertTraces(Input({ { 1, { 1 } } }, 1));
        OwnedTraces second = std::move(first);
        EXPECT_EQ(blocksInUse, 1);
        second = *ConvertTraces(Input({ { 1, { 1 } } }, 1));
        EXPECT_EQ(blocksInUse, 1);
    }
    EXPECT_EQ(blocksInUse, 0);
}

TEST_F(MultiTraces, ShortageOfMemoryFreesWhatWasTaken)
{
    CountBlocks();
    failingAllocation = 2;
    EXPECT_FALSE(ConvertTraces(Input({ { 1, { 1, 2, 3 } }, { 2, { 1, 2, 3 } } }, 3)).has_value());
    EXPECT_EQ(allocations, 3);
    EXPECT_EQ(blocksInUse, 0);
}

TEST_F(MultiTraces, NeedTheGeneralModule)
{
    UnbindModule(Module::General);
    EXPECT_FALSE(ConvertTraces(Input({ { 1, { 1 } } }, 1)).has_value());
}

TEST_F(MultiTraces, UnknownHandlesHaveNoBlock)
{
    EXPECT_FALSE(HasBlock(0));
    EXPECT_FALSE(HasBlock(4711));
}

TEST_F(MultiTraces, RangeIsThatOfTheSamplesAndTheFirstPoint)
{
    std::vector<MultiTracePoint> points(1000);
    for (size_t at = 0; at < points.size(); ++at)
        points[at] = { static_cast<double>(at), { 5 } };
    points[0].Y[0] = 7; // the first sample has the value of the second point
    const std::optional<OwnedTraces> traces = ConvertTraces(Input(points, 1));
    ASSERT_TRUE(traces.has_value());
    EXPECT_EQ(SamplesOf(traces->Set.Traces[0]), std::vector<double>(630, 5));
    EXPECT_EQ(+traces->Set.YBottom, 5);
    EXPECT_DOUBLE_EQ(+traces->Set.YStep, 0.2);
}

} // namespace tarvik
