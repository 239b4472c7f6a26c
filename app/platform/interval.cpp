#include "app/platform/interval.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"

#include <algorithm>

namespace tarvik {

namespace {

bool& TimerRuns()
{
    static ProcessState<bool> runs;
    return runs.Get();
}

void WaitPiece(int milliseconds)
{
    if (!TimerRuns()) {
        TimerRuns() = true;
        TheSeams().StartTimer(milliseconds, [] { TimerRuns() = false; });
    }
    TheSeams().PumpUntil([] { return !TimerRuns(); });
}

} // namespace

void IntervalWait(int milliseconds)
{
    for (int left = milliseconds; left > 0; left -= kIntervalPieceMs)
        WaitPiece(std::min(left, kIntervalPieceMs));
}

} // namespace tarvik
