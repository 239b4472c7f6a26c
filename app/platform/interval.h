// app/platform/interval.h: the program's wait, during which the message loop goes on.
#pragma once

namespace tarvik {

/// Longest single run of the wait's timer; a longer wait goes in pieces.
inline constexpr int kIntervalPieceMs = 60000;

/// Yields to the message loop for `milliseconds`; 0 returns at once. A wait that is asked for while another one runs
/// does not restart the timer and ends with it.
void IntervalWait(int milliseconds);

} // namespace tarvik
