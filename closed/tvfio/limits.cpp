#include "closed/tvfio/calls.h"

namespace tvfio {

namespace {

constexpr double kMinFrequencyHz = 8'000;
constexpr double kMaxFrequencyHz = 8e9;
constexpr double kMaxConverterOffsetHz = 20e9;
constexpr double kMinKFactorLevel = -99.99; // dB/m
constexpr double kMaxKFactorLevel = 200;
constexpr double kMinSquelchLevel = -30; // dBuV
constexpr double kMaxSquelchLevel = 130;
constexpr double kMinDfMeasTimeSeconds = 0.01;
constexpr double kMaxDfMeasTimeSeconds = 10;
constexpr double kMaxNorthOffsetDegrees = 359.9;

template <typename Value, auto Limit>
void GetLimit(int16_t* status, Value* value)
{
    Answer(status, CopyOut<Value>(Limit, value));
}

/// A floating-point limit, which must be a variable to be a template argument.
template <const double& Limit>
void GetLimit(int16_t* status, double* value)
{
    Answer(status, CopyOut(Limit, value));
}

constexpr double kMinConverterOffsetHz = -kMaxConverterOffsetHz;
constexpr double kMinNorthOffsetDegrees = 0;

void BindValueLimits(TvFioApi& api)
{
    api.GetMinFrequencyApplication = GetLimit<kMinFrequencyHz>;
    api.GetMaxFrequencyApplication = GetLimit<kMaxFrequencyHz>;
    api.GetMinAntennaConverterOffset = GetLimit<kMinConverterOffsetHz>;
    api.GetMaxAntennaConverterOffset = GetLimit<kMaxConverterOffsetHz>;
    api.GetMinKFactorLevel = GetLimit<kMinKFactorLevel>;
    api.GetMaxKFactorLevel = GetLimit<kMaxKFactorLevel>;
    api.GetMinSquelchLevel = GetLimit<kMinSquelchLevel>;
    api.GetMaxSquelchLevel = GetLimit<kMaxSquelchLevel>;
    api.GetMinDfSquelchLevel = GetLimit<kMinSquelchLevel>;
    api.GetMaxDfSquelchLevel = GetLimit<kMaxSquelchLevel>;
    api.GetMinDfMeasTimeInSec = GetLimit<kMinDfMeasTimeSeconds>;
    api.GetMaxDfMeasTimeInSec = GetLimit<kMaxDfMeasTimeSeconds>;
    api.GetMinNorthOffset = GetLimit<kMinNorthOffsetDegrees>;
    api.GetMaxNorthOffset = GetLimit<kMaxNorthOffsetDegrees>;
}

void BindNumberLimits(TvFioApi& api)
{
    api.GetMinAntennaNr = GetLimit<int16_t, 0>;
    api.GetMaxAntennaNr = GetLimit<int16_t, 99>;
    api.GetMinAntennaCode = GetLimit<int16_t, 0>;
    api.GetMaxAntennaCode = GetLimit<int16_t, 255>;
    api.GetMinAntennaBitPattern = GetLimit<int16_t, 0>;
    api.GetMaxAntennaBitPattern = GetLimit<int16_t, 3>;
    api.GetMaxAntennasIncluded = GetLimit<int16_t, 8>;
    api.GetMinMemoryNr = GetLimit<int16_t, 0>;
    api.GetMaxMemoryNr = GetLimit<int16_t, 1023>;
}

} // namespace

void BindLimitCalls(TvFioApi& api)
{
    BindValueLimits(api);
    BindNumberLimits(api);
}

} // namespace tvfio
