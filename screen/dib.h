// screen/dib.h: device-independent bitmaps: what a bitmap file holds behind its first header, and a metafile in the
// records that paint bitmaps.
#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QVector>

#include <array>
#include <optional>

/// What the entries of a bitmap's colour table are.
enum class DibColours {
    Rgb, ///< colours
    PaletteIndexes, ///< 16-bit numbers of colours in the palette of whoever paints
    None, ///< no table: pixels are numbers in that palette
};

enum class DibCoding { Plain, Rle8, Rle4, Masks };

/// Bits of a pixel that make one channel; 0 for a channel that is not there.
struct DibMasks {
    quint32 Red = 0;
    quint32 Green = 0;
    quint32 Blue = 0;
    quint32 Alpha = 0;
};

/// A header that has been checked: sides within the limits of closed/tvimg.h, and a bit count that goes with the
/// coding.
struct DibHeader {
    int Width = 0; ///< pixels
    int Height = 0;
    bool TopDown = false; ///< the first line stored is the upper one
    int BitCount = 0; ///< 1, 2, 4, 8, 16, 24, 32
    DibCoding Coding = DibCoding::Plain;
    DibMasks Masks; ///< with 16 and 32 bits
    int ColourCount = 0; ///< entries of the colour table
    int ColourBytes = 4; ///< of an entry
    qsizetype ColoursAt = 0; ///< bytes from the start of the header
};

/// Nothing for a header that is cut short, of an unknown kind, without size, or beyond the limits.
std::optional<DibHeader> ReadDibHeader(QByteArrayView bytes, DibColours colours);

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
