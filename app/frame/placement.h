// app/frame/placement.h: fits the stored position of the frame to the present screens.
#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

namespace tarvik {

/// Part of the frame that must be on a screen, so that the user can grab it.
inline constexpr QSize kMinVisiblePx{ 120, 40 };

/// `asked` where enough of it is on one of `screens`; else moved, and made smaller if need be, onto the first one.
QRect PlacementOnScreens(const QRect& asked, const QVector<QRect>& screens);

/// The size inside the borders of a frame at `placed`. If it fills a screen, as it does without settings, `borders`
/// (title bar and borders) is subtracted, so that its lower edge is visible.
QSize PlacedSize(const QRect& placed, const QVector<QRect>& screens, QSize borders);

} // namespace tarvik
