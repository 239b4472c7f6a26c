#include "tools/examples/antennas.h"

#include "tools/examples/radiation.h"

#include <cmath>
#include <numbers>

namespace tarvik {

namespace {

using std::numbers::pi;

constexpr double kPicofarad = 1e-12;
constexpr double kMegahertz = 1e6;

double Degrees(double radians)
{
    return radians * 180 / pi;
}

double Rounded(double value)
{
    const double rounded = std::round(value * 100) / 100;
    return rounded == 0 ? 0 : rounded; // no -0
}

/// Between -180 and 180 degrees.
double Wrapped(double degrees)
{
    return std::remainder(degrees, 360.0);
}

/// An antenna without an amplifier.
AntennaResponse Passive(double factorDb, double phaseDegrees, std::vector<double> angles)
{
    return { Rounded(factorDb), Rounded(factorDb), Rounded(Wrapped(phaseDegrees)), std::move(angles) };
}

std::vector<double> Steps(double firstMhz, double lastMhz, double stepMhz)
{
    std::vector<double> frequencies;
    for (int at = 0; firstMhz + at * stepMhz <= lastMhz; ++at)
        frequencies.push_back((firstMhz + at * stepMhz) * kMegahertz);
    return frequencies;
}

/// Half-wave dipoles, horizontal, each tuned to the frequency, so that its impedance is its radiation resistance. The
/// field E gives the open voltage E times the effective length, wavelength / pi; the resistance and the receiver's 50
/// ohms divide it, without a matching network. A cable of 1 m with solid polyethylene, which carries waves at 0.66
/// times the speed of light, leads to the connector; its loss is neglected.
AntennaResponse HalfWaveDipole(double frequencyHz)
{
    constexpr double kArm = pi / 2;
    constexpr double kCableMetres = 1 / 0.66;
    static const std::vector<double> angles =
        HalfPowerDirections([](double degrees) { return DipolePattern(kArm, degrees); });
    const double wavelength = WavelengthMetres(frequencyHz);
    const double divider = kReceiverOhms / (kReceiverOhms + DipoleOhms(kArm));
    return Passive(-Decibels(wavelength / pi * divider), -360 * kCableMetres / wavelength, angles);
}

/// Two cones of 0.68 m with a half angle of 27 degrees, horizontal, directly at 50 ohms by a balun 1:1: the directivity
/// of a dipole of that length, less the mismatch of Schelkunoff's impedance, which also shifts the phase.
AntennaResponse Biconical(double frequencyHz)
{
    constexpr double kConeMetres = 0.68;
    constexpr double kHalfAngleDegrees = 27;
    const double cone = 2 * pi * kConeMetres / WavelengthMetres(frequencyHz);
    const std::complex<double> impedance = BiconeImpedance(cone, kHalfAngleDegrees);
    const double factor =
        AntennaFactorOfGain(frequencyHz, DipoleBroadsideDbi(cone)) + MismatchLossDb(impedance, kReceiverOhms);
    return Passive(factor, -Degrees(std::arg(impedance + kReceiverOhms)),
        HalfPowerDirections([cone](double degrees) { return DipolePattern(cone, degrees); }));
}

constexpr double kLogPeriodicFirstMhz = 200;
constexpr double kLogPeriodicLastMhz = 1300;

/// Log-periodic array of dipoles, horizontal: R. L. Carrel's optimum design for 8 dBi, a scale factor of 0.865 and a
/// spacing factor of 0.157 (C. A. Balanis, Antenna Theory, chapter 11.4), matched. Its active region is where the
/// dipoles are half a wavelength long, wavelength / (4 tan alpha) from the apex with tan alpha = (1 - scale) / (4
/// spacing). The wave travels there from the front dipole, and back along the boom: the phase is the integral of this
/// delay from the highest frequency, where it is 0. The pattern is that of a half-wave
/// dipole times a cardioid to the power that gives the directivity, by J. D. Kraus: 41253 / (product of the half-power
/// widths).
struct LogPeriodicPattern {
    double Power = 0;

    double Field(double degrees) const
    {
        return DipolePattern(pi / 2, degrees) * Cardioid(degrees);
    }
    double Cardioid(double degrees) const
    {
        return std::pow((1 + std::cos(degrees * pi / 180)) / 2, Power);
    }
    double Directivity() const
    {
        const auto width = [](const std::vector<double>& directions) {
            return directions[directions.size() / 2] - directions[directions.size() / 2 - 1];
        };
        return 41253 / width(HalfPowerDirections([this](double degrees) { return Field(degrees); }))
            / width(HalfPowerDirections([this](double degrees) { return Cardioid(degrees); }));
    }
};

LogPeriodicPattern LogPeriodicPatternFor(double gainDbi)
{
    constexpr double kPowerStep = 0.01;
    LogPeriodicPattern pattern{ 1 };
    while (10 * std::log10(pattern.Directivity()) < gainDbi)
        pattern.Power += kPowerStep;
    return pattern;
}

AntennaResponse LogPeriodic(double frequencyHz)
{
    constexpr double kGainDbi = 8;
    constexpr double kScale = 0.865;
    constexpr double kSpacing = 0.157;
    constexpr double kQuarterOverTangent = kSpacing / (1 - kScale); // of a wavelength
    static const std::vector<double> angles = HalfPowerDirections(
        [pattern = LogPeriodicPatternFor(kGainDbi)](double degrees) { return pattern.Field(degrees); });
    const double share = frequencyHz / (kLogPeriodicLastMhz * kMegahertz);
    return Passive(
        AntennaFactorOfGain(frequencyHz, kGainDbi), 720 * kQuarterOverTangent * (share - 1 - std::log(share)), angles);
}

/// A vertical rod of 1 m and a radius of 3 mm over a large ground plane. CISPR 16-1-6 gives its effective height,
/// wavelength / 2 pi tan(pi h / wavelength), and its capacitance, 55.6 pF/m h / (ln(h / radius) - 1) times tan(k h) / k
/// h. Active, a voltage follower with an input of 10 megohms and 8 pF passes on what this divider leaves; passive, the
/// rod is directly at 50 ohms. The response does not depend on the azimuth.
AntennaResponse ActiveRod(double frequencyHz)
{
    using namespace std::complex_literals;
    constexpr double kHeightMetres = 1;
    constexpr double kRadiusMetres = 0.003;
    constexpr double kFollowerOhms = 10e6;
    constexpr double kFollowerFarads = 8 * kPicofarad;
    const double electricalHeight = 2 * pi * kHeightMetres / WavelengthMetres(frequencyHz);
    const double effectiveHeight = kHeightMetres * std::tan(electricalHeight / 2) / electricalHeight;
    const double farads = 55.6 * kPicofarad * kHeightMetres / (std::log(kHeightMetres / kRadiusMetres) - 1)
        * std::tan(electricalHeight) / electricalHeight;
    const double radiansPerSec = 2 * pi * frequencyHz;
    const std::complex<double> rod = 1.0 / (1i * radiansPerSec * farads);
    const std::complex<double> follower = 1.0 / (1 / kFollowerOhms + 1i * radiansPerSec * kFollowerFarads);
    const std::complex<double> active = follower / (rod + follower);
    const std::complex<double> passive = kReceiverOhms / (rod + kReceiverOhms);
    return { Rounded(-Decibels(effectiveHeight * std::abs(passive))),
        Rounded(-Decibels(effectiveHeight * std::abs(active))), Rounded(Degrees(std::arg(active))), { 0.0 } };
}

std::vector<double> RodFrequencies()
{
    std::vector<double> frequencies{ 9e3 };
    for (const double decadeHz : { 10e3, 100e3, 1e6, 10e6 }) {
        for (const double step : { 1.0, 1.5, 2.0, 3.0, 5.0, 7.0 }) {
            if (step * decadeHz <= 30e6)
                frequencies.push_back(step * decadeHz);
        }
    }
    return frequencies;
}

} // namespace

std::vector<ExampleAntenna> AllAntennas()
{
    return { { QStringLiteral("Active-Rod"), QStringLiteral("Active rod 1 m"), QStringLiteral("CISPR 16-1-6 monopole"),
                 { 0, true, 0, 1, 1, 0 }, RodFrequencies(), ActiveRod },
        { QStringLiteral("Biconical"), QStringLiteral("Biconical 1.4 m"), QStringLiteral("Schelkunoff impedance"),
            { 1, true, 2, 2, 2, 90 }, Steps(30, 300, 5), Biconical },
        { QStringLiteral("Log-Periodic"), QStringLiteral("Log-periodic 8 dBi"), QStringLiteral("Carrel optimum design"),
            { 2, true, 3, 3, 3, 12.5 }, Steps(kLogPeriodicFirstMhz, kLogPeriodicLastMhz, 10), LogPeriodic },
        { QStringLiteral("Dipole-Set"), QStringLiteral("Tuned half-wave dipoles"),
            QStringLiteral("Half-wave dipole at 50 ohms"), { 8, false, 2, 2, 4, 0 }, Steps(30, 1000, 10),
            HalfWaveDipole } };
}

KfactorTable TableOfAntenna(const ExampleAntenna& antenna)
{
    KfactorTable table;
    table.Name = antenna.Name;
    table.Description = antenna.Formula;
    for (const double frequencyHz : antenna.FrequenciesHz) {
        const AntennaResponse response = antenna.At(frequencyHz);
        table.Row(table.Count++) = { true, frequencyHz, response.PassiveDb, response.ActiveDb };
    }
    return table;
}

bool FillCorrSet(const ExampleAntenna& antenna, CorrSet& set)
{
    set.Clear();
    set.FileName = antenna.Name;
    SetCorrTexts(antenna.Title, QStringLiteral("Computed"), set.Header);
    set.Header.AntennaCode = static_cast<std::int16_t>(antenna.Mount.Code);
    set.Header.StartFrequencyHz = antenna.FrequenciesHz.front();
    set.Header.StopFrequencyHz = antenna.FrequenciesHz.back();
    set.Header.Year = 2026;
    int row = 0;
    for (const double frequencyHz : antenna.FrequenciesHz) {
        const AntennaResponse response = antenna.At(frequencyHz);
        for (const CorrTableId table : kCorrTables) {
            SetCorrEntryUsed(table, set.Records, row, true);
            SetCorrValue(table, set.Records, row, kCorrFrequency, frequencyHz);
        }
        SetCorrValue(CorrTableId::KFactor, set.Records, row, kCorrPassive, response.PassiveDb);
        SetCorrValue(CorrTableId::KFactor, set.Records, row, kCorrActive, response.ActiveDb);
        SetCorrValue(CorrTableId::Omniphase, set.Records, row, kCorrPhase, response.PhaseDegrees);
        if (!SetCorrAngles(set.Records, row++, response.Angles))
            return false;
    }
    return true;
}

AntennaTable SiteOfAntennas()
{
    AntennaTable table;
    table.Name = QStringLiteral("Monitoring-Site");
    table.Description = QStringLiteral("9 kHz to 1.3 GHz");
    for (const ExampleAntenna& antenna : AllAntennas()) {
        AntennaRow& row = table.Row(antenna.Mount.Row);
        row.Used = true;
        row.Include = antenna.Mount.IsIncluded ? 1 : 0;
        row.Name = antenna.Title;
        row.StartFrequency = antenna.FrequenciesHz.front();
        row.StopFrequency = antenna.FrequenciesHz.back();
        row.PassiveBits = static_cast<std::int16_t>(antenna.Mount.PassiveBits);
        row.ActiveBits = static_cast<std::int16_t>(antenna.Mount.ActiveBits);
        row.KfactorTableName = antenna.Name;
        row.AntennaCode = static_cast<std::int16_t>(antenna.Mount.Code);
        row.NorthOffset = antenna.Mount.NorthDegrees;
        row.CorrectionSetName = antenna.Name;
    }
    return table;
}

} // namespace tarvik
