#include "tests/closed/storefixture.h"

namespace {

class StoreLimits : public StoreTest {
protected:
    template <typename Value>
    static Value Limit(void (*operation)(int16_t*, Value*))
    {
        Value value{};
        EXPECT_EQ(Call(operation, &value), FioStatus::Ok);
        return value;
    }

    /// The codes from 0 to `last` that `allowed` accepts, as a string of + and -.
    template <typename Allowed>
    static std::string Accepted(int16_t last, Allowed allowed)
    {
        std::string marks;
        for (int16_t code = 0; code <= last; ++code)
            marks += allowed(code) ? '+' : '-';
        return marks;
    }
};

} // namespace

TEST_F(StoreLimits, MatchInstrumentGeneration)
{
    EXPECT_EQ(Limit(fio.GetMinFrequencyApplication), 8000);
    EXPECT_EQ(Limit(fio.GetMaxFrequencyApplication), 8000000000.0);
    EXPECT_EQ(Limit(fio.GetMinAntennaConverterOffset), -20000000000.0);
    EXPECT_EQ(Limit(fio.GetMaxAntennaConverterOffset), 20000000000.0);
    EXPECT_EQ(Limit(fio.GetMinKFactorLevel), -99.99);
    EXPECT_EQ(Limit(fio.GetMaxKFactorLevel), 200);
    EXPECT_EQ(Limit(fio.GetMinSquelchLevel), -30);
    EXPECT_EQ(Limit(fio.GetMaxSquelchLevel), 130);
    EXPECT_EQ(Limit(fio.GetMinDfSquelchLevel), -30);
    EXPECT_EQ(Limit(fio.GetMaxDfSquelchLevel), 130);
    EXPECT_EQ(Limit(fio.GetMinDfMeasTimeInSec), 0.01);
    EXPECT_EQ(Limit(fio.GetMaxDfMeasTimeInSec), 10);
    EXPECT_EQ(Limit(fio.GetMinAntennaNr), 0);
    EXPECT_EQ(Limit(fio.GetMaxAntennaNr), 99);
    EXPECT_EQ(Limit(fio.GetMinAntennaCode), 0);
    EXPECT_EQ(Limit(fio.GetMaxAntennaCode), 255);
    EXPECT_EQ(Limit(fio.GetMinNorthOffset), 0);
    EXPECT_EQ(Limit(fio.GetMaxNorthOffset), 359.9);
    EXPECT_EQ(Limit(fio.GetMinAntennaBitPattern), 0);
    EXPECT_EQ(Limit(fio.GetMaxAntennaBitPattern), 3);
    EXPECT_EQ(Limit(fio.GetMaxAntennasIncluded), 8);
    EXPECT_EQ(Limit(fio.GetMinMemoryNr), 0);
    EXPECT_EQ(Limit(fio.GetMaxMemoryNr), 1023);
}

TEST_F(StoreLimits, RefuseNullPointer)
{
    EXPECT_EQ(Call(fio.GetMaxMemoryNr, nullptr), FioStatus::MissingArgument);
}

TEST_F(StoreLimits, SingleSidebandAllowsBandwidthsUpTo12kHz)
{
    for (int16_t demodulation = 4; demodulation <= 7; ++demodulation) {
        EXPECT_EQ(
            Accepted(15, [&](int16_t code) { return fio.CheckBandwidthAndDemodulation(code, demodulation) != 0; }),
            "++++++++--------")
            << demodulation;
    }
}

TEST_F(StoreLimits, OtherDemodulationsAllowEveryBandwidth)
{
    for (int16_t demodulation = 0; demodulation <= 3; ++demodulation) {
        EXPECT_EQ(
            Accepted(15, [&](int16_t code) { return fio.CheckBandwidthAndDemodulation(code, demodulation) != 0; }),
            "++++++++++++++++")
            << demodulation;
    }
}

TEST_F(StoreLimits, AfcIsAllowedForFmAmAndPulseOnly)
{
    EXPECT_EQ(
        Accepted(7, [&](int16_t code) { return fio.CheckAutoFreqControlAndDemodulation(1, code) != 0; }), "+++-----");
    EXPECT_EQ(
        Accepted(7, [&](int16_t code) { return fio.CheckAutoFreqControlAndDemodulation(0, code) != 0; }), "++++++++");
}

TEST_F(StoreLimits, SpanAllowsStepsThatGive16To16384Lines)
{
    const auto steps = [&](int16_t span) {
        return Accepted(33, [&](int16_t step) { return fio.CheckIfPanSpanAndIfPanStep(span, step) != 0; });
    };
    EXPECT_EQ(steps(0), "++++++++++++++++++----------------"); // 10 kHz: 0.625 Hz (16000) to 625 Hz (16)
    EXPECT_EQ(steps(1), "-+++++++++++++++++++--------------"); // 20 kHz: 1.25 Hz (16000) to 1.25 kHz (16)
    EXPECT_EQ(steps(6), "----------+++++++++++++++++++++---"); // 1 MHz: 62.5 Hz (16000) to 50 kHz (20)
    EXPECT_EQ(steps(12), "-----------------------+++++++++++"); // 80 MHz: 5 kHz (16000) to 500 kHz (160)
}

TEST_F(StoreLimits, ChecksRefuseCodesOutsideTheirTables)
{
    EXPECT_EQ(fio.CheckBandwidthAndDemodulation(-1, 0), 0);
    EXPECT_EQ(fio.CheckBandwidthAndDemodulation(16, 0), 0);
    EXPECT_EQ(fio.CheckBandwidthAndDemodulation(0, 8), 0);
    EXPECT_EQ(fio.CheckAutoFreqControlAndDemodulation(2, 0), 0);
    EXPECT_EQ(fio.CheckAutoFreqControlAndDemodulation(0, -1), 0);
    EXPECT_EQ(fio.CheckIfPanSpanAndIfPanStep(13, 20), 0);
    EXPECT_EQ(fio.CheckIfPanSpanAndIfPanStep(6, 34), 0);
}

TEST_F(StoreLimits, ReportsFirmwareVersion)
{
    EXPECT_EQ(GetText(fio.GetTvFwVersion), "4.30");
}

TEST_F(StoreLimits, KeepsTextOfLastException)
{
    EXPECT_EQ(Call(fio.MemorySetData, -1), FioStatus::MemoryIndex);
    EXPECT_EQ(Call(fio.MemoryListClear), FioStatus::Ok);
    EXPECT_EQ(GetText(fio.GetExceptionStringTV), "The memory list has no such entry.");
}

TEST_F(StoreLimits, RefusesTooSmallTable)
{
    TvFioApi small{};
    small.Size = sizeof small - 1;
    EXPECT_NE(TvFioBind(&small), 0);
    EXPECT_EQ(small.MemoryListClear, nullptr);
    EXPECT_NE(TvFioBind(nullptr), 0);
}

TEST_F(StoreLimits, BindsEveryOperation)
{
#define EXPECT_BOUND(result, name, arguments) EXPECT_NE(fio.name, nullptr) << #name;
    TVFIO_OPERATIONS(EXPECT_BOUND)
#undef EXPECT_BOUND
}

TEST(FioStatusTexts, OnlyListedStatusesLackTextByNumber)
{
    std::string without;
    for (int16_t number = 1; number <= 90; ++number) {
        if (!FioStatusHasOwnText(static_cast<FioStatus>(number)))
            without += std::to_string(number) + ' ';
    }
    EXPECT_EQ(without, "1 2 3 4 5 6 7 15 17 21 58 59 62 63 64 67 68 69 76 83 84 85 86 87 88 89 90 ");
}

TEST(FioStatusTexts, StatusesWithTextByNumberHaveMeaning)
{
    for (int16_t number = 8; number <= 82; ++number) {
        const auto status = static_cast<FioStatus>(number);
        if (FioStatusHasOwnText(status)) {
            EXPECT_STRNE(FioStatusText(status), "Unknown error.") << number;
        }
    }
}
