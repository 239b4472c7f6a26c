#include "print/preview/sheetPixels.h"

#include <QtMath>

#include <algorithm>
#include <cstdlib>

namespace tarvik {

namespace {

/// How far around an entry it still counts as hit, and how far inside its edges begin.
constexpr int kReachPx = 2;

/// Whole pixels turned into inches are the same pixels again.
constexpr float kCutTolerancePx = 0.001F;

bool IsLeft(Handle part)
{
    return part == Handle::Left || part == Handle::TopLeft || part == Handle::BottomLeft;
}

bool IsRight(Handle part)
{
    return part == Handle::Right || part == Handle::TopRight || part == Handle::BottomRight;
}

bool IsTop(Handle part)
{
    return part == Handle::Top || part == Handle::TopLeft || part == Handle::TopRight;
}

bool IsBottom(Handle part)
{
    return part == Handle::Bottom || part == Handle::BottomLeft || part == Handle::BottomRight;
}

Handle CornerOrEdge(bool left, bool right, bool top, bool bottom)
{
    if (top)
        return left ? Handle::TopLeft : right ? Handle::TopRight : Handle::Top;
    if (bottom)
        return left ? Handle::BottomLeft : right ? Handle::BottomRight : Handle::Bottom;
    return left ? Handle::Left : right ? Handle::Right : Handle::Inside;
}

/// Changes of width and height by the moved edges.
QPoint GrowthOf(const DragStep& step)
{
    const int width = IsLeft(step.Part) ? -step.Distance.x() : IsRight(step.Part) ? step.Distance.x() : 0;
    const int height = IsTop(step.Part) ? -step.Distance.y() : IsBottom(step.Part) ? step.Distance.y() : 0;
    return { width, height };
}

/// As above with the aspect kept: the axis of the larger movement leads, at an edge its own.
QPoint LockedGrowthOf(const DragStep& step)
{
    const QPoint growth = GrowthOf(step);
    const bool isVertical = step.Part == Handle::Top || step.Part == Handle::Bottom;
    const bool isHorizontal = step.Part == Handle::Left || step.Part == Handle::Right;
    const bool heightLeads =
        isVertical || (!isHorizontal && std::abs(step.Distance.y()) >= std::abs(step.Distance.x()));
    if (heightLeads)
        return { qRound(growth.y() * step.Aspect), growth.y() };
    return { growth.x(), qRound(growth.x() / step.Aspect) };
}

} // namespace

QSize PreviewSize(const Sheet& sheet, QSize area)
{
    const double aspect = double{ sheet.Paper.X } / double{ sheet.Paper.Y };
    const int width = std::min(area.width(), qFloor(area.height() * aspect));
    return { std::max(width, 1), std::max(qFloor(width / aspect), 1) };
}

float PixelsPerInch(const Sheet& sheet, QSize preview)
{
    return static_cast<float>(preview.width()) / sheet.Paper.X;
}

QRect PixelsOf(const SheetRect& rectangle, float pixelsPerInch)
{
    const auto cut = [pixelsPerInch](
                         float inches) { return static_cast<int>(inches * pixelsPerInch + kCutTolerancePx); };
    return { cut(rectangle.Left), cut(rectangle.Top), cut(rectangle.Width), cut(rectangle.Height) };
}

QRect PixelsAround(const SheetRect& rectangle, float pixelsPerInch)
{
    const QRect cut = PixelsOf(rectangle, pixelsPerInch);
    const auto end = [pixelsPerInch](float inches) { return qCeil(inches * pixelsPerInch - kCutTolerancePx); };
    return { cut.topLeft(), QPoint(end(rectangle.Right()) - 1, end(rectangle.Bottom()) - 1) };
}

SheetRect InchesOf(const QRect& pixels, float pixelsPerInch, QSize preview)
{
    const QRect clipped = pixels.intersected(QRect(QPoint(), preview));
    const auto inches = [pixelsPerInch](int length) { return static_cast<float>(length) / pixelsPerInch; };
    return { inches(clipped.left()), inches(clipped.top()), inches(clipped.width()), inches(clipped.height()) };
}

Handle HandleAt(const QRect& entry, QPoint point)
{
    const QRect reach = entry.adjusted(-kReachPx, -kReachPx, kReachPx, kReachPx);
    if (!reach.contains(point))
        return Handle::Outside;
    const bool isRight = point.x() >= entry.right() - kReachPx;
    const bool isBottom = point.y() >= entry.bottom() - kReachPx;
    return CornerOrEdge(point.x() <= entry.left() + kReachPx, isRight, point.y() <= entry.top() + kReachPx, isBottom);
}

Hit HitTest(const PageRecord& page, QPoint point)
{
    const auto at = [&](int entry) {
        return Hit{ entry, HandleAt(page.Entries[static_cast<size_t>(entry)].Pixels, point) };
    };
    if (page.FrontEntry != kNoEntry && at(page.FrontEntry).Part != Handle::Outside)
        return at(page.FrontEntry);
    const auto order = DrawingOrder(page);
    for (int rank = page.Count - 1; rank >= 0; --rank) {
        const Hit hit = at(order[static_cast<size_t>(rank)]);
        if (hit.Part != Handle::Outside)
            return hit;
    }
    return {};
}

std::array<QRect, 8> HandlesOf(const QRect& entry)
{
    const auto around = [](int x, int y) {
        return QRect(QPoint(x - kHandlePx, y - kHandlePx), QPoint(x + kHandlePx, y + kHandlePx));
    };
    const QPoint middle = entry.center();
    return { around(entry.left(), entry.top()), around(middle.x(), entry.top()), around(entry.right(), entry.top()),
        around(entry.right(), middle.y()), around(entry.right(), entry.bottom()), around(middle.x(), entry.bottom()),
        around(entry.left(), entry.bottom()), around(entry.left(), middle.y()) };
}

QRect Dragged(const QRect& entry, const DragStep& step, const QRect& area)
{
    QRect dragged = entry;
    if (step.Part == Handle::Inside) {
        dragged.translate(step.Distance);
    } else {
        const QPoint growth = step.IsLocked ? LockedGrowthOf(step) : GrowthOf(step);
        dragged.setWidth(std::max(entry.width() + growth.x(), kLeastEntryPx));
        dragged.setHeight(std::max(entry.height() + growth.y(), kLeastEntryPx));
        if (IsLeft(step.Part))
            dragged.moveRight(entry.right());
        if (IsTop(step.Part))
            dragged.moveBottom(entry.bottom());
    }
    return area.contains(dragged) ? dragged : entry;
}

} // namespace tarvik
