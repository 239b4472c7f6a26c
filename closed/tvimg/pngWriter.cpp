#include "closed/tvimg/pngWriter.h"

#include "closed/tvimg/pngLines.h"
#include "closed/tvimg/workspace.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

namespace tvimg {

namespace {

constexpr std::array<uint8_t, 8> kSignature{ 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };
constexpr size_t kLargestChunk = std::numeric_limits<int32_t>::max();

/// Sample for the trial compression: bands, and rows per band.
constexpr int64_t kTrialBands = 2;
constexpr int64_t kTrialLines = 10;

/// Compression levels. Grids, text and traces compress fast at a high level; noise does not compress at any level,
/// and a low one is several times as fast.
constexpr int kTrialLevel = 1;
constexpr int kLevelForScreens = 5;
constexpr int kLevelForPatterns = 3;
constexpr int kLevelForNoise = 1;

using Compressor = std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)>;

Compressor MakeCompressor(int level)
{
    Compressor compressor(libdeflate_alloc_compressor(level), &libdeflate_free_compressor);
    if (compressor == nullptr)
        throw std::bad_alloc();
    return compressor;
}

ByteView Compress(ByteView bytes, int level, Workspace& space)
{
    const Compressor compressor = MakeCompressor(level);
    const size_t room = libdeflate_zlib_compress_bound(compressor.get(), bytes.size());
    uint8_t* compressed = space.Compressed(room);
    return { compressed, libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(), compressed, room) };
}

/// The filter for all rows, and the level that suits them.
struct Coding {
    PngFilter Filter = PngFilter::None;
    int Level = kLevelForScreens;
};

int LevelFor(size_t compressedBytes, size_t bytes)
{
    if (compressedBytes < bytes / 6)
        return kLevelForScreens;
    return compressedBytes < bytes * 3 / 5 ? kLevelForPatterns : kLevelForNoise;
}

/// A few bands of the picture, filtered.
ByteView Sample(const PngLines& lines, PngFilter filter, uint8_t* target)
{
    const int64_t height = lines.Size().Height;
    const int64_t count = std::min(kTrialLines, (height + kTrialBands - 1) / kTrialBands);
    uint8_t* end = target;
    for (int64_t band = 0; band < kTrialBands; ++band) {
        const int64_t first = std::min((2 * band + 1) * height / (2 * kTrialBands), height - count);
        end = lines.Store(filter, first, count, end);
    }
    return { target, end };
}

/// Tries all filters: the best depends on the contents, and the difference is large.
Coding ChooseCoding(const PngLines& lines, Workspace& space)
{
    Coding coding;
    size_t fewest = std::numeric_limits<size_t>::max();
    uint8_t* room = space.Lines(lines.LineBytes() * kTrialBands * kTrialLines);
    for (const PngFilter filter : { PngFilter::None, PngFilter::Left, PngFilter::Above, PngFilter::Average }) {
        const ByteView sample = Sample(lines, filter, room);
        const size_t bytes = Compress(sample, kTrialLevel, space).size();
        if (bytes >= fewest)
            continue;
        fewest = bytes;
        coding = { filter, LevelFor(bytes, sample.size()) };
    }
    return coding;
}

/// All rows, compressed; valid in the workspace until the next picture.
ByteView CompressedLines(const PngLines& lines, Workspace& space)
{
    const Coding coding = ChooseCoding(lines, space);
    uint8_t* begin = space.Lines(lines.LineBytes() * static_cast<size_t>(lines.Size().Height));
    const uint8_t* end = lines.Store(coding.Filter, 0, lines.Size().Height, begin);
    return Compress({ begin, end }, coding.Level, space);
}

void PutDoubleWord(Bytes& bytes, size_t value)
{
    for (const unsigned shift : { 24U, 16U, 8U, 0U })
        bytes.push_back(static_cast<uint8_t>(value >> shift));
}

/// Starts a chunk with its length and name.
void BeginChunk(Bytes& bytes, size_t length, std::string_view name)
{
    PutDoubleWord(bytes, length);
    bytes.insert(bytes.end(), name.begin(), name.end());
}

void PutChunk(Bytes& bytes, std::string_view name, const Bytes& content)
{
    BeginChunk(bytes, content.size(), name);
    bytes.insert(bytes.end(), content.begin(), content.end());
    const size_t summed = name.size() + content.size();
    PutDoubleWord(bytes, libdeflate_crc32(0, bytes.data() + bytes.size() - summed, summed));
}

Bytes HeaderContent(const PngLines& lines)
{
    Bytes content;
    PutDoubleWord(content, static_cast<size_t>(lines.Size().Width));
    PutDoubleWord(content, static_cast<size_t>(lines.Size().Height));
    content.insert(content.end(), { static_cast<uint8_t>(lines.Bits()), lines.ColorType(), 0, 0, 0 });
    return content;
}

Bytes PaletteContent(const PngLines& lines)
{
    Bytes content;
    for (const uint32_t color : lines.Palette()) {
        for (const unsigned shift : { 16U, 8U, 0U })
            content.push_back(static_cast<uint8_t>(color >> shift));
    }
    return content;
}

/// Everything before the compressed rows.
Bytes Start(const PngLines& lines, size_t compressedBytes)
{
    Bytes start(kSignature.begin(), kSignature.end());
    PutChunk(start, "IHDR", HeaderContent(lines));
    if (const Bytes palette = PaletteContent(lines); !palette.empty())
        PutChunk(start, "PLTE", palette);
    BeginChunk(start, compressedBytes, "IDAT");
    return start;
}

/// Everything after the compressed rows: their checksum, and the end chunk.
Bytes End(ByteView compressed)
{
    const uint32_t sum = libdeflate_crc32(libdeflate_crc32(0, "IDAT", 4), compressed.data(), compressed.size());
    Bytes end;
    PutDoubleWord(end, sum);
    PutChunk(end, "IEND", {});
    return end;
}

} // namespace

bool WritePng(const char* path, const TvImgContext& context, PictureSize size)
{
    Workspace space;
    const PngLines lines(context, size);
    const ByteView compressed = CompressedLines(lines, space);
    if (compressed.empty() || compressed.size() > kLargestChunk)
        return false;
    tvfile::NewFile file;
    return file.Begin(path).Ok() && file.Write(Start(lines, compressed.size())).Ok() && file.Write(compressed).Ok()
        && file.Write(End(compressed)).Ok() && file.Commit(true).Ok();
}

} // namespace tvimg
