// tests/tour/screenSteps.h: steps with the receiver's display: capture it twice, describe it, black and white,
// arrange, save in each format, reopen, convert a batch, print.
#pragma once

#include "tests/tour/player.h"

namespace tarvik {

/// Base name of the pictures that the tour saves, and the folder for the converted ones.
inline constexpr const char* kTourPicture = "Evidence";
inline constexpr const char* kTourConverted = "Converted";

/// The file of the printed pages.
inline constexpr const char* kTourPages = "Pages.pdf";

/// Files of the PC are in `folder`, which ends in the separator.
std::vector<TourStep> ScreenSteps(const QString& folder);

/// False, with a message on standard error, if the steps have left other files than expected.
bool CheckScreenResults(const QString& folder);

} // namespace tarvik
