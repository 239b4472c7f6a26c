// tools/examples/tables.h: frequencies that standards list individually.
#pragma once

#include "tools/examples/receptions.h"

#include <vector>

namespace tarvik {

struct TableRow {
    double Kilohertz;
    const char* Description;
    const Reception* Settings;
};

/// Radio Regulations, Appendix 15 (distress and safety), and Nos. 5.111 and 5.256 (survival craft). For the satellite
/// beacons of 406.0 to 406.1 MHz, the channels in use. Voice: carrier frequency; shift keying: assigned frequency,
/// the centre of both tones.
const std::vector<TableRow>& DistressTable();

/// Stations of Recommendation ITU-R TF.768: carrier frequencies.
const std::vector<TableRow>& TimeSignalTable();

/// Use of a maritime VHF channel by the notes of Appendix 18; empty if the table gives none.
const char* MarineUse(int channel);

/// As above for a few aeronautical channels, with a leading blank.
const char* AirbandUse(double frequencyHz);

/// Use of the sub-band of 868 to 870 MHz that contains a frequency.
const char* ShortRange868Use(double frequencyHz);

} // namespace tarvik
