// app/state/progressBar.h: the progress box of the status bar: one job at a time, counted in steps.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace tarvik {

/// Interval at which the box looks at `WorkCounter`, which a decoder may raise by itself.
inline constexpr int kProgressTimerMs = 200;

struct ProgressState {
    bool Active = false;
    qint32 WorkCounter = 0; ///< steps done
    qint32 TotalSteps = 0;
    double PercentPerStep = 0;
    qint16 LastPercent = -1; ///< as shown; -1 while nothing is
};
ProgressState& Progress();

/// Starts a job of `total` steps. A total below 1 shows 0 percent throughout.
void ProgressStart(qint32 total);

/// The job has gone `steps` further. Nothing without a job.
void ProgressAdd(qint32 steps);

/// The job is done: shows the last percent, then clears the box. Nothing without a job.
void ProgressEnd();

/// Draws the box anew when the whole percent has changed, and lets waiting events run.
void ProgressRefresh();

/// Width of the filled bar, in the unit of `width`.
int ProgressBarWidth(int width, int percent);

/// One character of the percent text: where it begins, and whether it lies on the bar and is therefore white.
struct ProgressCharacter {
    QChar Character;
    int Left = 0;
    bool IsWhite = false;
};

/// The text, centred in `width`, character by character, so that it stays readable where the bar ends.
std::vector<ProgressCharacter> ProgressCharacters(
    const QString& text, int width, int percent, const std::function<int(QChar)>& widthOf);

} // namespace tarvik
