// print/preview/sheetPixels.h: the preview's sheet in pixels: scale, hit test, dragging. Pixels are those of
// `PbPreview`.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/sheet.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <array>

namespace tarvik {

/// What of an entry is under the mouse; values are the handle codes.
enum class Handle {
    Outside = 0,
    Top = 1,
    TopRight = 2,
    Right = 3,
    BottomRight = 4,
    Bottom = 5,
    BottomLeft = 6,
    Left = 7,
    TopLeft = 8,
    Inside = 9
};

inline constexpr int kHandlePx = 3; ///< from the centre of a handle to its edge
inline constexpr int kLeastEntryPx = 8; ///< width and height while dragging

/// Largest size of the sheet's picture in an area that has the paper's aspect.
QSize PreviewSize(const Sheet& sheet, QSize area);

/// Pixels to an inch, the same in both axes.
float PixelsPerInch(const Sheet& sheet, QSize preview);

/// Inches to pixels, each value cut to a whole number.
QRect PixelsOf(const SheetRect& rectangle, float pixelsPerInch);

/// The smallest whole pixels around it, in which those of every rectangle inside it lie.
QRect PixelsAround(const SheetRect& rectangle, float pixelsPerInch);

/// The reverse, after clipping to the sheet.
SheetRect InchesOf(const QRect& pixels, float pixelsPerInch, QSize preview);

/// What of an entry at `entry` is at a point. Two pixels around it count as well.
Handle HandleAt(const QRect& entry, QPoint point);

/// An entry and what of it is at a point.
struct Hit {
    int Entry = kNoEntry;
    Handle Part = Handle::Outside;
};

/// Tries the front entry first, then the others from the highest order down.
Hit HitTest(const PageRecord& page, QPoint point);

/// Squares on the corners and in the middle of the sides.
std::array<QRect, 8> HandlesOf(const QRect& entry);

/// One step of a drag.
struct DragStep {
    Handle Part = Handle::Outside;
    QPoint Distance;
    double Aspect = 1; ///< width by height of the entry
    bool IsLocked = false; ///< the aspect is kept
};

/// The rectangle after a step; unchanged if it would leave `area`.
QRect Dragged(const QRect& entry, const DragStep& step, const QRect& area);

} // namespace tarvik
