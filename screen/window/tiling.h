// screen/window/tiling.h: where the child windows of the frame go when they are arranged, and where a new one opens.
// Pixels of the frame's area.
#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

namespace tarvik {

/// Cells for `count` windows that together fill `room`: below one another when `stacked`, else beside one another. Many
/// windows take several columns, or rows, as even as can be; the later ones hold one more.
QVector<QRect> TilePlaces(int count, QSize room, bool stacked);

/// Place `index` (0 first) of windows of `window` size that lie over one another, each `step` pixels right of and below
/// the one before. Where they would leave `room` the row begins anew at the top, further right.
QPoint CascadePlace(int index, QSize window, QSize room, int step);

/// The first place of the cascade that no window has.
QPoint FreeCascadePlace(const QVector<QPoint>& taken, QSize window, QSize room, int step);

/// Places of minimised windows along the lower edge, in rows from the bottom.
QVector<QPoint> IconPlaces(const QVector<QSize>& icons, QSize room);

/// What the minimised windows leave of `room` for those that are tiled.
QSize RoomAboveIcons(const QVector<QSize>& icons, QSize room);

} // namespace tarvik
