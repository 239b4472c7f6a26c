#include "app/state/progressBar.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/state/frame.h"
#include "app/values/general.h"
#include "app/values/numberPicture.h"

#include <numeric>

namespace tarvik {

namespace {

constexpr int kFullPercent = 100;

int Percent(const ProgressState& state)
{
    return static_cast<int>(Clamp(state.PercentPerStep * state.WorkCounter, 0.0, double{ kFullPercent }));
}

} // namespace

ProgressState& Progress()
{
    static ProcessState<ProgressState> state;
    return state.Get();
}

void ProgressStart(qint32 total)
{
    Progress() = { true, 0, total, total < 1 ? 0.0 : double{ kFullPercent } / total, -1 };
    ProgressRefresh();
    TheFrame()->EnableProgressTimer(true);
}

void ProgressAdd(qint32 steps)
{
    ProgressState& state = Progress();
    if (!state.Active)
        return;
    const qint64 done = qint64{ state.WorkCounter } + steps;
    state.WorkCounter = static_cast<qint32>(Clamp<qint64>(done, INT32_MIN, INT32_MAX));
    ProgressRefresh();
}

void ProgressEnd()
{
    if (!Progress().Active)
        return;
    TheFrame()->EnableProgressTimer(false);
    ProgressRefresh();
    Progress().Active = false;
    TheFrame()->ClearProgress();
}

void ProgressRefresh()
{
    ProgressState& state = Progress();
    if (!state.Active)
        return;
    const int percent = Percent(state);
    if (percent == state.LastPercent)
        return;
    state.LastPercent = static_cast<qint16>(percent);
    TheFrame()->ShowProgress(percent, FormatPicture(percent, u"0") + u'%');
    TheSeams().PumpEvents();
}

int ProgressBarWidth(int width, int percent)
{
    return static_cast<int>(qint64{ width } * percent / kFullPercent);
}

std::vector<ProgressCharacter> ProgressCharacters(
    const QString& text, int width, int percent, const std::function<int(QChar)>& widthOf)
{
    const int textWidth = std::accumulate(
        text.begin(), text.end(), 0, [&widthOf](int sum, QChar character) { return sum + widthOf(character); });
    const int barEnd = ProgressBarWidth(width, percent);
    int left = (width - textWidth) / 2;
    std::vector<ProgressCharacter> characters;
    for (const QChar character : text) {
        characters.push_back({ character, left, left < barEnd });
        left += widthOf(character);
    }
    return characters;
}

} // namespace tarvik
