// app/frame/placement.h: where the frame is placed: what the settings ask for, and what the screens can show.
#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

namespace tarvik {

/// Least part of the frame that must be on a screen, so that the user can take hold of it.
inline constexpr QSize kLeastVisiblePx{ 120, 40 };

/// `asked` where enough of it is on one of `screens`; else moved, and made smaller if need be, onto the first one.
QRect PlacementOnScreens(const QRect& asked, const QVector<QRect>& screens);

/// The size inside the borders of a frame that is `placed` so. One that takes a whole screen, as it does without
/// settings, leaves room for its title bar and borders, which take `borders`: its lower edge is seen as well.
QSize PlacedSize(const QRect& placed, const QVector<QRect>& screens, QSize borders);

} // namespace tarvik
