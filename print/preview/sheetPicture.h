// print/preview/sheetPicture.h: the picture of the present page, composed of thumbnails that are kept while they are
// valid.
#pragma once

#include "print/page/pageTable.h"

#include <QImage>

#include <array>

namespace tarvik {

class SheetPicture {
public:
    /// Draws the present page into Picture. Composes the entries whose repaint flag is set, and clears it. `scale` is
    /// that of the screen, device pixels to a pixel.
    void Draw(QSize preview, double scale);

    /// Format_RGB32, in device pixels.
    const QImage& Picture() const
    {
        return picture_;
    }

    /// How many entries have been composed so far.
    int Composed() const
    {
        return composed_;
    }

private:
    struct Thumbnail {
        WindowId Window = 0;
        QImage Image;
    };

    const QImage& ThumbnailOf(PageEntry& entry, bool blackAndWhite, QSize devicePixels);

    std::array<Thumbnail, kWindowsPerPage> thumbnails_; ///< in no order
    QImage picture_;
    int composed_ = 0;
};

} // namespace tarvik
