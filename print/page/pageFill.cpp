#include "print/page/pageFill.h"

#include "print/page/pageLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tarvik {

namespace {

constexpr size_t kWindowTypes = 3;

bool IsOfType(const PageSlot& slot, WindowType type)
{
    return slot.Type == static_cast<qint32>(type);
}

int SlotsOf(const PageSlots& layout, WindowType type)
{
    return static_cast<int>(
        std::count_if(layout.begin(), layout.end(), [type](const PageSlot& slot) { return IsOfType(slot, type); }));
}

/// The slot number `number`, from 0, of a type; null if there are fewer.
const PageSlot* SlotAt(const PageSlots& layout, WindowType type, int number)
{
    for (const PageSlot& slot : layout) {
        if (IsOfType(slot, type) && number-- == 0)
            return &slot;
    }
    return nullptr;
}

/// Also false for what a damaged settings file may hold.
bool IsDefined(const IniRect& rectangle)
{
    return std::isfinite(rectangle.Left) && std::isfinite(rectangle.Top) && std::isfinite(rectangle.Width)
        && std::isfinite(rectangle.Height) && rectangle.Width > 0 && rectangle.Height > 0;
}

int OrderOf(const PageSlot& slot, int numberOfType)
{
    const qint64 order = qint64{ slot.Order } + (qint64{ numberOfType + 1 } << kOrderShift);
    return static_cast<int>(
        std::clamp<qint64>(order, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// Places one entry of a page; those before it are placed. The place of a diagram in a slot is the user's, in any
/// proportion.
class Placing {
public:
    Placing(PageRecord& page, PageEntry& entry, const Sheet& sheet, const EntryDefaults& defaults)
        : page_(page)
        , entry_(entry)
        , sheet_(sheet)
        , defaults_(defaults)
        , area_(PrintableArea(sheet, page.Margins))
    {
    }

    void Run()
    {
        const bool isInSlot = PlaceInSlot();
        if (!isInSlot)
            PlaceWithoutSlot();
        const bool keepsAspect = !isInSlot || entry_.Extent.Type == WindowType::Screen;
        entry_.Rectangle = Fitted(entry_.Rectangle, Aspect(), keepsAspect, area_);
    }

private:
    float Aspect() const
    {
        return AspectOf(entry_.Extent, entry_.Shares);
    }

    void SetFlags(bool outline, bool title)
    {
        entry_.Outline = outline;
        entry_.Title = title;
        entry_.Shares = SharesOf(entry_.Extent, title);
    }

    /// Windows beyond the slots of their type use the slots again, from the first.
    bool PlaceInSlot()
    {
        const WindowType type = entry_.Extent.Type;
        const auto placed = page_.InUse();
        const auto before = static_cast<int>(std::count_if(
            placed.begin(), placed.end(), [type](const PageEntry& at) { return at.Extent.Type == type; }));
        const int slots = SlotsOf(page_.Layout, type);
        const PageSlot* slot = slots == 0 ? nullptr : SlotAt(page_.Layout, type, before % slots);
        SetFlags(slot == nullptr ? defaults_.Outline : slot->Outline, slot == nullptr ? defaults_.Title : slot->Title);
        if (slot == nullptr || !IsDefined(slot->Rectangle))
            return false;
        entry_.Rectangle = { slot->Rectangle.Left, slot->Rectangle.Top, slot->Rectangle.Width, slot->Rectangle.Height };
        entry_.Order = OrderOf(*slot, before);
        return true;
    }

    /// As large as the front one of the same type, or as the page.
    void PlaceWithoutSlot()
    {
        entry_.Order = kOrderWithoutSlot;
        if (const PageEntry* like = FrontOfType(); like != nullptr) {
            entry_.Rectangle = like->Rectangle;
        } else {
            SetFlags(defaults_.Outline, defaults_.Title);
            entry_.Rectangle = DefaultRectangle(sheet_, Aspect());
        }
        if (page_.Count > 0)
            PlaceBesideFront();
    }

    const PageEntry* FrontOfType() const
    {
        const auto order = DrawingOrder(page_);
        for (int rank = page_.Count - 1; rank >= 0; --rank) {
            const PageEntry& at = page_.Entries[static_cast<size_t>(order[static_cast<size_t>(rank)])];
            if (at.Extent.Type == entry_.Extent.Type)
                return &at;
        }
        return nullptr;
    }

    /// Under the front entry, or offset from it if there is no room.
    void PlaceBesideFront()
    {
        const SheetRect& front = page_.Entries[static_cast<size_t>(page_.FrontEntry)].Rectangle;
        SheetRect& placed = entry_.Rectangle;
        placed.Left = front.Left;
        placed.Top = front.Bottom() + kStackGapInches;
        if (placed.Bottom() <= area_.Bottom() && placed.Right() <= area_.Right())
            return;
        placed.Left = front.Left + kCascadeStepInches;
        placed.Top = front.Top + kCascadeStepInches;
    }

    PageRecord& page_;
    PageEntry& entry_;
    const Sheet& sheet_;
    const EntryDefaults& defaults_;
    SheetRect area_;
};

} // namespace

std::vector<PageWindow> TakePage(std::vector<PageWindow>& windows, const PageSlots& layout)
{
    std::array<int, kWindowTypes> left{};
    for (const WindowType type : { WindowType::DataSet, WindowType::Screen })
        left[static_cast<size_t>(type)] = SlotsOf(layout, type);
    std::vector<PageWindow> taken;
    std::vector<PageWindow> rest;
    for (const PageWindow& window : windows) {
        int& slots = left[static_cast<size_t>(window.Extent.Type)];
        (slots > 0 ? taken : rest).push_back(window);
        slots = std::max(slots - 1, 0);
    }
    if (taken.empty() && !rest.empty()) {
        taken.push_back(rest.front());
        rest.erase(rest.begin());
    }
    windows = std::move(rest);
    return taken;
}

int PagesOf(std::vector<PageWindow> windows, const PageSlots& layout)
{
    int pages = 0;
    for (; !windows.empty(); ++pages)
        TakePage(windows, layout);
    return pages;
}

void FillPage(PageRecord& page, std::span<const PageWindow> windows, const Sheet& sheet, const EntryDefaults& defaults)
{
    ClearPage(page);
    page.Margins = RepairedMargins(page.Margins, sheet);
    for (const PageWindow& window : windows.first(std::min<size_t>(windows.size(), kWindowsPerPage)))
        AddToPage(page, window, sheet, defaults);
}

void AddToPage(PageRecord& page, const PageWindow& window, const Sheet& sheet, const EntryDefaults& defaults)
{
    PageEntry& entry = page.Entries[static_cast<size_t>(page.Count)];
    entry = {};
    entry.Window = window.Id;
    entry.Extent = window.Extent;
    entry.Repaint = true;
    Placing(page, entry, sheet, defaults).Run();
    ++page.Count;
    page.FrontEntry = HighestEntry(page);
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

} // namespace tarvik
