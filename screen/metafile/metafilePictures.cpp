#include "screen/metafile/metafilePictures.h"

#include "screen/bitmap/dib.h"
#include "screen/bitmap/dibPixels.h"
#include "screen/bitmap/pictureLimits.h"

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

QByteArrayView View(tvpicture::ByteView bytes)
{
    return { bytes.data(), static_cast<qsizetype>(bytes.size()) };
}

DibColours ColoursOf(quint16 usage)
{
    switch (usage) {
    case 1:
        return DibColours::PaletteIndexes;
    case 2:
        return DibColours::None;
    default:
        return DibColours::Rgb;
    }
}

/// Lines of a device bitmap are padded to whole words, whatever its header says.
qsizetype DeviceStride(int width, int bitCount)
{
    return (qsizetype{ width } * bitCount + 15) / 16 * 2;
}

QImage DeviceMono(const uchar* pixels, int width, int height)
{
    QImage mono(width, height, QImage::Format_Mono);
    const qsizetype stride = DeviceStride(width, 1);
    for (int y = 0; y < height; ++y)
        std::copy_n(pixels + y * stride, (width + 7) / 8, mono.scanLine(y));
    mono.setColorTable({ qRgb(0, 0, 0), qRgb(255, 255, 255) });
    return mono;
}

/// Decodes colour lines by copying them to the alignment of a device-independent bitmap.
std::optional<QImage> DeviceColours(const uchar* pixels, const DibHeader& header, const QVector<QRgb>& palette)
{
    const qsizetype from = DeviceStride(header.Width, header.BitCount);
    const qsizetype to = (from + 3) / 4 * 4;
    QByteArray lines(to * header.Height, '\0');
    for (int y = 0; y < header.Height; ++y)
        std::copy_n(pixels + y * from, from, lines.data() + y * to);
    return DecodeDibPixels(lines, header, palette);
}

} // namespace

std::optional<QImage> MetafileDib(
    MetafileContext& context, const MetafileParameters& p, int word, quint16 usage, int lines)
{
    DibSource source;
    source.Bytes = View(p.From(word));
    source.Colours = ColoursOf(usage);
    source.Lines = lines;
    if (source.Colours != DibColours::Rgb)
        source.Palette = context.State.Palette->Colours;
    const std::optional<DibHeader> header = ReadDibHeader(source.Bytes, source.Colours);
    if (!header || !context.Spend(qint64{ header->Width } * header->Height))
        return std::nullopt;
    std::optional<QImage> picture = ReadDib(source, *header);
    if (picture && picture->hasAlphaChannel())
        picture->reinterpretAsFormat(QImage::Format_RGB32);
    return picture;
}

std::optional<QImage> MetafileDeviceBitmap(
    MetafileContext& context, const MetafileParameters& p, int word, int pixelsWord)
{
    DibHeader header;
    header.Width = p.Signed(word + 1);
    header.Height = p.Signed(word + 2);
    header.BitCount = p.Word(word + 4) >> 8;
    header.TopDown = true;
    const bool onePlane = (p.Word(word + 4) & 0xFF) == 1;
    const qint64 pixelCount = qint64{ header.Width } * header.Height;
    if (!IsAllowedPicture(header.Width, header.Height) || !onePlane || !context.Spend(pixelCount))
        return std::nullopt;
    const tvpicture::ByteView pixels = p.From(pixelsWord);
    if (static_cast<qint64>(pixels.size()) < qint64{ DeviceStride(header.Width, header.BitCount) } * header.Height)
        return std::nullopt;
    switch (header.BitCount) {
    case 1:
        return DeviceMono(pixels.data(), header.Width, header.Height);
    case 16:
        header.Coding = DibCoding::Masks;
        header.Masks = { 0xF800, 0x07E0, 0x001F, 0 };
        break;
    case 32:
        header.Masks = { 0xFF0000, 0x00FF00, 0x0000FF, 0 };
        break;
    case 4:
    case 8:
    case 24:
        break;
    default:
        return std::nullopt;
    }
    return DeviceColours(pixels.data(), header, context.State.Palette->Colours);
}

QImage MetafileMono(const QImage& picture)
{
    QImage mono(picture.size(), QImage::Format_Mono);
    mono.setColorTable({ qRgb(0, 0, 0), qRgb(255, 255, 255) });
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            mono.setPixel(x, y, qGray(picture.pixel(x, y)) > 127 ? 1 : 0);
    }
    return mono;
}

} // namespace tarvik
