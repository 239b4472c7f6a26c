// tests/tour/results.h: what the tour must leave behind.
#pragma once

#include <QString>

namespace tarvik {

class TourInstrument;

/// True when both saved lists hold the edited list, the instrument holds the same, and the screen shots are as they
/// were left on both sides; says on standard error what is not so. Both folders end in the separator.
[[nodiscard]] bool TourResultsHold(
    const QString& listFolder, const QString& shotFolder, const TourInstrument& instrument);

} // namespace tarvik
