// tools/instrument/spectrum.h: the simulated spectrum: noise, and a carrier at each frequency of the memory list.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tarvik {

/// One station.
struct Carrier {
    double FrequencyHz = 0;
    double BandwidthHz = 15e3;
    double SpanHz = 1e6; ///< displayed around it
    int Demodulation = 0; ///< code; 0 is FM
    QString Description;
};

/// Number of a sweep, at a constant rate. The same number gives the same levels.
using SweepNumber = std::uint32_t;

inline constexpr double kLowestLevel = -20; ///< dBuV, bottom of the display
inline constexpr double kHighestLevel = 80; ///< dBuV, its top

/// Levels in dBuV of one sweep over `count` points in the span `spanHz` around `centerHz`.
std::vector<double> SweepLevels(
    const std::vector<Carrier>& carriers, double centerHz, double spanHz, int count, SweepNumber sweep);

/// Level in dBuV of one carrier at the antenna; the noise level while it is silent.
double CarrierLevel(const Carrier& carrier, SweepNumber sweep);

} // namespace tarvik
