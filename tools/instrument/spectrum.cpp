#include "tools/instrument/spectrum.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr double kNoiseLevel = -6; // dBuV
constexpr double kNoiseSpread = 7; // dB
constexpr double kWeakestCarrier = 14; // dBuV
constexpr double kCarrierSpread = 44; // dB
constexpr SweepNumber kSweepsPerOver = 60; // how long a station stays on the air or silent
constexpr std::uint32_t kPercentOnAir = 55;
constexpr double kFadingSweeps = 23;
constexpr double kFading = 2.5; // dB

/// Hashes a number to 32 bits, so that neighbours are uncorrelated.
std::uint32_t Hash(std::uint32_t value)
{
    value ^= value >> 16;
    value *= 0x7FEB352DU;
    value ^= value >> 15;
    value *= 0x846CA68BU;
    return value ^ (value >> 16);
}

/// A pseudo-random number from 0 to 1, determined by two others.
double PseudoRandom(std::uint32_t first, std::uint32_t second)
{
    return Hash(first ^ Hash(second)) / 4294967295.0;
}

std::uint32_t KeyOf(const Carrier& carrier)
{
    return static_cast<std::uint32_t>(std::fmod(std::round(std::abs(carrier.FrequencyHz)), 4294967296.0));
}

bool IsOnAir(const Carrier& carrier, SweepNumber sweep)
{
    const std::uint32_t key = KeyOf(carrier);
    const SweepNumber over = (sweep + Hash(key) % kSweepsPerOver) / kSweepsPerOver;
    return Hash(key ^ Hash(over)) % 100 < kPercentOnAir;
}

/// Shape of a modulated carrier in dB below its peak: rounded within the bandwidth, then falling steeply.
double CarrierShape(double offsetHz, double bandwidthHz)
{
    const double beyond = std::max(0.0, std::abs(offsetHz) / bandwidthHz - 0.12);
    return 170 * beyond * beyond;
}

/// Deviation of a carrier by speech.
double SpeechDeviationHz(const Carrier& carrier, SweepNumber sweep)
{
    return carrier.BandwidthHz * 0.16 * (PseudoRandom(KeyOf(carrier), sweep) - 0.5);
}

} // namespace

double CarrierLevel(const Carrier& carrier, SweepNumber sweep)
{
    if (!IsOnAir(carrier, sweep))
        return kNoiseLevel;
    const std::uint32_t key = KeyOf(carrier);
    return kWeakestCarrier + kCarrierSpread * PseudoRandom(key, 1)
        + kFading * std::sin(sweep / kFadingSweeps + 6.28 * PseudoRandom(key, 2));
}

std::vector<double> SweepLevels(
    const std::vector<Carrier>& carriers, double centerHz, double spanHz, int count, SweepNumber sweep)
{
    std::vector<double> levels(static_cast<size_t>(count));
    for (int point = 0; point < count; ++point) {
        const auto column = static_cast<std::uint32_t>(point);
        const double spread = PseudoRandom(column, sweep) + PseudoRandom(column, ~sweep) - 1;
        levels[column] = kNoiseLevel + kNoiseSpread * spread;
    }
    const double stepHz = spanHz / std::max(1, count - 1);
    const double startHz = centerHz - spanHz / 2;
    for (const Carrier& carrier : carriers) {
        // Keeps carriers narrower than a point visible.
        const double widthHz = std::max(carrier.BandwidthHz, 2 * stepHz);
        const double middle = (carrier.FrequencyHz + SpeechDeviationHz(carrier, sweep) - startHz) / stepHz;
        const double reach = 1.5 * widthHz / stepHz;
        if (middle + reach < 0 || middle - reach > count - 1 || !IsOnAir(carrier, sweep))
            continue;
        const double top = CarrierLevel(carrier, sweep);
        const int last = static_cast<int>(std::min<double>(count - 1, std::floor(middle + reach)));
        for (int point = static_cast<int>(std::max(0.0, std::ceil(middle - reach))); point <= last; ++point) {
            double& level = levels[static_cast<size_t>(point)];
            const double ripple = 5 * (PseudoRandom(static_cast<std::uint32_t>(point), sweep + KeyOf(carrier)) - 0.5);
            level = std::max(level, top + ripple - CarrierShape((point - middle) * stepHz, widthHz));
        }
    }
    for (double& level : levels)
        level = std::clamp(level, kLowestLevel, kHighestLevel);
    return levels;
}

} // namespace tarvik
