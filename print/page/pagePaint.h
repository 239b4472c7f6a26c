// print/page/pagePaint.h: draws the windows of a page on a printer, in a PDF or on the preview's sheet.
#pragma once

#include "print/page/pageTable.h"
#include "print/printer/sheet.h"

#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace tarvik {

/// Texts are made smaller in steps of that many points until they fit, down to the least.
inline constexpr double kFontStepPoints = 0.1;
inline constexpr double kFontStepsRangePoints = 5;
inline constexpr double kLeastFontPoints = 1;

/// The bands of an entry, in dots.
struct EntryBands {
    QRect Title; ///< empty without title; its line is the row below it
    QRect Picture;
    QRect Description; ///< empty without description; its line is the row above it
};

/// Shares of a device rectangle.
EntryBands BandsOf(const PageEntry& entry, const QRect& device);

/// `font` for the device in the largest size, in steps from `points` down to kFontStepsRangePoints less, in which
/// `text` is at most `width` dots wide; the least of these if none is.
QFont FontForWidth(QFont font, double points, const QString& text, int width, QPaintDevice* device);

/// What the layout needs to know of a window in use.
WindowExtent WindowExtentOf(WindowId id);

/// Draws the entries of a page in their order. The painter's origin is the corner of the printable area. An entry that
/// can't be drawn stays blank. The painter is unchanged on return.
void PaintPage(QPainter& painter, const PageRecord& page, const Sheet& sheet);

/// What differs between a printed entry and one in the preview.
struct EntryStyle {
    bool BlackAndWhite = false;
    bool Box = true; ///< draws the outline of an entry that has one
    bool OwnPixels = true; ///< the device scales the picture; else it is scaled for a screen
};

/// Draws one entry at a place in dots: title, picture, description and box. The box ends under the last line of the
/// description.
void PaintEntry(QPainter& painter, const PageEntry& entry, const QRect& device, const EntryStyle& style);

} // namespace tarvik
