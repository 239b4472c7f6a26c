// Arbitrary bytes as a PCX picture: an accepted one paints line by line, within the line and opaque.
#include "closed/tvimg/pcxReader.h"

#include <cstdlib>

namespace tarvik {

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace tvimg;
    const ByteView file(data, size);
    const std::optional<PcxPicture> picture = DecodePcx(file);
    if (!picture)
        return 0;
    Require(ParsePcxHeader(file, size).has_value() && IsAllowed(picture->Header.Size));
    const auto width = static_cast<size_t>(picture->Header.Size.Width);
    for (int64_t y = 0; y < picture->Header.Size.Height; ++y) {
        std::vector<uint32_t> line(width, kOpaqueWhite);
        PaintPcxLine(*picture, y, line.data());
        for (const uint32_t pixel : line)
            Require(pixel >= kOpaque);
    }
    return 0;
}

} // namespace tarvik
