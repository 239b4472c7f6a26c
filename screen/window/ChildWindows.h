// screen/window/ChildWindows.h: the child windows of the frame as a whole: arranging them, and finding a place for a
// new one.
#pragma once

#include <QPoint>

class QMdiArea;
class QMdiSubWindow;
class QRect;

namespace tarvik {

/// Property of a child window's content that holds the number of its window.
inline constexpr const char* kTagProperty = "Tag";

/// Moves and sizes the document windows: 0 cascade (moves only, the active one in front), 1 below one another, 2 beside
/// one another, 3 the minimised ones along the lower edge.
void ArrangeChildWindows(QMdiArea& area, int code);

/// Gives a maximised window its own size back.
void RestoreMaximised(QMdiArea& area);

/// Scrolls up or down until the lower edge of `place` is seen, in the coordinates of the area's viewport.
void ScrollToLowerEdge(QMdiArea& area, const QRect& place);

/// Where a window of its size opens that is not seen yet.
QPoint PlaceForNew(const QMdiArea& area, const QMdiSubWindow& child);

} // namespace tarvik
