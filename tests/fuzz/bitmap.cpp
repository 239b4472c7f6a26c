// The bitmap reader on arbitrary bytes. An accepted picture has the size in its header and no transparent pixel.
#include "screen/bitmap/bitmapReader.h"

#include "screen/bitmap/dib.h"

#include <cstdlib>

namespace tarvik {

namespace {

/// Larger pictures only take time and reach no other code.
constexpr int kMaxPixels = 1 << 22;
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
    if (header && qint64{ header->Width } * header->Height > kMaxPixels)
        return 0;
    const auto picture = ReadBitmap(bytes, Qt::white);
    if (!picture)
        return 0;
    Require(header && picture->size() == QSize(header->Width, header->Height));
    Require(picture->format() == QImage::Format_RGB32);
    return 0;
}

} // namespace tarvik
