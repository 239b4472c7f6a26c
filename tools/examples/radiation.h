// tools/examples/radiation.h: textbook formulas of antennas. Lengths in wavelengths or as electrical lengths k l in
// radians, impedances in ohms, directions in degrees.
#pragma once

#include <complex>
#include <functional>
#include <vector>

namespace tarvik {

inline constexpr double kLightMetresPerSec = 299792458.0;
inline constexpr double kFreeSpaceOhms = 376.730313668; ///< wave impedance
inline constexpr double kReceiverOhms = 50.0;

double WavelengthMetres(double frequencyHz);
double Decibels(double voltageRatio);

/// Antenna factor in dB(1/m) of a matched antenna at 50 ohms by its gain in dBi. From the effective area
/// A = G wavelength^2 / 4 pi and the power E^2 A / 377 ohms into 50 ohms: 20 log10(f / MHz) - G - 29.77 dB.
double AntennaFactorOfGain(double frequencyHz, double gainDbi);

/// Power lost between an antenna and a real load, in dB: |Za + R|^2 / (4 Ra R).
double MismatchLossDb(std::complex<double> antenna, double loadOhms);

/// A dipole with a sinusoidal current; `halfLength` is k l of one arm (C. A. Balanis, Antenna Theory, chapter 4.5).

/// Radiation resistance at the maximum of the current: 73.13 ohms for half a wavelength.
double DipoleOhms(double halfLength);

/// Directivity at right angles to the dipole: 2.15 dBi for half a wavelength.
double DipoleBroadsideDbi(double halfLength);

/// Field strength by the angle from that direction, relative to it.
double DipolePattern(double halfLength, double degrees);

/// Input impedance of a biconical antenna with cones of a slant length k l and a half angle: the line of the cones,
/// 120 ohms ln cot(angle / 2), ended by the impedance of its radiation (S. A. Schelkunoff; C. A. Balanis, Antenna
/// Theory, chapter 9.2).
std::complex<double> BiconeImpedance(double coneLength, double halfAngleDegrees);

/// All directions between -180 and 180 degrees, ascending, in which a symmetrical pattern, 1 at 0 degrees, passes half
/// its power; to 0.01 degrees.
std::vector<double> HalfPowerDirections(const std::function<double(double degrees)>& pattern);

} // namespace tarvik
