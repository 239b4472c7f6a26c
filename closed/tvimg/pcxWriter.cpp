#include "closed/tvimg/pcxWriter.h"

#include <algorithm>
#include <array>

namespace tvimg {

namespace {

constexpr size_t kHeaderBytes = 128;
constexpr size_t kPlanes = 3;
constexpr uint16_t kDotsPerInch = 96;
constexpr uint8_t kRunMark = 0xC0;
constexpr ptrdiff_t kLongestRun = 63;

/// Bytes buffered per write.
constexpr size_t kPieceBytes = size_t{ 1 } << 20U;

void PutWord(Bytes& bytes, size_t at, size_t value)
{
    bytes[at] = static_cast<uint8_t>(value & 0xff);
    bytes[at + 1] = static_cast<uint8_t>(value >> 8U & 0xff);
}

/// Rows have an even number of bytes, as the format requires.
size_t PlaneBytes(PictureSize size)
{
    return (static_cast<size_t>(size.Width) + 1) / 2 * 2;
}

Bytes Header(PictureSize size)
{
    Bytes header(kHeaderBytes);
    header[0] = 10;
    header[1] = 5; // the version with 24 bits
    header[2] = 1; // run-length encoded
    header[3] = 8; // bits per pixel and plane
    PutWord(header, 8, static_cast<size_t>(size.Width - 1));
    PutWord(header, 10, static_cast<size_t>(size.Height - 1));
    PutWord(header, 12, kDotsPerInch);
    PutWord(header, 14, kDotsPerInch);
    header[65] = kPlanes;
    PutWord(header, 66, PlaneBytes(size));
    PutWord(header, 68, 1); // palette of colours
    return header;
}

/// Appends one row of one plane. Returns the end of the output; the target has space for twice the row.
uint8_t* Encode(ByteView line, uint8_t* target)
{
    const uint8_t* at = line.data();
    const uint8_t* end = at + line.size();
    while (at < end) {
        const uint8_t value = *at;
        const uint8_t* limit = at + std::min(kLongestRun, end - at);
        const uint8_t* next = at + 1;
        while (next < limit && *next == value)
            ++next;
        const auto count = static_cast<uint8_t>(next - at);
        if (count > 1 || value >= kRunMark)
            *target++ = static_cast<uint8_t>(kRunMark | count);
        *target++ = value;
        at = next;
    }
    return target;
}

/// Splits one row of the context into planes of red, green and blue, padded with the last pixel.
void Split(const uint32_t* pixels, PictureSize size, Bytes& planes)
{
    const size_t planeBytes = PlaneBytes(size);
    const auto width = static_cast<size_t>(size.Width);
    uint8_t* red = planes.data();
    uint8_t* green = red + planeBytes;
    uint8_t* blue = green + planeBytes;
    for (size_t x = 0; x < width; ++x) {
        red[x] = static_cast<uint8_t>(pixels[x] >> 16U);
        green[x] = static_cast<uint8_t>(pixels[x] >> 8U);
        blue[x] = static_cast<uint8_t>(pixels[x]);
    }
    for (size_t x = width; x < planeBytes; ++x) {
        red[x] = red[x - 1];
        green[x] = green[x - 1];
        blue[x] = blue[x - 1];
    }
}

/// Buffers encoded rows on their way to a file.
class Lines {
public:
    Lines(tvfile::NewFile& file, PictureSize size)
        : file_(file)
        , size_(size)
        , planes_(PlaneBytes(size) * kPlanes)
        , coded_(kPieceBytes + 2 * planes_.size())
    {
    }
    [[nodiscard]] bool Add(const uint32_t* pixels)
    {
        Split(pixels, size_, planes_);
        uint8_t* target = coded_.data() + used_;
        for (size_t plane = 0; plane < kPlanes; ++plane)
            target = Encode(ByteView(planes_).subspan(plane * PlaneBytes(size_), PlaneBytes(size_)), target);
        used_ = static_cast<size_t>(target - coded_.data());
        return used_ < kPieceBytes || Flush();
    }
    [[nodiscard]] bool Flush()
    {
        const size_t count = used_;
        used_ = 0;
        return file_.Write(ByteView(coded_).first(count)).Ok();
    }

private:
    tvfile::NewFile& file_;
    PictureSize size_;
    Bytes planes_;
    Bytes coded_;
    size_t used_ = 0;
};

} // namespace

bool WritePcx(const char* path, const TvImgContext& context, PictureSize size, int32_t* workCounter)
{
    tvfile::NewFile file;
    if (!file.Begin(path).Ok() || !file.Write(Header(size)).Ok())
        return false;
    Lines lines(file, size);
    for (int64_t y = 0; y < size.Height; ++y) {
        if (!lines.Add(Line(context, y)))
            return false;
        if (workCounter != nullptr)
            ++*workCounter;
    }
    return lines.Flush() && file.Commit(true).Ok();
}

} // namespace tvimg
