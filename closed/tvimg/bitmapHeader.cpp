#include "closed/tvimg/bitmapHeader.h"

#include <algorithm>
#include <array>

namespace tvimg {

namespace {

constexpr size_t kFileHeaderBytes = 14;
constexpr size_t kCoreHeaderBytes = 12; // OS/2 1.x: 16-bit sizes, no compression field
constexpr std::array<uint32_t, 7> kHeaderBytes{ kCoreHeaderBytes, 40, 52, 56, 64, 108, 124 };
constexpr std::array<uint16_t, 7> kBitCounts{ 1, 2, 4, 8, 16, 24, 32 };

constexpr uint32_t kUncompressed = 0;
constexpr std::array<uint32_t, 2> kRunLength{ 1, 2 };
constexpr std::array<uint32_t, 2> kWithMasks{ 3, 6 }; // bit masks, uncompressed too

template <typename Numbers, typename Number>
bool IsOneOf(const Numbers& numbers, Number number)
{
    return std::ranges::find(numbers, number) != std::ranges::end(numbers);
}

struct BitmapHeader {
    PictureSize Size;
    uint32_t PixelOffset = 0; ///< bytes from the start of the file
    uint16_t Planes = 0;
    uint16_t BitCount = 0;
    uint32_t Compression = kUncompressed;
};

BitmapHeader ParseCore(ByteView head)
{
    return { { Word(head, 18), Word(head, 20) }, DoubleWord(head, 10), Word(head, 22), Word(head, 24) };
}

/// A negative height means top-down rows.
BitmapHeader ParseInfo(ByteView head)
{
    const int64_t height = static_cast<int32_t>(DoubleWord(head, 22));
    return { { static_cast<int32_t>(DoubleWord(head, 18)), height < 0 ? -height : height }, DoubleWord(head, 10),
        Word(head, 26), Word(head, 28), DoubleWord(head, 30) };
}

/// False if uncompressed pixels extend beyond the end of the file. The padding of the last row may be missing.
bool HasAllPixels(const BitmapHeader& header, uint64_t fileBytes)
{
    if (IsOneOf(kRunLength, header.Compression))
        return true;
    const auto lineBits = static_cast<uint64_t>(header.Size.Width) * header.BitCount;
    const uint64_t stride = (lineBits + 31) / 32 * 4;
    const uint64_t pixels = stride * static_cast<uint64_t>(header.Size.Height - 1) + (lineBits + 7) / 8;
    return header.PixelOffset <= fileBytes && pixels <= fileBytes - header.PixelOffset;
}

} // namespace

bool IsBitmap(ByteView head)
{
    return head.size() > kFileHeaderBytes + 4 && head[0] == 'B' && head[1] == 'M';
}

std::optional<PictureSize> BitmapSize(ByteView head, uint64_t fileBytes)
{
    const uint32_t headerBytes = DoubleWord(head, kFileHeaderBytes);
    if (!IsOneOf(kHeaderBytes, headerBytes) || head.size() < kFileHeaderBytes + headerBytes)
        return std::nullopt;
    const BitmapHeader header = headerBytes == kCoreHeaderBytes ? ParseCore(head) : ParseInfo(head);
    const bool isKnownCoding = header.Compression == kUncompressed || IsOneOf(kRunLength, header.Compression)
        || IsOneOf(kWithMasks, header.Compression);
    const bool isSound = header.Planes == 1 && IsOneOf(kBitCounts, header.BitCount) && isKnownCoding;
    if (!isSound || !IsAllowed(header.Size) || !HasAllPixels(header, fileBytes))
        return std::nullopt;
    return header.Size;
}

} // namespace tvimg
