// tests/tour/steps.h: the main job: open a list, change it, sort it, save it in both forms.
#pragma once

#include "tests/tour/player.h"

/// What the tour types; in MHz, and lower than every frequency of the list, so that the sort brings it to the top.
inline constexpr const char* kTourFrequencyMhz = "121.500000";
inline constexpr double kTourFrequencyHz = 121500000.0;
inline constexpr const char* kTourListName = "Tour";

/// Everything is saved into `folder`.
std::vector<TourStep> TourSteps(const QString& folder);
