#include "screen/window/ChildWindows.h"

#include "screen/document/fit.h"
#include "screen/window/screenWindow.h"
#include "screen/window/tiling.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QVariant>

#include <algorithm>

namespace tarvik {

namespace {

using Children = QVector<QMdiSubWindow*>;

WindowId IdOf(const QMdiSubWindow& child)
{
    return static_cast<WindowId>(child.widget() == nullptr ? 0 : child.widget()->property(kTagProperty).toInt());
}

/// The visible ones in table order, which is the order of opening unless some have been closed. A window that is just
/// closing has no slot any more.
Children InTableOrder(const QMdiArea& area)
{
    Children children;
    for (QMdiSubWindow* child : area.subWindowList()) {
        if (!child->isHidden() && WindowInUse(IdOf(*child)))
            children.append(child);
    }
    std::sort(children.begin(), children.end(),
        [](const QMdiSubWindow* left, const QMdiSubWindow* right) { return IdOf(*left) < IdOf(*right); });
    return children;
}

Children FilterMinimised(const Children& children, bool minimised)
{
    Children some;
    for (QMdiSubWindow* child : children) {
        if (child->isMinimized() == minimised)
            some.append(child);
    }
    return some;
}

QVector<QSize> SizesOf(const Children& children)
{
    QVector<QSize> sizes;
    for (const QMdiSubWindow* child : children)
        sizes.append(child->size());
    return sizes;
}

int TitleBarHeight(const QMdiSubWindow& child)
{
    return child.contentsMargins().top();
}

/// Its size after a cascade.
QSize DefaultSize(const QMdiSubWindow& child)
{
    return DefaultClientSize(IdOf(child)).grownBy(child.contentsMargins());
}

/// Places the active one last.
void Cascade(const QMdiArea& area, const Children& children)
{
    int index = 0;
    for (QMdiSubWindow* child : area.subWindowList(QMdiArea::ActivationHistoryOrder)) {
        if (!children.contains(child))
            continue;
        child->move(CascadePlace(index++, DefaultSize(*child), area.maximumViewportSize(), TitleBarHeight(*child)));
        child->raise();
    }
}

void Tile(QSize room, const Children& children, bool stacked)
{
    const QVector<QRect> places = TilePlaces(static_cast<int>(children.size()), room, stacked);
    for (qsizetype at = 0; at < children.size(); ++at)
        children[at]->setGeometry(places[at]);
}

/// The visible area less the scroll bars that these windows need but that do not exist yet.
QSize RoomWithinScrollBars(const QMdiArea& area, const Children& children)
{
    QRect extent;
    for (const QMdiSubWindow* child : children)
        extent |= child->geometry();
    QSize room = area.maximumViewportSize();
    if (extent.top() < 0 || extent.bottom() >= room.height())
        room.rwidth() -= area.verticalScrollBar()->sizeHint().width();
    if (extent.left() < 0 || extent.right() >= room.width())
        room.rheight() -= area.horizontalScrollBar()->sizeHint().height();
    return room;
}

/// Windows that exceed the area cause a scroll bar, which must not cover the bottom row or the icons.
void TileInView(const QMdiArea& area, const Children& children, const Children& icons, bool stacked)
{
    QSize room = area.maximumViewportSize();
    const QVector<QSize> iconSizes = SizesOf(icons);
    Tile(RoomAboveIcons(iconSizes, room), children, stacked);
    const int heightInView = RoomWithinScrollBars(area, children).height();
    if (heightInView == room.height())
        return;
    room.setHeight(heightInView);
    Tile(RoomAboveIcons(iconSizes, room), children, stacked);
}

void PlaceIcons(const Children& icons, QSize room)
{
    const QVector<QPoint> places = IconPlaces(SizesOf(icons), room);
    for (qsizetype at = 0; at < icons.size(); ++at)
        icons[at]->move(places[at]);
}

void ScrollHome(const QMdiArea& area)
{
    area.horizontalScrollBar()->setValue(area.horizontalScrollBar()->minimum());
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->minimum());
}

} // namespace

void ArrangeChildWindows(QMdiArea& area, Arrangement arrangement)
{
    if (arrangement != Arrangement::Icons)
        RestoreMaximised(area);
    ScrollHome(area);
    const Children all = InTableOrder(area);
    const Children icons = FilterMinimised(all, true);
    const Children windows = FilterMinimised(all, false);
    area.viewport()->setUpdatesEnabled(false); // repaint once, after all moves
    if (arrangement == Arrangement::Cascade)
        Cascade(area, windows);
    else if (arrangement == Arrangement::Icons)
        PlaceIcons(icons, RoomWithinScrollBars(area, windows));
    else
        TileInView(area, windows, icons, arrangement == Arrangement::TileHorizontally);
    area.viewport()->setUpdatesEnabled(true);
}

void RestoreMaximised(QMdiArea& area)
{
    for (QMdiSubWindow* child : area.subWindowList()) {
        if (child->isMaximized())
            child->showNormal();
    }
}

void ScrollToLowerEdge(QMdiArea& area, const QRect& place)
{
    const QRect seen = area.viewport()->rect();
    const int below = std::max(place.bottom() - seen.bottom(), 0);
    const int above = std::min(place.bottom() - seen.top(), 0);
    QScrollBar* bar = area.verticalScrollBar();
    bar->setValue(bar->value() + below + above);
}

QPoint PlaceForNew(const QMdiArea& area, const QMdiSubWindow& child)
{
    QVector<QPoint> taken;
    for (const QMdiSubWindow* other : area.subWindowList()) {
        if (other != &child && !other->isHidden() && !other->isMinimized())
            taken.append(other->pos());
    }
    return FreeCascadePlace(taken, child.size(), area.maximumViewportSize(), TitleBarHeight(child));
}

} // namespace tarvik
