#include "print/preview/pagination.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "print/page/pageLayout.h"
#include "print/page/printJob.h"
#include "print/preview/autoArrange.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

PageRecord& PageAt(int number)
{
    return ThePages().Table[static_cast<size_t>(number)];
}

/// A page that is used for the first time looks like the first one.
void OpenPage(int number)
{
    const PageRecord& first = PageAt(0);
    PageRecord& page = PageAt(number);
    ClearPage(page);
    page.Margins = first.Margins;
    page.Layout = first.Layout;
    page.BlackAndWhite = first.BlackAndWhite;
}

bool RefusePages()
{
    MsgOkNum(TextId::TooManyPages, kPages);
    return false;
}

void ClearAllPages()
{
    for (PageRecord& page : ThePages().Table)
        ClearPage(page);
    ThePages().Present = 0;
}

} // namespace

int PagesInUse()
{
    const auto& table = ThePages().Table;
    return static_cast<int>(
        std::count_if(table.begin(), table.end(), [](const PageRecord& page) { return page.Count > 0; }));
}

std::vector<PageWindow> WindowsOnPages()
{
    std::vector<PageWindow> windows;
    for (const PageRecord& page : ThePages().Table) {
        for (const PageEntry& entry : page.InUse())
            windows.push_back({ entry.Window, entry.Extent });
    }
    return windows;
}

void BuildPages(std::vector<PageWindow> windows, const Sheet& sheet)
{
    const PageSlots layout = PresentPage().Layout;
    const PageMargins margins = PresentPage().Margins;
    ClearAllPages();
    PageAt(0).Layout = layout;
    PageAt(0).Margins = margins;
    for (int number = 0; number < kPages && !windows.empty(); ++number) {
        if (number > 0)
            OpenPage(number);
        FillPage(PageAt(number), TakePage(windows, layout), sheet, DefaultsOfEntries());
    }
}

bool Repaginate(int perPage, const Sheet& sheet)
{
    const std::vector<PageWindow> windows = WindowsOnPages();
    if (windows.size() > static_cast<size_t>(perPage) * kPages)
        return RefusePages();
    ClearAllPages();
    PageAt(0).Margins = RepairedMargins(PageAt(0).Margins, sheet);
    int number = 0;
    for (const PageWindow& window : windows) {
        if (PageAt(number).Count >= perPage)
            OpenPage(++number);
        AddToPage(PageAt(number), window, sheet, DefaultsOfEntries());
    }
    ArrangePages(sheet);
    return true;
}

void ArrangePages(const Sheet& sheet)
{
    for (PageRecord& page : ThePages().Table)
        AutoArrange(page, sheet);
}

bool AddWindows(std::span<const PageWindow> windows, int perPage, const Sheet& sheet)
{
    PageState& pages = ThePages();
    for (const PageWindow& window : windows) {
        while (PresentPage().Count >= perPage) {
            if (pages.Present + 1 == kPages)
                return RefusePages();
            ++pages.Present;
            if (PresentPage().Count == 0)
                OpenPage(pages.Present);
        }
        AddToPage(PresentPage(), window, sheet, DefaultsOfEntries());
    }
    return true;
}

void RemoveFrontEntry()
{
    PageState& pages = ThePages();
    PageRecord& page = PresentPage();
    if (page.Count == 0)
        return;
    const auto front = page.Entries.begin() + page.FrontEntry;
    std::move(front + 1, page.Entries.begin() + page.Count, front);
    --page.Count;
    page.Entries[static_cast<size_t>(page.Count)] = {};
    page.FrontEntry = HighestEntry(page);
    if (page.Count > 0 || PagesInUse() == 0)
        return;
    const auto removed = pages.Table.begin() + pages.Present;
    std::rotate(removed, removed + 1, pages.Table.end());
    pages.Present = std::min(pages.Present, PagesInUse() - 1);
}

void RepairPages(const Sheet& sheet)
{
    for (PageRecord& page : ThePages().Table) {
        page.Margins = RepairedMargins(page.Margins, sheet);
        const SheetRect area = PrintableArea(sheet, page.Margins);
        for (PageEntry& entry : page.InUse()) {
            const bool keepsAspect = entry.Extent.Type == WindowType::Screen;
            entry.Rectangle = Fitted(entry.Rectangle, AspectOf(entry.Extent, entry.Shares), keepsAspect, area);
            entry.Repaint = true;
        }
    }
}

void StoreLayout()
{
    for (PageRecord& page : ThePages().Table) {
        page.Layout = {};
        for (int at = 0; at < page.Count; ++at) {
            const PageEntry& entry = page.Entries[static_cast<size_t>(at)];
            const SheetRect& place = entry.Rectangle;
            page.Layout[static_cast<size_t>(at)] = { static_cast<qint32>(entry.Extent.Type),
                { place.Left, place.Top, place.Width, place.Height }, entry.Title, entry.Outline, entry.Order };
        }
    }
}

} // namespace tarvik
