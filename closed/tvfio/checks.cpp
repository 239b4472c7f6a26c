#include "closed/tvfio/calls.h"

namespace tvfio {

namespace {

/// The instrument firmware whose values and codes these lists hold.
constexpr std::string_view kFirmwareVersion = "4.30";

constexpr int kDemodulations = 8;
constexpr int kFirstSingleSideband = 4; // CW, USB, LSB, ISB: 4 to 7
constexpr int kBandwidths = 16;
constexpr int kWidestSingleSideband = 7; // 12 kHz
constexpr int kLastWithAfc = 2; // FM, AM, PULSE: 0 to 2

constexpr std::array kSpansHz{ 10e3, 20e3, 50e3, 100e3, 200e3, 500e3, 1e6, 2e6, 5e6, 10e6, 20e6, 40e6, 80e6 };
constexpr std::array kStepsHz{ 0.625, 1.25, 2.5, 3.125, 6.25, 12.5, 20.0, 25.0, 31.25, 50.0, 62.5, 100.0, 125.0, 200.0,
    250.0, 312.5, 500.0, 625.0, 1e3, 1.25e3, 2e3, 2.5e3, 3.125e3, 5e3, 6.25e3, 25e3 / 3, 10e3, 12.5e3, 20e3, 25e3, 50e3,
    100e3, 200e3, 500e3 };
constexpr double kMinLines = 16; // span divided by step
constexpr double kMaxLines = 16384;

bool IsCode(int code, int count)
{
    return code >= 0 && code < count;
}

int16_t CheckBandwidthAndDemodulation(int16_t bandwidth, int16_t demodulation)
{
    if (!IsCode(bandwidth, kBandwidths) || !IsCode(demodulation, kDemodulations))
        return 0;
    return demodulation < kFirstSingleSideband || bandwidth <= kWidestSingleSideband ? 1 : 0;
}

int16_t CheckAutoFreqControlAndDemodulation(int16_t afc, int16_t demodulation)
{
    if (!IsCode(afc, 2) || !IsCode(demodulation, kDemodulations))
        return 0;
    return afc == 0 || demodulation <= kLastWithAfc ? 1 : 0;
}

int16_t CheckIfPanSpanAndIfPanStep(int16_t span, int16_t step)
{
    if (!IsCode(span, static_cast<int>(kSpansHz.size())) || !IsCode(step, static_cast<int>(kStepsHz.size())))
        return 0;
    const double lines = kSpansHz[static_cast<size_t>(span)] / kStepsHz[static_cast<size_t>(step)];
    return lines >= kMinLines && lines <= kMaxLines ? 1 : 0;
}

void GetTvFwVersion(int16_t* status, char* out, int32_t outSize)
{
    Answer(status, CopyOut(kFirmwareVersion, out, outSize));
}

void GetExceptionStringTV(int16_t* status, char* out, int32_t outSize)
{
    // Copied first: a failure of this call itself would replace the text.
    Answer(status, CopyOut(std::string_view(LastExceptionText()), out, outSize));
}

} // namespace

FioStatus CopyOut(std::string_view text, char* out, int32_t outSize)
{
    if (out == nullptr || outSize <= 0)
        return Fail(FioStatus::MissingArgument);
    const size_t room = static_cast<size_t>(outSize) - 1;
    const size_t length = std::min(text.size(), room);
    std::copy_n(text.data(), length, out);
    out[length] = '\0';
    return length == text.size() ? FioStatus::Ok : Fail(FioStatus::BufferTooSmall);
}

void BindCheckCalls(TvFioApi& api)
{
    api.CheckBandwidthAndDemodulation = CheckBandwidthAndDemodulation;
    api.CheckAutoFreqControlAndDemodulation = CheckAutoFreqControlAndDemodulation;
    api.CheckIfPanSpanAndIfPanStep = CheckIfPanSpanAndIfPanStep;
    api.GetTvFwVersion = GetTvFwVersion;
    api.GetExceptionStringTV = GetExceptionStringTV;
}

} // namespace tvfio
