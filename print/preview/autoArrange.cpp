#include "print/preview/autoArrange.h"

#include "print/page/pageLayout.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

/// Share of a side of the sheet that the gaps along it have together.
constexpr float kGapShare = 0.04F;

float GapOf(float paper, int cells)
{
    return kGapShare * paper / static_cast<float>(std::max(cells, 2) - 1);
}

float CellOf(float paper, float margin, float gap, int cells)
{
    return (paper - 2 * margin - static_cast<float>(cells - 1) * gap) / static_cast<float>(cells);
}

bool IsOutOfOrder(const PageRecord& page, int at, int rows)
{
    const auto entries = page.InUse();
    const SheetRect& here = entries[static_cast<size_t>(at)].Rectangle;
    const SheetRect& next = entries[static_cast<size_t>(at + 1)].Rectangle;
    if (at % rows == rows - 1)
        return next.Left < here.Left;
    const int beside = at + rows;
    return next.Top < here.Top
        || (beside < page.Count && entries[static_cast<size_t>(beside)].Rectangle.Left < here.Left);
}

void SwapWithNext(PageRecord& page, int at)
{
    std::swap(page.Entries[static_cast<size_t>(at)], page.Entries[static_cast<size_t>(at + 1)]);
    if (page.FrontEntry == at)
        page.FrontEntry = at + 1;
    else if (page.FrontEntry == at + 1)
        page.FrontEntry = at;
}

/// True if the page was in order.
bool BubblePass(PageRecord& page, int rows)
{
    bool isInOrder = true;
    for (int at = 0; at < page.Count - 1; ++at) {
        if (!IsOutOfOrder(page, at, rows))
            continue;
        SwapWithNext(page, at);
        isInOrder = false;
    }
    return isInOrder;
}

float AreaOf(const PageRecord& page)
{
    float area = 0;
    for (const PageEntry& entry : page.InUse())
        area += entry.Rectangle.Width * entry.Rectangle.Height;
    return area;
}

int BestRows(PageRecord page, const Sheet& sheet)
{
    int best = 1;
    float largest = 0;
    for (int rows = 1; rows <= page.Count; ++rows) {
        ArrangeInGrid(page, rows, sheet);
        const float area = AreaOf(page);
        if (area > largest) {
            largest = area;
            best = rows;
        }
    }
    return best;
}

} // namespace

void ArrangeInGrid(PageRecord& page, int rows, const Sheet& sheet)
{
    const int columns = (page.Count + rows - 1) / rows;
    const float margin = FullPageMargin(sheet);
    const float gap = std::min(GapOf(sheet.Paper.X, columns), GapOf(sheet.Paper.Y, rows));
    const float width = CellOf(sheet.Paper.X, margin, gap, columns);
    const float height = CellOf(sheet.Paper.Y, margin, gap, rows);
    for (int at = 0; at < page.Count; ++at) {
        PageEntry& entry = page.Entries[static_cast<size_t>(at)];
        const float aspect = AspectOf(entry.Extent, entry.Shares);
        entry.Rectangle.Left = margin + (width + gap) * static_cast<float>(at / rows);
        entry.Rectangle.Top = margin + (height + gap) * static_cast<float>(at % rows);
        entry.Rectangle.Width = width;
        entry.Rectangle.Height = width / aspect;
        if (entry.Rectangle.Height > height) {
            entry.Rectangle.Height = height;
            entry.Rectangle.Width = height * aspect;
        }
    }
}

/// A swap for the sake of the next column can undo that of an earlier pass, so the passes are counted.
void SortForGrid(PageRecord& page, int rows)
{
    for (int pass = 0; pass < page.Count * page.Count; ++pass) {
        if (BubblePass(page, rows))
            return;
    }
}

void AutoArrange(PageRecord& page, const Sheet& sheet)
{
    if (page.Count == 0)
        return;
    const int rows = BestRows(page, sheet);
    SortForGrid(page, rows);
    ArrangeInGrid(page, rows, sheet);
}

} // namespace tarvik
