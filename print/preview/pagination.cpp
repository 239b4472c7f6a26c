#include "print/preview/pagination.h"

#include "app/message/message.h"
#include "app/text/textId.h"
#include "print/page/pageLayout.h"
#include "print/page/printJob.h"
#include "print/preview/autoArrange.h"
#include "screen/window/arrange.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace tarvik {

namespace {

constexpr int kMostOrder = std::numeric_limits<qint16>::max();

/// More than placing adds for the last window of a page.
constexpr int kOrderSpread = (kWindowsPerPage + 1) << kOrderShift;

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

bool IsOnPresentPage(WindowId window)
{
    const auto entries = PresentPage().InUse();
    return std::any_of(
        entries.begin(), entries.end(), [window](const PageEntry& entry) { return entry.Window == window; });
}

int EntriesInUse()
{
    const auto& table = ThePages().Table;
    return std::accumulate(
        table.begin(), table.end(), 0, [](int sum, const PageRecord& page) { return sum + page.Count; });
}

void ClearAllPages()
{
    for (PageRecord& page : ThePages().Table)
        ClearPage(page);
    ThePages().Present = 0;
}

void StoreSlots(PageRecord& page)
{
    page.Layout = {};
    for (int at = 0; at < page.Count; ++at) {
        const PageEntry& entry = page.Entries[static_cast<size_t>(at)];
        const SheetRect& place = entry.Rectangle;
        page.Layout[static_cast<size_t>(at)] = { static_cast<qint32>(entry.Extent.Type),
            { place.Left, place.Top, place.Width, place.Height }, entry.Title, entry.Outline, entry.Order };
    }
}

/// True if the windows of a page, placed by its layout, are stacked as they are now, and their orders are in the
/// range of the settings.
bool RefillsInSameOrder(const PageRecord& page, const Sheet& sheet)
{
    std::vector<PageWindow> windows;
    for (const PageEntry& entry : page.InUse())
        windows.push_back({ entry.Window, entry.Extent });
    PageRecord refilled = page;
    FillPage(refilled, windows, sheet, DefaultsOfEntries());
    const int front = HighestEntry(refilled);
    return DrawingOrder(refilled) == DrawingOrder(page)
        && (front == kNoEntry || refilled.Entries[static_cast<size_t>(front)].Order <= kMostOrder);
}

/// Orders so far apart that what placing adds for the windows of one type doesn't change the stacking.
void SpreadSlotOrders(PageRecord& page)
{
    const auto order = DrawingOrder(page);
    for (int rank = 0; rank < page.Count; ++rank)
        page.Layout[static_cast<size_t>(order[static_cast<size_t>(rank)])].Order = rank * kOrderSpread;
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

int OpenPages(const Sheet& sheet)
{
    QVector<WindowId> windows = WindowsFor(MaskAll, true);
    const auto active = std::find(windows.begin(), windows.end(), WindowTable().Active);
    if (active != windows.end())
        std::rotate(windows.begin(), active, active + 1);
    BuildPages(PageWindowsOf(windows), sheet);
    int perPage = 1;
    for (const PageRecord& page : ThePages().Table)
        perPage = std::max(perPage, page.Count);
    return perPage;
}

bool CanAddWindows()
{
    const QVector<WindowId> offered = WindowsFor(MaskAll, true);
    return offered.size() > 1 || (offered.size() == 1 && !IsOnPresentPage(offered.first()));
}

bool AddChosenWindows(int perPage, const Sheet& sheet)
{
    if (!CanAddWindows())
        return false;
    const QVector<WindowId> offered = WindowsFor(MaskAll, true);
    const auto marked = std::find_if_not(offered.begin(), offered.end(), IsOnPresentPage);
    ChooseWindows(MaskAll, true, marked == offered.end() ? WindowId{ 0 } : *marked);
    const std::vector<PageWindow> chosen = PageWindowsOf(TheScreenWindows().Chosen);
    const int before = EntriesInUse();
    AddWindows(chosen, perPage, sheet);
    return EntriesInUse() > before;
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

void StoreLayout(const Sheet& sheet)
{
    for (PageRecord& page : ThePages().Table) {
        StoreSlots(page);
        if (!RefillsInSameOrder(page, sheet))
            SpreadSlotOrders(page);
    }
}

} // namespace tarvik
