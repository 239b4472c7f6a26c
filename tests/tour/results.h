// tests/tour/results.h: what the tour must leave behind.
#pragma once

#include <QString>

/// True when both saved lists hold the edited list; says on standard error what does not.
[[nodiscard]] bool TourResultsHold(const QString& folder);
