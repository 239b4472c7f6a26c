#include "screen/window/tiling.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// Minimum number of title bars visible in an area too small for the windows.
constexpr int kMinCascadeSteps = 6;

int Part(int whole, int at, int parts)
{
    return static_cast<int>(static_cast<qint64>(whole) * at / parts);
}

/// Size of group `at` when `count` is split into `groups` as evenly as possible, larger groups last.
int SizeOfGroup(int count, int groups, int at)
{
    return Part(count, at + 1, groups) - Part(count, at, groups);
}

QRect Cell(QSize room, int column, int columns, int row, int rows)
{
    const QPoint leftTop(Part(room.width(), column, columns), Part(room.height(), row, rows));
    const QPoint rightBottom(Part(room.width(), column + 1, columns), Part(room.height(), row + 1, rows));
    return { leftTop, rightBottom - QPoint(1, 1) };
}

int StepsThatFit(QSize window, QSize room, int step)
{
    const QSize free = room - window;
    const int fitting = std::min(free.width(), free.height()) / step + 1;
    return std::max(fitting, kMinCascadeSteps);
}

} // namespace

QVector<QRect> TilePlaces(int count, QSize room, bool stacked)
{
    QVector<QRect> places;
    const int groups = static_cast<int>(std::sqrt(static_cast<double>(count)));
    for (int group = 0; group < groups; ++group) {
        const int inGroup = SizeOfGroup(count, groups, group);
        for (int at = 0; at < inGroup; ++at)
            places.append(stacked ? Cell(room, group, groups, at, inGroup) : Cell(room, at, inGroup, group, groups));
    }
    return places;
}

QPoint CascadePlace(int index, QSize window, QSize room, int step)
{
    const int steps = StepsThatFit(window, room, step);
    const int down = index % steps;
    const int rowsBefore = index / steps;
    return { (down + rowsBefore) * step, down * step };
}

QPoint FreeCascadePlace(const QVector<QPoint>& taken, QSize window, QSize room, int step)
{
    int index = 0;
    while (taken.contains(CascadePlace(index, window, room, step)))
        ++index;
    return CascadePlace(index, window, room, step);
}

QVector<QPoint> IconPlaces(const QVector<QSize>& icons, QSize room)
{
    QVector<QPoint> places;
    int left = 0;
    int bottom = room.height();
    int rowHeight = 0;
    for (const QSize& icon : icons) {
        if (left + icon.width() > room.width()) { // the very first icon: its row has no height yet
            left = 0;
            bottom -= rowHeight;
            rowHeight = 0;
        }
        places.append({ left, bottom - icon.height() });
        left += icon.width();
        rowHeight = std::max(rowHeight, icon.height());
    }
    return places;
}

QSize RoomAboveIcons(const QVector<QSize>& icons, QSize room)
{
    int top = room.height();
    for (const QPoint& place : IconPlaces(icons, room))
        top = std::min(top, place.y());
    constexpr int kMinPercent = 25; // with many icons the windows overlap them instead of shrinking further
    return { room.width(), std::max(top, room.height() * kMinPercent / 100) };
}

} // namespace tarvik
