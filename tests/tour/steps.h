// tests/tour/steps.h: the main job: connect, fetch the memory list, change it, sort it, save it in both forms, send it
// back, keep house among the screen shots, find the instrument again after it was lost, and work on pictures of its
// display.
#pragma once

#include "tests/tour/player.h"

namespace tarvik {

class TourInstrument;

/// What the tour types; in MHz, and lower than every frequency of the list, so that the sort brings it to the top.
inline constexpr const char* kTourFrequencyMhz = "121.500000";
inline constexpr double kTourFrequencyHz = 121500000.0;
inline constexpr const char* kTourListName = "Tour";

/// The list that the instrument holds at the start.
inline constexpr const char* kTourFirstList = "Marine-VHF.tvm";

/// Lists of the PC are in `folder`, pictures in `shotFolder`. `instrument` runs, and is stopped and started in between.
std::vector<TourStep> TourSteps(const QString& folder, const QString& shotFolder, TourInstrument& instrument);

} // namespace tarvik
