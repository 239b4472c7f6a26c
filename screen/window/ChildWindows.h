// screen/window/ChildWindows.h: arranges the child windows of the frame, and places new ones.
#pragma once

#include "screen/document/fit.h"

#include <QPoint>

class QMdiArea;
class QMdiSubWindow;
class QRect;

namespace tarvik {

/// Property of a child window's content that holds its window id.
inline constexpr const char* kTagProperty = "Tag";

/// Moves and resizes the document windows. Cascading only moves them, with the active one in front; icons are the
/// minimised windows, along the bottom edge.
void ArrangeChildWindows(QMdiArea& area, Arrangement arrangement);

/// Restores a maximised window to its normal size.
void RestoreMaximised(QMdiArea& area);

/// Scrolls vertically until the bottom edge of `place` is visible, in the coordinates of the area's viewport.
void ScrollToLowerEdge(QMdiArea& area, const QRect& place);

/// Position for a window that is about to be shown for the first time.
QPoint PlaceForNew(const QMdiArea& area, const QMdiSubWindow& child);

} // namespace tarvik
