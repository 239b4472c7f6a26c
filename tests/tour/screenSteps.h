// tests/tour/screenSteps.h: the receiver's display as evidence: capture it twice, describe it, print-ready black and
// white, arrange, save as each format, open again, convert a batch.
#pragma once

#include "tests/tour/player.h"

namespace tarvik {

/// Name of the pictures that the tour saves, without extension, and the folder that takes the converted ones.
inline constexpr const char* kTourPicture = "Evidence";
inline constexpr const char* kTourConverted = "Converted";

/// Files of the PC are in `folder`, which ends in the separator.
std::vector<TourStep> ScreenSteps(const QString& folder);

/// False, told on standard error, when the files that the steps leave are not what they must be.
bool ScreenResultsHold(const QString& folder);

} // namespace tarvik
