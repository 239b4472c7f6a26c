// tests/tour/steps.h: the main tasks: connect, fetch the memory list, edit and sort it, save it in both formats, send
// it back, clean up the screen shots, reconnect after a lost link, work with pictures of the display, and edit one list
// of each other kind.
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

/// Where the steps save, by folders that end in the separator.
struct TourFolders {
    QString MemoryLists;
    QString OtherLists;
    QString Pictures;
};

/// `instrument` is running; steps stop and restart it.
std::vector<TourStep> TourSteps(const TourFolders& folders, TourInstrument& instrument);

} // namespace tarvik
