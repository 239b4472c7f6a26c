// The antennas of examples/: their formulas against published values, and what links their files.
#include "closed/loader.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "tests/support/fixture.h"
#include "tools/examples/antennas.h"
#include "tools/examples/radiation.h"

#include <cmath>

namespace tarvik {

namespace {

constexpr double kHalfWave = 1.5707963267948966; // k l of one arm

class ExampleAntennas : public ProgramTest {
protected:
    void SetUp() override
    {
        ReadInstrumentLimits();
    }

    static ExampleAntenna Antenna(const QString& name)
    {
        for (ExampleAntenna& antenna : AllAntennas()) {
            if (antenna.Name == name)
                return std::move(antenna);
        }
        ADD_FAILURE() << "no antenna " << name.toStdString();
        return {};
    }

    static double FactorAt(const QString& name, double megahertz)
    {
        return Antenna(name).At(megahertz * 1e6).PassiveDb;
    }

    static QString File(const QString& name)
    {
        return QStringLiteral(EXAMPLES_FOLDER "/antennas/") + name;
    }

    static bool IsWithin(double value, Range<double> range)
    {
        return value >= range.Min && value <= range.Max;
    }
};

} // namespace

TEST_F(ExampleAntennas, FormulasGivePublishedValues)
{
    EXPECT_NEAR(AntennaFactorOfGain(1e6, 0), -29.77, 0.005);
    EXPECT_NEAR(DipoleOhms(kHalfWave), 73.13, 0.005);
    EXPECT_NEAR(DipoleOhms(2 * kHalfWave), 199.1, 0.05); // a whole wavelength
    EXPECT_NEAR(DipoleBroadsideDbi(kHalfWave), 2.15, 0.005);
    EXPECT_NEAR(DipoleBroadsideDbi(0.01), 1.76, 0.005); // a short dipole
    EXPECT_NEAR(MismatchLossDb({ 73.13, 0 }, 50), 0.156, 0.001);
    EXPECT_NEAR(MismatchLossDb({ 50, 0 }, 50), 0, 1e-9);
    const std::vector<double> directions =
        HalfPowerDirections([](double degrees) { return DipolePattern(kHalfWave, degrees); });
    ASSERT_EQ(directions.size(), 4u);
    EXPECT_NEAR(directions[2] - directions[1], 78.1, 0.05); // the width between half powers
    EXPECT_EQ(directions[0], -directions[3]);
}

/// Schelkunoff's values for cones of half a wavelength together: the resistance of a thin dipole, at any angle.
TEST_F(ExampleAntennas, BiconeImpedanceIsSchelkunoffs)
{
    for (const double halfAngle : { 1.0, 27.0 }) {
        EXPECT_NEAR(BiconeImpedance(kHalfWave, halfAngle).real(), 73.13, 0.01);
        EXPECT_NEAR(BiconeImpedance(kHalfWave, halfAngle).imag(), 153.66, 0.01);
    }
    EXPECT_LT(BiconeImpedance(0.5 * kHalfWave, 27).imag(), 0);
    EXPECT_LT(BiconeImpedance(2 * kHalfWave, 27).real(), BiconeImpedance(2 * kHalfWave, 1).real());
}

TEST_F(ExampleAntennas, DipoleFactorOfLengthAgreesWithThatOfGainAndMismatch)
{
    for (const double megahertz : { 30.0, 100.0, 1000.0 }) {
        const double expected = 20 * std::log10(megahertz) - 29.774 - 2.151 + 0.156;
        EXPECT_NEAR(FactorAt("Dipole-Set", megahertz), expected, 0.01) << megahertz;
    }
    EXPECT_EQ(FactorAt("Dipole-Set", 100), 8.23);
}

TEST_F(ExampleAntennas, LogPeriodicHasItsGainAndBeam)
{
    EXPECT_EQ(FactorAt("Log-Periodic", 200), 8.25);
    EXPECT_EQ(FactorAt("Log-Periodic", 1000), 22.23);
    const AntennaResponse response = Antenna("Log-Periodic").At(1300e6);
    ASSERT_EQ(response.Angles.size(), 2u);
    EXPECT_NEAR(response.Angles[1], 31.4, 0.1);
    EXPECT_EQ(response.PhaseDegrees, 0); // the active region is at the front
    // 9.03 ns at 215 MHz: 2 x 0.157 / (1 - 0.865) of the difference of the periods of 215 and 1300 MHz.
    const double slope =
        Antenna("Log-Periodic").At(220e6).PhaseDegrees - Antenna("Log-Periodic").At(210e6).PhaseDegrees;
    EXPECT_NEAR(std::remainder(slope, 360), -360 * 10e6 * 9.029e-9, 0.1);
}

TEST_F(ExampleAntennas, BiconicalIsBestAtItsResonance)
{
    EXPECT_NEAR(FactorAt("Biconical", 70), 7.3, 0.01);
    EXPECT_GT(FactorAt("Biconical", 30), 18);
    EXPECT_GT(FactorAt("Biconical", 300), 12);
    EXPECT_GT(Antenna("Biconical").At(30e6).PhaseDegrees, 60); // a capacitance
    EXPECT_EQ(Antenna("Biconical").At(300e6).Angles.size(), 4u);
}

TEST_F(ExampleAntennas, FollowerMakesTheRodFlat)
{
    const ExampleAntenna rod = Antenna("Active-Rod");
    EXPECT_NEAR(rod.At(1e6).ActiveDb, 10.59, 0.01);
    EXPECT_NEAR(rod.At(9e3).ActiveDb, rod.At(10e6).ActiveDb, 0.2);
    EXPECT_NEAR(rod.At(100e3).PassiveDb - rod.At(1e6).PassiveDb, 20, 0.01);
    EXPECT_GT(rod.At(9e3).PhaseDegrees, 4);
    EXPECT_EQ(rod.At(30e6).PhaseDegrees, 0);
    EXPECT_EQ(rod.At(1e6).Angles, std::vector<double>{ 0 });
}

TEST_F(ExampleAntennas, ObeyTheRulesOfTheirLists)
{
    int included = 0;
    for (const ExampleAntenna& antenna : AllAntennas()) {
        SCOPED_TRACE(antenna.Name.toStdString());
        EXPECT_TRUE(ValidListName(antenna.Name));
        for (const QString& text : { antenna.Title, antenna.Formula })
            EXPECT_TRUE(ValidText(text) && text.size() <= kTextLength) << text.toStdString();
        included += antenna.Mount.IsIncluded ? 1 : 0;
        EXPECT_TRUE(IsWithin(antenna.Mount.NorthDegrees, Limits().NorthOffset));
        EXPECT_TRUE(std::is_sorted(antenna.FrequenciesHz.begin(), antenna.FrequenciesHz.end()));
        for (const double frequencyHz : antenna.FrequenciesHz) {
            const AntennaResponse response = antenna.At(frequencyHz);
            EXPECT_TRUE(IsWithin(frequencyHz, Limits().FrequencyHz)) << frequencyHz;
            EXPECT_TRUE(IsWithin(response.PassiveDb, Limits().KFactorLevel)) << frequencyHz;
            EXPECT_TRUE(IsWithin(response.ActiveDb, Limits().KFactorLevel)) << frequencyHz;
            EXPECT_LE(std::abs(response.PhaseDegrees), 180) << frequencyHz;
            EXPECT_FALSE(response.Angles.empty()) << frequencyHz;
        }
    }
    EXPECT_LT(included, Limits().MaxAntennasIncluded);
}

TEST_F(ExampleAntennas, BothFormatsHoldTheSameTables)
{
    SetEditorType(FileClassKfactorTable);
    for (const ExampleAntenna& antenna : AllAntennas()) {
        KfactorTable fromBinary;
        KfactorTable fromCsv;
        ASSERT_TRUE(LoadKfactorFile(File(antenna.Name + ".tvk"), fromBinary));
        ASSERT_TRUE(LoadKfactorFile(File(antenna.Name + ".csv"), fromCsv));
        EXPECT_EQ(fromBinary.Name, antenna.Name);
        EXPECT_EQ(fromBinary.Rows, fromCsv.Rows) << antenna.Name.toStdString();
        EXPECT_TRUE(KfactorMayBeSaved(fromBinary)) << antenna.Name.toStdString();
    }
    SetEditorType(FileClassAntennaList);
    AntennaTable fromBinary;
    AntennaTable fromCsv;
    ASSERT_TRUE(ReadAntennaFile(File("Monitoring-Site.tva"), fromBinary));
    ASSERT_TRUE(ReadAntennaFile(File("Monitoring-Site.csv"), fromCsv));
    EXPECT_TRUE(fromBinary == fromCsv);
    EXPECT_FALSE(ValidateAntennaRows(fromBinary.Rows).has_value());
    EXPECT_TRUE(fromBinary == fromCsv) << "a band was swapped";
}

/// Each antenna of the list has the band of its linked files, which agree with each other.
TEST_F(ExampleAntennas, ListAgreesWithLinkedFiles)
{
    SetEditorType(FileClassAntennaList);
    AntennaTable site;
    ASSERT_TRUE(ReadAntennaFile(File("Monitoring-Site.tva"), site));
    int antennas = 0;
    for (const AntennaRow& row : site.Rows) {
        if (!row.Used)
            continue;
        SCOPED_TRACE(row.Name.toStdString());
        ++antennas;
        KfactorTable table;
        CorrSet set;
        ASSERT_TRUE(LoadKfactorFile(File(row.KfactorTableName + ".tvk"), table));
        ASSERT_TRUE(LoadCorrSet(File(row.CorrectionSetName + ".tvc"), set));
        double firstHz = 0;
        double lastHz = 0;
        EXPECT_TRUE(FirstKfactorFrequency(table, firstHz) && LastKfactorFrequency(table, lastHz));
        EXPECT_EQ(row.StartFrequency, firstHz);
        EXPECT_EQ(row.StopFrequency, lastHz);
        EXPECT_EQ(set.Header.StartFrequencyHz, firstHz);
        EXPECT_EQ(set.Header.StopFrequencyHz, lastHz);
        EXPECT_EQ(set.Header.AntennaCode, row.AntennaCode);
        EXPECT_EQ(CorrHeaderTextsOf(set).AntennaName, row.Name);
        for (const CorrTableId id : kCorrTables)
            ASSERT_EQ(UsedCorrEntries(id, set.Records), table.Count);
        for (int at = 0; at < table.Count; ++at) {
            for (const CorrTableId id : kCorrTables)
                EXPECT_EQ(CorrValue(id, set.Records, at, kCorrFrequency), table.Row(at).Frequency);
            EXPECT_EQ(CorrValue(CorrTableId::KFactor, set.Records, at, kCorrPassive), table.Row(at).Passive);
            EXPECT_EQ(CorrValue(CorrTableId::KFactor, set.Records, at, kCorrActive), table.Row(at).Active);
            EXPECT_FALSE(CorrAngles(set.Records, at).empty());
        }
    }
    EXPECT_EQ(antennas, 4);
}

} // namespace tarvik
