// tools/examples/antennas.h: antenna types whose figures are computed by the formulas of radiation.h, as K-factor
// tables, correction sets and an antenna list that links them.
#pragma once

#include "lists/antenna/antennaList.h"
#include "lists/correction/correctionSet.h"
#include "lists/kfactor/kfactorTable.h"

#include <vector>

namespace tarvik {

/// What an antenna does at one frequency. Rounded to the two decimals that the editors show.
struct AntennaResponse {
    double PassiveDb = 0; ///< antenna factor at 50 ohms, dB(1/m)
    double ActiveDb = 0; ///< with its amplifier; the same for an antenna without one
    double PhaseDegrees = 0; ///< of the voltage at its connector to the field at its reference point, -180 to 180
    std::vector<double> Angles; ///< azimuths of half power, degrees from its main direction; only 0 if there is none
};

/// Its place in the antenna list.
struct AntennaMount {
    int Row = 0;
    bool IsIncluded = false;
    int PassiveBits = 0; ///< input of the antenna switch
    int ActiveBits = 0;
    int Code = 0;
    double NorthDegrees = 0;
};

struct ExampleAntenna {
    QString Name; ///< of K-factor table and correction set, and of their files
    QString Title; ///< in the antenna list
    QString Formula; ///< names the source
    AntennaMount Mount;
    std::vector<double> FrequenciesHz; ///< ascending
    AntennaResponse (*At)(double frequencyHz);
};
std::vector<ExampleAntenna> AllAntennas();

KfactorTable TableOfAntenna(const ExampleAntenna& antenna);

/// Replaces `set` by the correction set of an antenna. False if memory runs out.
[[nodiscard]] bool FillCorrSet(const ExampleAntenna& antenna, CorrSet& set);

/// The list of all antennas.
AntennaTable SiteOfAntennas();

} // namespace tarvik
