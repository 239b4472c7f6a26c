// screen/window/tiling.h: positions of the frame's child windows when they are arranged or opened. Pixels of the
// frame's area.
#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

namespace tarvik {

/// Cells for `count` windows that fill `room`: stacked vertically if `stacked`, else side by side. Many windows use
/// several columns or rows of nearly equal size; later ones hold one more.
QVector<QRect> TilePlaces(int count, QSize room, bool stacked);

/// Position `index` (from 0) of cascaded windows of `window` size, each `step` pixels right of and below the previous
/// one. Where they would leave `room`, a new cascade starts at the top, further right.
QPoint CascadePlace(int index, QSize window, QSize room, int step);

/// The first position of the cascade that is not taken.
QPoint FreeCascadePlace(const QVector<QPoint>& taken, QSize window, QSize room, int step);

/// Positions of minimised windows in rows from the bottom edge.
QVector<QPoint> IconPlaces(const QVector<QSize>& icons, QSize room);

/// The part of `room` above the minimised windows.
QSize RoomAboveIcons(const QVector<QSize>& icons, QSize room);

} // namespace tarvik
