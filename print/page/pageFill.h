// print/page/pageFill.h: which windows a page takes, and where it places them.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/sheet.h"

#include <span>
#include <vector>

namespace tarvik {

/// A window to be printed.
struct PageWindow {
    WindowId Id = 0;
    WindowExtent Extent;
};

/// Flags of an entry without a slot.
struct EntryDefaults {
    bool Outline = true;
    bool Title = false;
};

/// Order of an entry without a slot: in front of all that have one.
inline constexpr int kOrderWithoutSlot = 5120;

/// In a slot the order is that of the slot plus one more of these steps for each window of the type.
inline constexpr int kOrderShift = 8;

inline constexpr float kStackGapInches = 0.1F;
inline constexpr float kCascadeStepInches = 0.2F;

/// Takes the windows of one page out of a list, from its head: of each type as many as the layout has slots for, or the
/// first window alone if it has none for any.
std::vector<PageWindow> TakePage(std::vector<PageWindow>& windows, const PageSlots& layout);

/// Number of pages that TakePage makes of a list.
int PagesOf(std::vector<PageWindow> windows, const PageSlots& layout);

/// Replaces the windows of a page by at most kWindowsPerPage others and places them by its layout. Its margins are
/// repaired first.
void FillPage(PageRecord& page, std::span<const PageWindow> windows, const Sheet& sheet, const EntryDefaults& defaults);

/// Adds a window to a page that has room.
void AddToPage(PageRecord& page, const PageWindow& window, const Sheet& sheet, const EntryDefaults& defaults);

/// Repairs the margins of every page of the table, and fits its windows into them.
void RepairPages(const Sheet& sheet);

} // namespace tarvik
