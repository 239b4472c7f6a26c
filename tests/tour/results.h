// tests/tour/results.h: checks the files that the tour wrote.
#pragma once

#include <QString>

namespace tarvik {

class TourInstrument;

/// True if both saved lists contain the edited list, the instrument holds the same, and the screen shots are as
/// expected on both sides; failures are reported on standard error. Both folders end in the separator.
[[nodiscard]] bool CheckTourResults(
    const QString& listFolder, const QString& shotFolder, const TourInstrument& instrument);

} // namespace tarvik
