#include "screen/bitmap/bitmapReader.h"

#include "screen/bitmap/dib.h"

#include <QPainter>
#include <QtEndian>

namespace tarvik {

namespace {

constexpr qsizetype kFileHeaderBytes = 14;
constexpr qsizetype kPixelOffsetAt = 10;

QImage BlendedOver(const QImage& picture, const QColor& background)
{
    QImage under(picture.size(), QImage::Format_RGB32);
    under.fill(background);
    QPainter(&under).drawImage(0, 0, picture);
    return under;
}

} // namespace

std::optional<QImage> ReadBitmap(const QByteArray& bytes, const QColor& background)
{
    if (bytes.size() < kFileHeaderBytes || !bytes.startsWith("BM"))
        return std::nullopt;
    DibSource source;
    source.Bytes = QByteArrayView(bytes).sliced(kFileHeaderBytes);
    const auto pixelsAt = qsizetype{ qFromLittleEndian<quint32>(bytes.constData() + kPixelOffsetAt) };
    if (pixelsAt != 0 && pixelsAt <= kFileHeaderBytes)
        return std::nullopt;
    source.PixelsAt = pixelsAt == 0 ? 0 : pixelsAt - kFileHeaderBytes;
    const std::optional<QImage> picture = ReadDib(source);
    return picture && picture->hasAlphaChannel() ? BlendedOver(*picture, background) : picture;
}

} // namespace tarvik
