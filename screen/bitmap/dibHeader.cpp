#include "screen/bitmap/dibHeader.h"

#include "screen/bitmap/pictureLimits.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr quint32 kCoreHeaderBytes = 12; ///< OS/2 1.x: 16-bit sizes, colours of three bytes
constexpr quint32 kPlainHeaderBytes = 40;
constexpr quint32 kHeaderBytesWithMasks = 52;
constexpr quint32 kHeaderBytesWithAlpha = 56;
constexpr std::array<quint32, 7> kHeaderBytes{ kCoreHeaderBytes, kPlainHeaderBytes, kHeaderBytesWithMasks,
    kHeaderBytesWithAlpha, 64, 108, 124 };

enum Compression : quint32 { Uncompressed = 0, RunLength8 = 1, RunLength4 = 2, BitFields = 3, AlphaBitFields = 6 };

quint32 Long(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.data() + at);
}

quint16 Word(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.data() + at);
}

/// Width, height, direction, planes and bit count.
bool ReadShape(QByteArrayView bytes, bool core, DibHeader& header)
{
    const qint64 width = core ? Word(bytes, 4) : static_cast<qint32>(Long(bytes, 4));
    const qint64 height = core ? Word(bytes, 6) : static_cast<qint32>(Long(bytes, 8));
    const qsizetype planesAt = core ? 8 : 12;
    if (!IsAllowedPicture(width, qAbs(height)) || Word(bytes, planesAt) != 1)
        return false;
    header.Width = static_cast<int>(width);
    header.Height = static_cast<int>(qAbs(height));
    header.TopDown = height < 0;
    header.BitCount = Word(bytes, planesAt + 2);
    constexpr std::array<int, 7> kBitCounts{ 1, 2, 4, 8, 16, 24, 32 };
    return std::ranges::find(kBitCounts, header.BitCount) != kBitCounts.end();
}

bool ReadCoding(quint32 compression, DibHeader& header)
{
    switch (compression) {
    case Uncompressed:
        header.Coding = DibCoding::Plain;
        return true;
    case RunLength8:
        header.Coding = DibCoding::Rle8;
        return header.BitCount == 8 && !header.TopDown;
    case RunLength4:
        header.Coding = DibCoding::Rle4;
        return header.BitCount == 4 && !header.TopDown;
    case BitFields:
    case AlphaBitFields:
        header.Coding = DibCoding::Masks;
        return header.BitCount == 16 || header.BitCount == 32;
    default:
        return false;
    }
}

bool IsOneRun(quint32 mask)
{
    if (mask == 0)
        return true;
    const quint32 low = mask & (~mask + 1);
    return ((mask + low) & mask) == 0;
}

/// Reads the stored masks, which follow a plain header and are part of the longer ones.
bool ReadMasks(QByteArrayView bytes, quint32 headerBytes, bool alphaStored, DibHeader& header)
{
    constexpr qsizetype kMasksAt = kPlainHeaderBytes;
    const bool hasAlpha = alphaStored || headerBytes == kHeaderBytesWithAlpha || headerBytes >= 108;
    const qsizetype end = kMasksAt + (hasAlpha ? 16 : 12);
    if (headerBytes == 64 || bytes.size() < end)
        return false;
    header.Masks = { Long(bytes, kMasksAt), Long(bytes, kMasksAt + 4), Long(bytes, kMasksAt + 8),
        hasAlpha ? Long(bytes, kMasksAt + 12) : 0 };
    header.ColoursAt = std::max(header.ColoursAt, end);
    const DibMasks& masks = header.Masks;
    return (masks.Red | masks.Green | masks.Blue) != 0 && IsOneRun(masks.Red) && IsOneRun(masks.Green)
        && IsOneRun(masks.Blue) && IsOneRun(masks.Alpha);
}

void SetDefaultMasks(DibHeader& header)
{
    if (header.BitCount == 16)
        header.Masks = { 0x7C00, 0x03E0, 0x001F, 0 };
    else if (header.BitCount == 32)
        header.Masks = { 0xFF0000, 0x00FF00, 0x0000FF, 0 };
}

/// Reads the size of the colour table: a count of 0 means the maximum for the bit count, and no table for true
/// colour.
bool ReadColourCount(quint32 used, DibColours colours, DibHeader& header)
{
    const quint32 most = header.BitCount <= 8 ? 1U << header.BitCount : 0;
    const quint32 count = used == 0 ? most : used;
    if (count > 256 && header.BitCount <= 8)
        return false;
    header.ColourCount = colours == DibColours::None ? 0 : static_cast<int>(std::min<quint32>(count, 65536));
    if (colours == DibColours::PaletteIndexes)
        header.ColourBytes = 2;
    return true;
}

} // namespace

std::optional<DibHeader> ReadDibHeader(QByteArrayView bytes, DibColours colours)
{
    if (bytes.size() < kCoreHeaderBytes)
        return std::nullopt;
    const quint32 headerBytes = Long(bytes, 0);
    const bool core = headerBytes == kCoreHeaderBytes;
    if (std::ranges::find(kHeaderBytes, headerBytes) == kHeaderBytes.end() || bytes.size() < headerBytes)
        return std::nullopt;
    DibHeader header;
    header.ColoursAt = headerBytes;
    header.ColourBytes = core ? 3 : 4;
    const quint32 compression = core ? Uncompressed : Long(bytes, 16);
    const bool sound = ReadShape(bytes, core, header) && ReadCoding(compression, header)
        && ReadColourCount(core ? 0 : Long(bytes, 32), colours, header);
    if (!sound)
        return std::nullopt;
    SetDefaultMasks(header);
    if (header.Coding == DibCoding::Masks && !ReadMasks(bytes, headerBytes, compression == AlphaBitFields, header))
        return std::nullopt;
    return header;
}

} // namespace tarvik
