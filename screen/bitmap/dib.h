// screen/bitmap/dib.h: device-independent bitmaps, as contained in bitmap files after the file header and in metafile
// records that paint bitmaps.
#pragma once

#include "screen/bitmap/dibHeader.h"

#include <QImage>
#include <QVector>

namespace tarvik {

/// A bitmap and what its decoding depends on.
struct DibSource {
    QByteArrayView Bytes; ///< starts at the bitmap's header
    qsizetype PixelsAt = 0; ///< offset of the pixels from the header; 0 if they follow the colour table
    DibColours Colours = DibColours::Rgb;
    QVector<QRgb> Palette; ///< the palette of the device context, for colours given by index
    int Lines = 0; ///< number of lines stored if less than the height; 0 for all
};

/// Decodes a bitmap. Format_ARGB32 if a mask gives alpha and any pixel has some, else Format_RGB32. Nullopt unless
/// every pixel is there and has a colour: truncated lines, runs beyond the end of a line, and indexes beyond the
/// colour table are refused.
std::optional<QImage> ReadDib(const DibSource& source);
std::optional<QImage> ReadDib(const DibSource& source, const DibHeader& header);

} // namespace tarvik
