// print/page/pageLayout.h: arithmetic of rectangles on a sheet. Lengths are inches, from its upper left corner.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/sheet.h"

namespace tarvik {

/// Width and height that the margins leave of a sheet.
inline constexpr float kLeastPrintableInches = 2;

/// The device rectangle is that much smaller than the entry, in dots.
inline constexpr int kDeviceInset = 10;

/// Margins that the printer can print, and that leave kLeastPrintableInches: each is at least the printer's offset, and
/// too large ones shrink in steps of 0.1 inch. On a sheet that is too small for that they end at the offset.
PageMargins RepairedMargins(const PageMargins& margins, const Sheet& sheet);

SheetRect PrintableArea(const Sheet& sheet, const PageMargins& margins);

/// Shares of title, picture and description in the height of a window.
EntryShares SharesOf(const WindowExtent& window, bool title);

/// Width by height of an entry whose picture has the proportions of the window's.
float AspectOf(const WindowExtent& window, const EntryShares& shares);

/// Margin around a full page: a tenth of the sheet's shorter side, unless the printer's offset is larger.
float FullPageMargin(const Sheet& sheet);

/// The largest rectangle of that aspect that has the margin of a full page.
SheetRect DefaultRectangle(const Sheet& sheet, float aspect);

/// Moves and shrinks a rectangle into an area. With `keepsAspect` its height follows from its width first, and both
/// shrink together.
SheetRect Fitted(SheetRect rectangle, float aspect, bool keepsAspect, const SheetRect& area);

/// Dots from the corner of the printable area of the device.
QRect DeviceRectangle(const SheetRect& rectangle, const Sheet& sheet);

} // namespace tarvik
