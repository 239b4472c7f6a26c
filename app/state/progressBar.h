// app/state/progressBar.h: the progress box of the status bar: one job at a time, counted in steps.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace tarvik {

/// Interval at which the box polls `WorkCounter`, which a decoder may increase directly.
inline constexpr int kProgressTimerMs = 200;

struct ProgressState {
    bool Active = false;
    qint32 WorkCounter = 0; ///< steps done
    qint32 TotalSteps = 0;
    double PercentPerStep = 0;
    qint16 LastPercent = -1; ///< as shown; -1 while nothing is shown
};
ProgressState& Progress();

/// Starts a job of `total` steps. A total below 1 shows 0 percent throughout.
void ProgressStart(qint32 total);

/// Adds `steps` to the steps done. No effect without a job.
void ProgressAdd(qint32 steps);

/// Ends the job: shows the last percent, then clears the box. No effect without a job.
void ProgressEnd();

/// If the whole percent has changed, redraws the box and processes pending events.
void ProgressRefresh();

/// Width of the filled bar, in the unit of `width`.
int ProgressBarWidth(int width, int percent);

/// One character of the percent text; white if it begins on the bar.
struct ProgressCharacter {
    QChar Character;
    int Left = 0;
    bool IsWhite = false;
};

/// The text centred in `width`, by character, so that it is readable on and off the bar.
std::vector<ProgressCharacter> ProgressCharacters(
    const QString& text, int width, int percent, const std::function<int(QChar)>& widthOf);

} // namespace tarvik
