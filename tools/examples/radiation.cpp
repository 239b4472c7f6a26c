#include "tools/examples/radiation.h"

#include <cmath>
#include <numbers>

namespace tarvik {

namespace {

using std::numbers::egamma;
using std::numbers::pi;

double Radians(double degrees)
{
    return degrees * pi / 180;
}

/// Simpson's rule from 0 to `end`.
template <typename Function>
double Integral(Function function, double end)
{
    constexpr int kSteps = 1000;
    const double step = end / kSteps;
    double sum = function(0.0) + function(end);
    for (int at = 1; at < kSteps; ++at)
        sum += (at % 2 == 0 ? 2 : 4) * function(at * step);
    return sum * step / 3;
}

double SineIntegral(double x)
{
    return Integral([](double t) { return t == 0 ? 1 : std::sin(t) / t; }, x);
}

/// Of (1 - cos t) / t.
double EntireCosineIntegral(double x)
{
    return Integral([](double t) { return t == 0 ? 0 : (1 - std::cos(t)) / t; }, x);
}

double CosineIntegral(double x)
{
    return egamma + std::log(x) - EntireCosineIntegral(x);
}

/// Impedance that ends the line of the cones.
std::complex<double> ConeEndImpedance(double length)
{
    const double si2 = SineIntegral(2 * length);
    const double si4 = SineIntegral(4 * length);
    const double ci4 = CosineIntegral(4 * length);
    const double logarithm = egamma + std::log(length);
    const double cosine = std::cos(2 * length);
    const double sine = std::sin(2 * length);
    return { 60 * EntireCosineIntegral(2 * length) + 30 * (logarithm - 2 * CosineIntegral(2 * length) + ci4) * cosine
            + 30 * (si4 - 2 * si2) * sine,
        60 * si2 + 30 * (ci4 - logarithm) * sine - 30 * si4 * cosine };
}

} // namespace

double WavelengthMetres(double frequencyHz)
{
    return kLightMetresPerSec / frequencyHz;
}

double Decibels(double voltageRatio)
{
    return 20 * std::log10(voltageRatio);
}

double AntennaFactorOfGain(double frequencyHz, double gainDbi)
{
    return Decibels(std::sqrt(4 * pi * kFreeSpaceOhms / kReceiverOhms) / WavelengthMetres(frequencyHz)) - gainDbi;
}

double MismatchLossDb(std::complex<double> antenna, double loadOhms)
{
    return Decibels(std::abs(antenna + loadOhms) / std::sqrt(4 * antenna.real() * loadOhms));
}

double DipoleOhms(double halfLength)
{
    const double length = 2 * halfLength;
    return 60
        * (EntireCosineIntegral(length) + std::sin(length) * (SineIntegral(2 * length) / 2 - SineIntegral(length))
            + std::cos(length) / 2
                * (egamma + std::log(halfLength) + CosineIntegral(2 * length) - 2 * CosineIntegral(length)));
}

double DipoleBroadsideDbi(double halfLength)
{
    return Decibels((1 - std::cos(halfLength)) * std::sqrt(120 / DipoleOhms(halfLength)));
}

double DipolePattern(double halfLength, double degrees)
{
    const double cosine = std::cos(Radians(degrees));
    if (std::abs(cosine) < 1e-9)
        return 0;
    return (std::cos(halfLength * std::sin(Radians(degrees))) - std::cos(halfLength))
        / (cosine * (1 - std::cos(halfLength)));
}

std::complex<double> BiconeImpedance(double coneLength, double halfAngleDegrees)
{
    using namespace std::complex_literals;
    const double line = -120 * std::log(std::tan(Radians(halfAngleDegrees) / 2));
    const std::complex<double> end = ConeEndImpedance(coneLength);
    const double tangent = std::tan(coneLength);
    return line * (line + 1i * end * tangent) / (end + 1i * line * tangent);
}

std::vector<double> HalfPowerDirections(const std::function<double(double degrees)>& pattern)
{
    constexpr int kPerDegree = 100;
    const auto isAbove = [&](int at) {
        const double strength = pattern(static_cast<double>(at) / kPerDegree);
        return strength * strength >= 0.5;
    };
    std::vector<double> directions;
    bool wasAbove = isAbove(-180 * kPerDegree);
    for (int at = -180 * kPerDegree; at < 180 * kPerDegree; ++at) {
        const bool isNextAbove = isAbove(at + 1);
        if (isNextAbove != wasAbove)
            directions.push_back((at < 0 ? at : at + 1) / static_cast<double>(kPerDegree));
        wasAbove = isNextAbove;
    }
    return directions;
}

} // namespace tarvik
