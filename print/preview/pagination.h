// print/preview/pagination.h: windows of the preview on their pages: adding, deleting, distributing again, storing the
// layout. Pages in use are the first ones of the table, without a gap.
#pragma once

#include "print/page/pageFill.h"
#include "print/page/pageTable.h"

#include <span>

namespace tarvik {

/// Number of pages with windows.
int PagesInUse();

/// The windows of all pages, by page and entry.
std::vector<PageWindow> WindowsOnPages();

/// Distributes a list of windows over the pages by the layout of the first page, as printing them does, and presents
/// the first page.
void BuildPages(std::vector<PageWindow> windows, const Sheet& sheet);

/// Distributes the windows of all pages again, `perPage` (1 to kWindowsPerPage) on each, and arranges every page. False
/// after message 12710, with nothing changed, if they don't fit into the table.
bool Repaginate(int perPage, const Sheet& sheet);

/// Arranges every page with windows.
void ArrangePages(const Sheet& sheet);

/// Adds windows to the present page and, when it has `perPage` windows, to the next ones. False after message 12710 if
/// the table is full; the windows before are added.
bool AddWindows(std::span<const PageWindow> windows, int perPage, const Sheet& sheet);

/// Lays out the pages of all open windows, the active one first, and presents the first page. Returns the number of
/// windows on a page: as many as the fullest one has.
int OpenPages(const Sheet& sheet);

/// True if AddChosenWindows has something to add or to offer.
bool CanAddWindows();

/// Offers the open windows, marking the first one that is not on the present page, and adds those that the user
/// chooses; a single one is added without a question unless it is there. False if nothing was added.
bool AddChosenWindows(int perPage, const Sheet& sheet);

/// Removes the front entry of the present page. A page left empty is removed from the table, unless it is the only one;
/// the one before is then presented if it was the last.
void RemoveFrontEntry();

/// Copies the entries of every page into its layout, so that filling it again gives the same page; the other slots
/// become empty.
void StoreLayout(const Sheet& sheet);

} // namespace tarvik
