#include "print/preview/sheetEdit.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "app/values/numberPicture.h"
#include "print/page/pageLayout.h"

#include <utility>

namespace tarvik {

namespace {

/// A screen keeps its proportions, a diagram is drawn for any.
bool KeepsAspect(const PageEntry& entry)
{
    return entry.Extent.Type == WindowType::Screen;
}

bool IsOverlapped(const PageRecord& page, int entry)
{
    const auto entries = page.InUse();
    const QRect& place = entries[static_cast<size_t>(entry)].Pixels;
    for (size_t at = 0; at < entries.size(); ++at) {
        if (static_cast<int>(at) != entry && entries[at].Pixels.intersects(place))
            return true;
    }
    return false;
}

QString PositionText(float inches)
{
    const double length = double{ inches };
    return IsMetric() ? FormatPicture(MmFromInch(length), u"0.00") + u' ' + LngStr(TextId::UnitMillimetre)
                      : FormatPicture(length, u"0.000") + u' ' + LngStr(TextId::UnitInch);
}

} // namespace

void SheetEdit::SetScale(const Sheet& sheet, QSize preview)
{
    sheet_ = sheet;
    preview_ = preview;
    part_ = Handle::Outside;
    for (PageRecord& page : ThePages().Table) {
        for (PageEntry& entry : page.InUse()) {
            entry.Pixels = PixelsOf(entry.Rectangle, Scale());
            entry.Repaint = true;
        }
    }
}

void SheetEdit::PlacePresentPage()
{
    for (PageEntry& entry : PresentPage().InUse()) {
        const QRect place = PixelsOf(entry.Rectangle, Scale());
        entry.Repaint = entry.Repaint || place.size() != entry.Pixels.size();
        entry.Pixels = place;
    }
}

Handle SheetEdit::PartAt(QPoint point) const
{
    return HitTest(PresentPage(), point).Part;
}

SheetChange SheetEdit::Press(QPoint point)
{
    const Hit hit = HitTest(PresentPage(), point);
    part_ = hit.Part;
    last_ = point;
    hasMoved_ = false;
    if (hit.Entry == kNoEntry)
        return SheetChange::None;
    const SheetChange change = Select(hit.Entry);
    frame_ = Selected()->Pixels;
    return change;
}

SheetChange SheetEdit::DragTo(QPoint point)
{
    if (!IsDragging() || point == last_)
        return SheetChange::None;
    const PageEntry& entry = *Selected();
    const DragStep step{ part_, point - last_, double{ AspectOf(entry.Extent, entry.Shares) }, KeepsAspect(entry) };
    const QRect area = PixelsAround(PrintableArea(sheet_, PresentPage().Margins), Scale());
    const QRect moved = Dragged(frame_, step, area);
    last_ = point;
    if (moved == frame_)
        return SheetChange::None;
    frame_ = moved;
    hasMoved_ = true;
    return SheetChange::Frame;
}

SheetChange SheetEdit::Release()
{
    if (!IsDragging())
        return SheetChange::None;
    const Handle part = std::exchange(part_, Handle::Outside);
    if (!hasMoved_)
        return SheetChange::Frame;
    FitSelected(part == Handle::Inside ? MovedInches() : InchesOf(frame_, Scale(), preview_));
    return SheetChange::Page;
}

/// A window that is only moved keeps its exact size.
SheetRect SheetEdit::MovedInches() const
{
    const PageEntry& entry = *Selected();
    const QPoint moved = frame_.topLeft() - entry.Pixels.topLeft();
    SheetRect place = entry.Rectangle;
    place.Left += static_cast<float>(moved.x()) / Scale();
    place.Top += static_cast<float>(moved.y()) / Scale();
    return place;
}

SheetChange SheetEdit::Abandon()
{
    const bool wasDragging = IsDragging();
    part_ = Handle::Outside;
    return wasDragging ? SheetChange::Frame : SheetChange::None;
}

SheetChange SheetEdit::Step(Handle part, QPoint distance)
{
    const PageEntry* entry = Selected();
    if (entry == nullptr || IsDragging())
        return SheetChange::None;
    part_ = part;
    frame_ = entry->Pixels;
    hasMoved_ = false;
    last_ = {};
    DragTo(distance);
    return Release() == SheetChange::Page ? SheetChange::Page : SheetChange::None;
}

SheetChange SheetEdit::SelectNext(int direction)
{
    const PageRecord& page = PresentPage();
    if (page.Count < 2 || IsDragging())
        return SheetChange::None;
    return Select((page.FrontEntry + direction + page.Count) % page.Count);
}

QRect SheetEdit::SelectedPixels() const
{
    const PageEntry* entry = Selected();
    if (entry == nullptr)
        return {};
    return IsDragging() ? frame_ : entry->Pixels;
}

SheetChange SheetEdit::SetTitle(bool title)
{
    PageEntry* entry = Selected();
    if (entry == nullptr)
        return SheetChange::None;
    entry->Title = title;
    entry->Shares = SharesOf(entry->Extent, title);
    FitSelected(entry->Rectangle);
    return SheetChange::Page;
}

SheetChange SheetEdit::SetOutline(bool outline)
{
    PageEntry* entry = Selected();
    if (entry == nullptr)
        return SheetChange::None;
    entry->Outline = outline;
    return SheetChange::Page;
}

PageEntry* SheetEdit::Selected() const
{
    PageRecord& page = PresentPage();
    return page.FrontEntry == kNoEntry ? nullptr : &page.Entries[static_cast<size_t>(page.FrontEntry)];
}

SheetChange SheetEdit::Select(int entry)
{
    PageRecord& page = PresentPage();
    if (entry == page.FrontEntry)
        return SheetChange::Frame;
    BringToFront(page, entry);
    return IsOverlapped(page, entry) ? SheetChange::Page : SheetChange::Frame;
}

void SheetEdit::FitSelected(const SheetRect& rectangle)
{
    PageEntry& entry = *Selected();
    const float aspect = AspectOf(entry.Extent, entry.Shares);
    const SheetRect area = PrintableArea(sheet_, PresentPage().Margins);
    entry.Rectangle = Fitted(rectangle, aspect, KeepsAspect(entry), area);
    entry.Pixels = PixelsOf(entry.Rectangle, Scale());
    entry.Repaint = true;
}

std::array<QString, 4> PositionTexts()
{
    const PageRecord& page = PresentPage();
    if (page.FrontEntry == kNoEntry)
        return {};
    const SheetRect& place = page.Entries[static_cast<size_t>(page.FrontEntry)].Rectangle;
    return { PositionText(place.Left), PositionText(place.Top), PositionText(place.Right()),
        PositionText(place.Bottom()) };
}

} // namespace tarvik
