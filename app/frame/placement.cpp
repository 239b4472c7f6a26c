#include "app/frame/placement.h"

#include <algorithm>

namespace tarvik {

QRect PlacementOnScreens(const QRect& asked, const QVector<QRect>& screens)
{
    if (screens.isEmpty())
        return asked;
    const auto holds = [&asked](const QRect& screen) {
        const QRect seen = screen & asked;
        return seen.width() >= std::min(kMinVisiblePx.width(), asked.width())
            && seen.height() >= std::min(kMinVisiblePx.height(), asked.height()) && asked.top() >= screen.top();
    };
    if (!asked.isEmpty() && std::any_of(screens.begin(), screens.end(), holds))
        return asked;
    const QRect& home = screens.front();
    QRect placed(asked.topLeft(), asked.size().boundedTo(home.size()).expandedTo(kMinVisiblePx));
    placed.moveLeft(std::clamp(placed.left(), home.left(), home.right() - placed.width() + 1));
    placed.moveTop(std::clamp(placed.top(), home.top(), home.bottom() - placed.height() + 1));
    return placed;
}

QSize PlacedSize(const QRect& placed, const QVector<QRect>& screens, QSize borders)
{
    const bool fillsAScreen = std::any_of(
        screens.begin(), screens.end(), [&placed](const QRect& screen) { return screen.size() == placed.size(); });
    return fillsAScreen ? placed.size().shrunkBy({ 0, 0, borders.width(), borders.height() }) : placed.size();
}

} // namespace tarvik
