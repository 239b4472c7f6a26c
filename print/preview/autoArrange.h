// print/preview/autoArrange.h: arranges the windows of a page in the grid that shows them largest.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/sheet.h"

namespace tarvik {

/// Rectangles of the entries in a grid of that many rows, filled downwards first.
void ArrangeInGrid(PageRecord& page, int rows, const Sheet& sheet);

/// Orders the entries for a grid of that many rows: in a column from top to bottom, columns from left to right. The
/// front entry stays the same window.
void SortForGrid(PageRecord& page, int rows);

/// Sorts the entries and arranges them in the grid with the largest total area; of equal ones the one with fewer rows.
void AutoArrange(PageRecord& page, const Sheet& sheet);

} // namespace tarvik
