// screen/bitmap/dib.h: device-independent bitmaps: what a bitmap file holds behind its first header, and a metafile in
// the records that paint bitmaps.
#pragma once

#include "screen/bitmap/dibHeader.h"

#include <QImage>
#include <QVector>

namespace tarvik {

/// What the pixels of a bitmap go through on their way into a picture.
struct DibSource {
    QByteArrayView Bytes; ///< from the bitmap's header on
    qsizetype PixelsAt = 0; ///< bytes from the start of the header; 0 for directly behind the colour table
    DibColours Colours = DibColours::Rgb;
    QVector<QRgb> Palette; ///< of whoever paints, for the colours that are told by number
    int Lines = 0; ///< lines that are stored, where that is fewer than the height; 0 for all
};

/// Decodes a bitmap. Format_ARGB32 where a mask gives alpha and any pixel has some, else Format_RGB32. Nothing unless
/// every pixel is there and has a colour: lines that are cut short, runs that go past the end of their line, and
/// numbers beyond the colour table are refused.
std::optional<QImage> ReadDib(const DibSource& source);
std::optional<QImage> ReadDib(const DibSource& source, const DibHeader& header);

} // namespace tarvik
