// lists/values/limits.h: limits of values for the current instrument generation, as the list store publishes them.
#pragma once

#include <cstdint>

namespace tarvik {

/// Both ends are included.
template <typename Number>
struct Range {
    Number Min{};
    Number Max{};
};

/// Process-wide. Typed or read values outside these ranges are clamped, not refused.
struct InstrumentLimits {
    Range<double> FrequencyHz; ///< of every list
    Range<double> AntennaConverterOffsetHz;
    Range<double> KFactorLevel; ///< dB/m
    Range<double> SquelchLevel; ///< dBuV
    Range<double> DfSquelchLevel; ///< dBuV
    Range<double> DfMeasTimeSec;
    Range<std::int16_t> AntennaNr;
    Range<std::int16_t> AntennaCode;
    Range<double> NorthOffset; ///< degrees
    Range<std::int16_t> AntennaBitPattern; ///< not used: the bit fields offer four choices
    std::int16_t MaxAntennasIncluded = 0; ///< exclusive
    Range<std::int16_t> MemoryNr; ///< the CSV reader accepts numbers from 0, whatever the minimum
};
InstrumentLimits& Limits();

/// Reads `Limits()` from the store, in the order of the fields. Without the store they keep their values.
void ReadInstrumentLimits();

} // namespace tarvik
