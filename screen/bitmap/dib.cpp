#include "screen/bitmap/dib.h"

#include "screen/bitmap/dibPixels.h"

#include <QtEndian>

#include <algorithm>

namespace tarvik {

namespace {

/// Reads as many colours as are there: with an explicit pixel offset, the table may be shorter than its count.
QVector<QRgb> ReadColours(const DibSource& source, const DibHeader& header)
{
    if (header.BitCount > 8)
        return {};
    if (source.Colours == DibColours::None)
        return source.Palette;
    const qsizetype end =
        source.PixelsAt > header.ColoursAt ? std::min(source.PixelsAt, source.Bytes.size()) : source.Bytes.size();
    const qsizetype count = std::min<qsizetype>(header.ColourCount, (end - header.ColoursAt) / header.ColourBytes);
    QVector<QRgb> colours;
    colours.reserve(std::max<qsizetype>(count, 0));
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype at = header.ColoursAt + i * header.ColourBytes;
        const auto byte = [&](qsizetype offset) { return static_cast<uchar>(source.Bytes[at + offset]); };
        if (source.Colours == DibColours::PaletteIndexes)
            colours.append(source.Palette.value(qFromLittleEndian<quint16>(source.Bytes.data() + at), qRgb(0, 0, 0)));
        else
            colours.append(qRgb(byte(2), byte(1), byte(0)));
    }
    return colours;
}

} // namespace

std::optional<QImage> ReadDib(const DibSource& source)
{
    const std::optional<DibHeader> header = ReadDibHeader(source.Bytes, source.Colours);
    return header ? ReadDib(source, *header) : std::nullopt;
}

std::optional<QImage> ReadDib(const DibSource& source, const DibHeader& header)
{
    const qsizetype packedAt = header.ColoursAt + qsizetype{ header.ColourCount } * header.ColourBytes;
    const qsizetype pixelsAt = source.PixelsAt == 0 ? packedAt : source.PixelsAt;
    if (pixelsAt < header.ColoursAt || pixelsAt > source.Bytes.size())
        return std::nullopt;
    DibHeader stored = header;
    if (source.Lines > 0)
        stored.Height = std::min(header.Height, source.Lines);
    return DecodeDibPixels(source.Bytes.sliced(pixelsAt), stored, ReadColours(source, header));
}

} // namespace tarvik
