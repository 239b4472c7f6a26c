#include "closed/tvimg/pngHeader.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>

namespace tvimg {

namespace {

constexpr unsigned kGrey = 0;
constexpr unsigned kIndexes = 3;

constexpr std::array<uint8_t, 8> kSignature{ 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };
constexpr std::array<uint8_t, 8> kHeaderChunk{ 0, 0, 0, 13, 'I', 'H', 'D', 'R' };
constexpr size_t kHeaderEnd = 33; // signature, length, name, 13 bytes, checksum

/// Highest compression ratio of deflate.
constexpr uint64_t kMaxCompressionRatio = 1032;

/// Samples per pixel by colour type; 0 for an invalid type.
constexpr std::array<unsigned, 7> kChannels{ 1, 0, 3, 1, 2, 0, 4 };

bool AreBitsAllowed(unsigned bits, unsigned colorType)
{
    if (colorType == kGrey)
        return bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16;
    if (colorType == kIndexes)
        return bits == 1 || bits == 2 || bits == 4 || bits == 8;
    return bits == 8 || bits == 16;
}

} // namespace

bool IsPng(ByteView head)
{
    return head.size() >= kSignature.size() && std::ranges::equal(head.first(kSignature.size()), kSignature);
}

std::optional<PictureSize> PngSize(ByteView head, uint64_t fileBytes)
{
    constexpr size_t kStart = kSignature.size();
    if (head.size() < kHeaderEnd || !std::ranges::equal(head.subspan(kStart, kHeaderChunk.size()), kHeaderChunk))
        return std::nullopt;
    const ByteView summed = head.subspan(kStart + 4, kHeaderEnd - kStart - 8); // the chunk's name and content
    if (libdeflate_crc32(0, summed.data(), summed.size()) != BigDoubleWord(head, kHeaderEnd - 4))
        return std::nullopt;
    const PictureSize size{ BigDoubleWord(head, 16), BigDoubleWord(head, 20) };
    const unsigned bits = head[24];
    const unsigned colorType = head[25];
    const bool isKnown = colorType < kChannels.size() && kChannels[colorType] != 0 && AreBitsAllowed(bits, colorType)
        && head[26] == 0 && head[27] == 0 && head[28] <= 1;
    if (!isKnown || !IsAllowed(size))
        return std::nullopt;
    const uint64_t pixelBytes = static_cast<uint64_t>(size.Width * size.Height) * bits * kChannels[colorType] / 8;
    return pixelBytes / kMaxCompressionRatio > fileBytes ? std::nullopt : std::optional(size);
}

} // namespace tvimg
