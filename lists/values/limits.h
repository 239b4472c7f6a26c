// lists/values/limits.h: the value limits of the present instrument generation, as the list store publishes them.
#pragma once

#include <cstdint>

namespace tarvik {

/// Both ends belong to the range.
template <typename Number>
struct Range {
    Number Min{};
    Number Max{};
};

/// Process-wide. Values outside these ranges are no errors where they are typed or read: they are clamped.
struct InstrumentLimits {
    Range<double> FrequencyHz; ///< every frequency in every list
    Range<double> AntennaConverterOffsetHz;
    Range<double> KFactorLevel; ///< dB/m
    Range<double> SquelchLevel; ///< dBuV
    Range<double> DfSquelchLevel; ///< dBuV
    Range<double> DfMeasTimeSec;
    Range<std::int16_t> AntennaNr;
    Range<std::int16_t> AntennaCode;
    Range<double> NorthOffset; ///< degrees
    Range<std::int16_t> AntennaBitPattern; ///< read and kept: the bit fields are bounded by their choice of four
    std::int16_t MaxAntennasIncluded = 0; ///< exclusive
    Range<std::int16_t> MemoryNr; ///< the CSV reader counts from 0 whatever the minimum is
};
InstrumentLimits& Limits();

/// Refills `Limits()` from the store, in the record's order. A limit that can't be had keeps its value.
void ReadInstrumentLimits();

} // namespace tarvik
