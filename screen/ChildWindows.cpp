#include "screen/ChildWindows.h"

#include "screen/MfScreen.h"
#include "screen/fit.h"
#include "screen/tiling.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QStyle>

namespace {

using Children = QVector<QMdiSubWindow*>;

/// Those that are seen, in the order of the table, which is that of their opening as long as none was closed.
Children InTableOrder()
{
    Children children;
    for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id)) {
        const auto* view = dynamic_cast<MfScreen*>(ViewOf(id));
        if (view != nullptr && !view->ChildWindow()->isHidden())
            children.append(view->ChildWindow());
    }
    return children;
}

Children Where(const Children& children, bool minimised)
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

/// The active one last.
void Cascade(const QMdiArea& area, const Children& children)
{
    int index = 0;
    for (QMdiSubWindow* child : area.subWindowList(QMdiArea::ActivationHistoryOrder)) {
        if (!children.contains(child))
            continue;
        child->move(CascadePlace(index++, child->size(), area.maximumViewportSize(), TitleBarHeight(*child)));
        child->raise();
    }
}

void Tile(QSize room, const Children& children, bool stacked)
{
    const QVector<QRect> places = TilePlaces(static_cast<int>(children.size()), room, stacked);
    for (qsizetype at = 0; at < children.size(); ++at)
        children[at]->setGeometry(places[at]);
}

void LineUpIcons(QSize room, const Children& icons)
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

void ArrangeChildWindows(QMdiArea& area, int code)
{
    if (code != ArrangeIcons)
        RestoreMaximised(area);
    ScrollHome(area);
    const Children all = InTableOrder();
    const Children icons = Where(all, true);
    const Children windows = Where(all, false);
    const QSize room = area.maximumViewportSize();
    area.viewport()->setUpdatesEnabled(false); // one picture of the result, none on the way there
    if (code == ArrangeCascade)
        Cascade(area, windows);
    else if (code == ArrangeIcons)
        LineUpIcons(room, icons);
    else
        Tile(RoomAboveIcons(SizesOf(icons), room), windows, code == ArrangeTileHorizontally);
    area.viewport()->setUpdatesEnabled(true);
}

void RestoreMaximised(QMdiArea& area)
{
    for (QMdiSubWindow* child : area.subWindowList()) {
        if (child->isMaximized())
            child->showNormal();
    }
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
