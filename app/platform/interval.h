// app/platform/interval.h: a wait that keeps the message loop running.
#pragma once

namespace tarvik {

/// Longest interval of the timer; a longer wait takes several.
inline constexpr int kIntervalPieceMs = 60000;

/// Runs the message loop for `milliseconds`; 0 returns at once. A nested wait does not restart the timer and ends with
/// the outer one.
void IntervalWait(int milliseconds);

} // namespace tarvik
