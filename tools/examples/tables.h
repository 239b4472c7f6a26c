// tools/examples/tables.h: what a standard lists one by one instead of by a rule.
#pragma once

#include "tools/examples/receptions.h"

#include <vector>

namespace tarvik {

struct TableRow {
    double Kilohertz;
    const char* Description;
    const Reception* Settings;
};

/// Radio Regulations, Appendix 15 (distress and safety), and Nos. 5.111 and 5.256 (survival craft). For the
/// satellite beacons of 406.0 to 406.1 MHz the channels that are in use. Voice: carrier frequency; shift keying:
/// assigned frequency, the middle of both tones.
const std::vector<TableRow>& DistressTable();

/// Stations of Recommendation ITU-R TF.768: carrier frequencies.
const std::vector<TableRow>& TimeSignalTable();

/// Use of a maritime VHF channel by the notes of Appendix 18; empty where the table says nothing beyond the service.
const char* MarineUse(int channel);

/// The same for a few aeronautical channels, with a blank in front.
const char* AirbandUse(double frequencyHz);

/// Use of the sub-band of 868 to 870 MHz in which a frequency lies.
const char* ShortRange868Use(double frequencyHz);

} // namespace tarvik
