// Arbitrary bytes as header, palette and rows of a PNG with correct checksums, and as a whole file. The fast path
// must agree with the library.
#include "closed/tvimg/pngFastPath.h"
#include "closed/tvimg/pngHeader.h"
#include "closed/tvimg/pngReader.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace tarvik {

namespace {

using namespace tvimg;

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void Append(Bytes& bytes, ByteView more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

void AppendNumber(Bytes& bytes, size_t value)
{
    for (const unsigned shift : { 24U, 16U, 8U, 0U })
        bytes.push_back(static_cast<uint8_t>(value >> shift));
}

void AppendChunk(Bytes& file, std::string_view name, ByteView content)
{
    AppendNumber(file, content.size());
    const size_t start = file.size();
    file.insert(file.end(), name.begin(), name.end());
    Append(file, content);
    AppendNumber(file, libdeflate_crc32(0, file.data() + start, file.size() - start));
}

Bytes Compressed(ByteView bytes)
{
    libdeflate_compressor* compressor = libdeflate_alloc_compressor(1);
    Require(compressor != nullptr);
    Bytes result(libdeflate_zlib_compress_bound(compressor, bytes.size()));
    result.resize(libdeflate_zlib_compress(compressor, bytes.data(), bytes.size(), result.data(), result.size()));
    libdeflate_free_compressor(compressor);
    return result;
}

/// Seven bytes of header, a count of palette bytes and the palette, then the rows.
Bytes FileOf(ByteView data)
{
    constexpr size_t kHeadBytes = 8;
    if (data.size() < kHeadBytes)
        return {};
    Bytes header;
    AppendNumber(header, data[0] % 64U);
    AppendNumber(header, data[1] % 64U);
    header.insert(header.end(), { data[2], data[3], data[4], data[5], data[6] });
    const size_t paletteBytes = std::min<size_t>(data[7], data.size() - kHeadBytes);
    Bytes file{ 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };
    AppendChunk(file, "IHDR", header);
    if (paletteBytes > 0)
        AppendChunk(file, "PLTE", data.subspan(kHeadBytes, paletteBytes));
    AppendChunk(file, "IDAT", Compressed(data.subspan(kHeadBytes + paletteBytes)));
    AppendChunk(file, "IEND", {});
    return file;
}

void Try(ByteView file)
{
    constexpr int64_t kMaxPixels = 1 << 16;
    const std::optional<PictureSize> size = IsPng(file) ? PngSize(file, file.size()) : std::nullopt;
    if (!size || size->Width * size->Height > kMaxPixels)
        return;
    const auto width = static_cast<int32_t>(size->Width);
    const auto height = static_cast<int32_t>(size->Height);
    std::vector<uint32_t> quick(static_cast<size_t>(width * height), kOpaqueWhite);
    std::vector<uint32_t> thorough = quick;
    const TvImgContext quickContext{ quick.data(), width, height, width };
    const TvImgContext thoroughContext{ thorough.data(), width, height, width };
    const bool isDecoded = DecodePng(file, quickContext);
    for (const uint32_t pixel : quick)
        Require(pixel >= kOpaque && (isDecoded || pixel == kOpaqueWhite));
    if (!DecodePngFast(file, quickContext))
        return;
    Require(DecodePngByLibrary(file, thoroughContext));
    Require(quick == thorough);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Try({ data, size });
    Try(FileOf({ data, size }));
    return 0;
}

} // namespace tarvik
