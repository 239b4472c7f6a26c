// tests/tour/steps.h: the main tasks: connect, fetch the memory list, edit and sort it, save it in both formats, send
// it back, clean up the screen shots, reconnect after a lost link, and work with pictures of the display.
#pragma once

#include "tests/tour/player.h"

namespace tarvik {

class TourInstrument;

/// The frequency that the tour types, in MHz: lower than all others in the list, so that sorting moves it to the top.
inline constexpr const char* kTourFrequencyMhz = "121.500000";
inline constexpr double kTourFrequencyHz = 121500000.0;
inline constexpr const char* kTourListName = "Tour";

/// The list on the instrument at the start.
inline constexpr const char* kTourFirstList = "Marine-VHF.tvm";

/// Lists of the PC are in `folder`, pictures in `shotFolder`. `instrument` is running; steps stop and restart it.
std::vector<TourStep> TourSteps(const QString& folder, const QString& shotFolder, TourInstrument& instrument);

} // namespace tarvik
