// tests/tour/listSteps.h: one list of each of the other kinds: an antenna with a K-factor table and a correction set
// that are made from its editor, the diagram of the table, and a suppress list.
#pragma once

#include "tests/tour/player.h"

namespace tarvik {

/// Lists are saved to `folder`, which ends in the separator.
std::vector<TourStep> ListSteps(const QString& folder);

/// True if the saved lists have what was typed, and the antenna its links; failures are reported on standard error.
[[nodiscard]] bool CheckListResults(const QString& folder);

} // namespace tarvik
