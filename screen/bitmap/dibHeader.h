// screen/bitmap/dibHeader.h: the header of a device-independent bitmap.
#pragma once

#include <QByteArrayView>

#include <optional>

namespace tarvik {

/// Meaning of the entries of a bitmap's colour table.
enum class DibColours {
    Rgb, ///< colours
    PaletteIndexes, ///< 16-bit indexes into the palette of the device context
    None, ///< no table: pixels are indexes into that palette
};

enum class DibCoding { Plain, Rle8, Rle4, Masks };

/// Bits of each channel in a pixel; 0 if the channel is absent.
struct DibMasks {
    quint32 Red = 0;
    quint32 Green = 0;
    quint32 Blue = 0;
    quint32 Alpha = 0;
};

/// A validated header: the size is within the limits of closed/tvimg.h, and the bit count matches the compression.
struct DibHeader {
    int Width = 0; ///< pixels
    int Height = 0;
    bool TopDown = false; ///< the first line stored is the top one
    int BitCount = 0; ///< 1, 2, 4, 8, 16, 24, 32
    DibCoding Coding = DibCoding::Plain;
    DibMasks Masks; ///< for 16 and 32 bits
    int ColourCount = 0; ///< entries of the colour table
    int ColourBytes = 4; ///< per entry
    qsizetype ColoursAt = 0; ///< offset from the start of the header
};

/// Nullopt for a header that is truncated, of an unknown version, without size, or beyond the limits.
std::optional<DibHeader> ReadDibHeader(QByteArrayView bytes, DibColours colours);

} // namespace tarvik
