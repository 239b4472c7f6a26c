// The bitmap reader on any bytes. What it takes has the size of its header and no transparent pixel.
#include "screen/bitmap/bitmapReader.h"

#include "screen/bitmap/dib.h"

#include <cstdlib>

namespace tarvik {

namespace {

/// Larger pictures take time without reaching other code.
constexpr int kMostPixels = 1 << 22;
constexpr qsizetype kFileHeaderBytes = 14;

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (bytes.size() < kFileHeaderBytes)
        return 0;
    const auto header = ReadDibHeader(QByteArrayView(bytes).sliced(kFileHeaderBytes), DibColours::Rgb);
    if (header && qint64{ header->Width } * header->Height > kMostPixels)
        return 0;
    const auto picture = ReadBitmap(bytes, Qt::white);
    if (!picture)
        return 0;
    Require(header && picture->size() == QSize(header->Width, header->Height));
    Require(picture->format() == QImage::Format_RGB32);
    return 0;
}

} // namespace tarvik
