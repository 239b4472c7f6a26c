// tools/instrument/spectrum.h: what the receiver hears: noise, and a carrier at each frequency of its memory list.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tarvik {

/// One station.
struct Carrier {
    double FrequencyHz = 0;
    double BandwidthHz = 15e3;
    double SpanHz = 1e6; ///< that the display shows around it
    int Demodulation = 0; ///< code, 0 is FM
    QString Description;
};

/// Sweeps pass at an even pace; each has a number. The same number gives the same levels again.
using SweepNumber = std::uint32_t;

inline constexpr double kLowestLevel = -20; ///< dBuV, bottom of the display
inline constexpr double kHighestLevel = 80; ///< dBuV, its top

/// Levels in dBuV of one sweep over `count` points, the span `centerHz` plus and minus half of `spanHz`.
std::vector<double> SweepLevels(
    const std::vector<Carrier>& carriers, double centerHz, double spanHz, int count, SweepNumber sweep);

/// Level in dBuV at the antenna of one carrier; the noise's level while it is silent.
double CarrierLevel(const Carrier& carrier, SweepNumber sweep);

} // namespace tarvik
