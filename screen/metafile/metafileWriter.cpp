#include "screen/metafile/metafileWriter.h"

#include "app/platform/replaceFile.h"
#include "closed/pictures/metafile.h"
#include "screen/bitmap/pictureLimits.h"

#include <QtEndian>

namespace tarvik {

namespace {

constexpr int kUnitsPerInch = tvpicture::kPixelsPerInch;
constexpr quint16 kCheckOfFixedWords = 0x5711; ///< exclusive-or of both halves of the key
constexpr quint32 kSourceCopy = 0x00CC0020;

constexpr quint32 kHeaderWords = 9;
constexpr quint32 kMapModeWords = 4;
constexpr quint32 kWindowExtentWords = 5;
constexpr quint32 kCopyWords = 11; ///< without the bitmap
constexpr quint32 kEndWords = 3;
constexpr quint32 kBitmapHeaderBytes = 40;

void Add16(QByteArray& bytes, int value)
{
    char raw[2];
    qToLittleEndian(static_cast<quint16>(value), raw);
    bytes.append(raw, sizeof raw);
}

void Add32(QByteArray& bytes, quint32 value)
{
    char raw[4];
    qToLittleEndian(value, raw);
    bytes.append(raw, sizeof raw);
}

void AddRecord(QByteArray& bytes, quint32 words, quint16 function)
{
    Add32(bytes, words);
    Add16(bytes, function);
}

quint32 LineBytes(const QImage& picture)
{
    return (static_cast<quint32>(picture.width()) * 3 + 3) / 4 * 4;
}

void AddPlaceableHeader(QByteArray& bytes, QSize size)
{
    Add32(bytes, tvpicture::kPlaceableKey);
    Add16(bytes, 0); // handle
    Add16(bytes, 0); // left
    Add16(bytes, 0); // top
    Add16(bytes, size.width());
    Add16(bytes, size.height());
    Add16(bytes, kUnitsPerInch);
    Add32(bytes, 0);
    Add16(bytes, kCheckOfFixedWords ^ size.width() ^ size.height() ^ kUnitsPerInch);
}

void AddMetafileHeader(QByteArray& bytes, quint32 copyWords)
{
    Add16(bytes, 1);
    Add16(bytes, kHeaderWords);
    Add16(bytes, 0x0300);
    Add32(bytes, kHeaderWords + kMapModeWords + kWindowExtentWords + copyWords + kEndWords);
    Add16(bytes, 0); // no objects
    Add32(bytes, copyWords); // the longest record
    Add16(bytes, 0);
}

void AddBitmap(QByteArray& bytes, const QImage& picture)
{
    const quint32 lineBytes = LineBytes(picture);
    Add32(bytes, kBitmapHeaderBytes);
    Add32(bytes, static_cast<quint32>(picture.width()));
    Add32(bytes, static_cast<quint32>(picture.height()));
    Add16(bytes, 1); // planes
    Add16(bytes, 24);
    Add32(bytes, 0); // not compressed
    Add32(bytes, lineBytes * static_cast<quint32>(picture.height()));
    for (int i = 0; i < 4; ++i)
        Add32(bytes, 0); // resolution, colours
    for (int y = picture.height() - 1; y >= 0; --y) {
        const auto* const line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        const qsizetype start = bytes.size();
        bytes.resize(start + lineBytes);
        char* to = bytes.data() + start;
        for (int x = 0; x < picture.width(); ++x) {
            *to++ = static_cast<char>(qBlue(line[x]));
            *to++ = static_cast<char>(qGreen(line[x]));
            *to++ = static_cast<char>(qRed(line[x]));
        }
        std::fill(to, bytes.data() + bytes.size(), '\0');
    }
}

void AddCopy(QByteArray& bytes, quint32 words, const QImage& picture)
{
    AddRecord(bytes, words, tvpicture::MetaDibBitBlt);
    Add32(bytes, kSourceCopy);
    Add16(bytes, 0); // from y, x
    Add16(bytes, 0);
    Add16(bytes, picture.height());
    Add16(bytes, picture.width());
    Add16(bytes, 0); // to y, x
    Add16(bytes, 0);
    AddBitmap(bytes, picture);
}

} // namespace

QByteArray MetafileBytes(const QImage& picture)
{
    if (!IsAllowedPicture(picture.width(), picture.height()))
        return {};
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    const quint32 bitmapBytes = kBitmapHeaderBytes + LineBytes(opaque) * static_cast<quint32>(opaque.height());
    const quint32 copyWords = kCopyWords + bitmapBytes / 2;
    QByteArray bytes;
    bytes.reserve(qsizetype{ bitmapBytes } + 128);
    AddPlaceableHeader(bytes, opaque.size());
    AddMetafileHeader(bytes, copyWords);
    AddRecord(bytes, kMapModeWords, tvpicture::MetaSetMapMode);
    Add16(bytes, tvpicture::MapAnisotropic);
    AddRecord(bytes, kWindowExtentWords, tvpicture::MetaSetWindowExt);
    Add16(bytes, opaque.height());
    Add16(bytes, opaque.width());
    AddCopy(bytes, copyWords, opaque);
    AddRecord(bytes, kEndWords, tvpicture::MetaEof);
    return bytes;
}

bool WriteMetafile(const QString& path, const QImage& picture)
{
    const QByteArray bytes = MetafileBytes(picture);
    return !bytes.isEmpty() && ReplaceFile(path, bytes);
}

} // namespace tarvik
