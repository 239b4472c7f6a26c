// screen/bitmap/dibHeader.h: the header of a device-independent bitmap.
#pragma once

#include <QByteArrayView>

#include <optional>

namespace tarvik {

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

} // namespace tarvik
