// print/preview/sheetEdit.h: moving and sizing the windows of the present page on the preview's sheet, with the mouse
// or with keys. Pixels are those of `PbPreview`.
#pragma once

#include "print/preview/sheetPixels.h"

#include <QString>

#include <array>

namespace tarvik {

/// What has changed and must be drawn.
enum class SheetChange {
    None,
    Frame, ///< handles or the rubber frame
    Page ///< the picture of the page
};

class SheetEdit {
public:
    /// Sets the scale. Pixel rectangles of all pages follow, and every entry has to be composed again.
    void SetScale(const Sheet& sheet, QSize preview);

    const Sheet& SheetInUse() const
    {
        return sheet_;
    }
    QSize PreviewPixels() const
    {
        return preview_;
    }
    float Scale() const
    {
        return PixelsPerInch(sheet_, preview_);
    }

    /// Pixel rectangles of the present page follow its rectangles in inches.
    void PlacePresentPage();

    /// What of the present page is at a point.
    Handle PartAt(QPoint point) const;

    /// Mouse button down: selects the window at the point and starts a drag there.
    SheetChange Press(QPoint point);

    /// The mouse moves during a drag. A step out of the printable area is refused; the next one starts at its end.
    SheetChange DragTo(QPoint point);

    /// Mouse button up: the window takes the place of the rubber frame, fitted into the printable area. Without a
    /// movement it stays exactly where it was.
    SheetChange Release();

    /// The window stays where it was before the drag.
    SheetChange Abandon();

    bool IsDragging() const
    {
        return part_ != Handle::Outside;
    }

    /// A drag of the selected window by one step, in one go.
    SheetChange Step(Handle part, QPoint distance);

    /// Selects the next window of the page, or the previous one with -1.
    SheetChange SelectNext(int direction);

    /// Place of the selected window, or of the rubber frame during a drag; empty without windows.
    QRect SelectedPixels() const;

    /// Sets the title flag of the selected window; its rectangle follows the new proportions.
    SheetChange SetTitle(bool title);
    SheetChange SetOutline(bool outline);

private:
    PageEntry* Selected() const;
    SheetChange Select(int entry);
    SheetRect MovedInches() const;
    void FitSelected(const SheetRect& rectangle);

    Sheet sheet_;
    QSize preview_{ 1, 1 };
    Handle part_ = Handle::Outside; ///< of the drag
    QPoint last_;
    QRect frame_;
    bool hasMoved_ = false;
};

/// Left, top, right and bottom edge of the selected window, in the user's measure with its unit; empty texts on a page
/// without windows.
std::array<QString, 4> PositionTexts();

} // namespace tarvik
