#include "closed/tvimg/pngFastPath.h"

#include "closed/tvimg/pngHeader.h"
#include "closed/tvimg/workspace.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>

namespace tvimg {

namespace {

constexpr size_t kSignatureBytes = 8;
constexpr size_t kHeaderChunkBytes = 25;
constexpr size_t kChunkFrameBytes = 12; // length, name, checksum

constexpr size_t kMaxPaletteBytes = 768;

constexpr uint8_t kGrey = 0;
constexpr uint8_t kColors = 2;
constexpr uint8_t kIndexes = 3;

struct Chunk {
    std::string_view Name;
    ByteView Content;
    ByteView Summed; ///< name and content
    uint32_t Sum = 0;
};

/// Removes the first chunk from the rest of a file.
std::optional<Chunk> TakeChunk(ByteView& rest)
{
    if (rest.size() < kChunkFrameBytes)
        return std::nullopt;
    const size_t length = BigDoubleWord(rest, 0);
    if (length > rest.size() - kChunkFrameBytes)
        return std::nullopt;
    const ByteView summed = rest.subspan(4, 4 + length);
    Chunk chunk{ { reinterpret_cast<const char*>(summed.data()), 4 }, summed.subspan(4), summed,
        BigDoubleWord(rest, 8 + length) };
    rest = rest.subspan(kChunkFrameBytes + length);
    return chunk;
}

bool IsLetter(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

/// True for an ancillary chunk, which a reader may ignore; its name begins with a lower-case letter.
bool IsAncillary(const Chunk& chunk)
{
    return chunk.Name != "tRNS" && chunk.Name[0] >= 'a' && std::ranges::all_of(chunk.Name, &IsLetter);
}

struct Form {
    PictureSize Size;
    uint8_t ColorType = kColors;
    ByteView Palette;
    uint8_t* Compressed = nullptr; ///< space for all IDAT contents
    size_t CompressedBytes = 0;

    [[nodiscard]] size_t PixelBytes() const
    {
        return ColorType == kColors ? 3 : 1;
    }
    [[nodiscard]] size_t RowBytes() const
    {
        return static_cast<size_t>(Size.Width) * PixelBytes();
    }
};

/// Stores the contents of a chunk. False if it is damaged, or in the wrong order.
bool ApplyChunk(const Chunk& chunk, Form& form)
{
    if (libdeflate_crc32(0, chunk.Summed.data(), chunk.Summed.size()) != chunk.Sum)
        return false;
    if (chunk.Name == "IDAT") {
        std::ranges::copy(chunk.Content, form.Compressed + form.CompressedBytes);
        form.CompressedBytes += chunk.Content.size();
        return true;
    }
    const size_t bytes = chunk.Content.size();
    const bool isPalette = chunk.Name == "PLTE" && bytes > 0 && bytes <= kMaxPaletteBytes && bytes % 3 == 0;
    if (!isPalette || !form.Palette.empty() || form.CompressedBytes != 0)
        return false;
    form.Palette = chunk.Content;
    return true;
}

/// Reads the critical chunks, which must be in order and end with IEND.
bool TakeChunks(ByteView rest, Form& form)
{
    bool wasData = false;
    bool isOver = false;
    while (const std::optional<Chunk> chunk = TakeChunk(rest)) {
        const bool isData = chunk->Name == "IDAT";
        isOver |= wasData && !isData;
        wasData = isData;
        if (chunk->Name == "IEND")
            return libdeflate_crc32(0, chunk->Summed.data(), chunk->Summed.size()) == chunk->Sum;
        if (!IsAncillary(*chunk) && (isOver || !ApplyChunk(*chunk, form)))
            return false;
    }
    return false;
}

std::optional<Form> Parse(ByteView file, Workspace& space)
{
    const std::optional<PictureSize> size = PngSize(file, file.size());
    if (!size || file[24] != 8 || file[28] != 0)
        return std::nullopt;
    Form form{ *size, file[25], {}, space.Compressed(file.size()) };
    const bool isSupported = form.ColorType == kGrey || form.ColorType == kColors || form.ColorType == kIndexes;
    if (!isSupported || !TakeChunks(file.subspan(kSignatureBytes + kHeaderChunkBytes), form))
        return std::nullopt;
    return form;
}

bool Decompress(const Form& form, uint8_t* lines, size_t bytes)
{
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> decompressor(
        libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    size_t got = 0;
    return decompressor != nullptr
        && libdeflate_zlib_decompress(decompressor.get(), form.Compressed, form.CompressedBytes, lines, bytes, &got)
        == LIBDEFLATE_SUCCESS
        && got == bytes;
}

/// The Paeth predictor: of left, above and above left the one nearest to left + above - above left.
int PaethPredictor(int left, int above, int corner)
{
    const int toLeft = std::abs(above - corner);
    const int toAbove = std::abs(left - corner);
    const int toCorner = std::abs(above + left - 2 * corner);
    if (toLeft <= toAbove && toLeft <= toCorner)
        return left;
    return toAbove <= toCorner ? above : corner;
}

/// Reverses the filter of one row. `above` is the previous row, zeros for the first.
template <size_t kPixelBytes>
bool Unfilter(unsigned filter, uint8_t* row, const uint8_t* above, size_t bytes)
{
    std::array<int, kPixelBytes> left{};
    std::array<int, kPixelBytes> corner{};
    const auto eachPixel = [&](const auto& predict) {
        for (size_t i = 0; i < bytes; i += kPixelBytes) {
            for (size_t k = 0; k < kPixelBytes; ++k) {
                const int over = above[i + k];
                left[k] = (row[i + k] + predict(left[k], over, corner[k])) & 0xff;
                corner[k] = over;
                row[i + k] = static_cast<uint8_t>(left[k]);
            }
        }
    };
    switch (filter) {
    case 0:
        return true;
    case 1:
        eachPixel([](int before, int, int) { return before; });
        return true;
    case 2:
        for (size_t i = 0; i < bytes; ++i)
            row[i] = static_cast<uint8_t>(row[i] + above[i]);
        return true;
    case 3:
        eachPixel([](int before, int over, int) { return (before + over) / 2; });
        return true;
    case 4:
        eachPixel(&PaethPredictor);
        return true;
    default:
        return false;
    }
}

void PaintColors(const uint8_t* row, uint32_t* pixels, size_t width)
{
    for (size_t x = 0; x < width; ++x)
        pixels[x] = kOpaque | static_cast<uint32_t>(row[3 * x]) << 16U | static_cast<uint32_t>(row[3 * x + 1]) << 8U
            | row[3 * x + 2];
}

/// The colour of each byte value; 0 for values beyond the palette.
std::array<uint32_t, 256> ColorsOf(const Form& form)
{
    std::array<uint32_t, 256> colors{};
    for (size_t i = 0; i < colors.size(); ++i) {
        if (form.ColorType == kGrey)
            colors[i] = kOpaque | static_cast<uint32_t>(i) * 0x010101U;
        else if (3 * i < form.Palette.size())
            PaintColors(&form.Palette[3 * i], &colors[i], 1);
    }
    return colors;
}

/// False if a value has no colour.
bool PaintValues(const uint8_t* row, uint32_t* pixels, size_t width, const std::array<uint32_t, 256>& colors)
{
    uint32_t all = kOpaqueWhite;
    for (size_t x = 0; x < width; ++x) {
        pixels[x] = colors[row[x]];
        all &= pixels[x];
    }
    return (all & kOpaque) == kOpaque;
}

bool PaintLines(const Form& form, uint8_t* lines, const TvImgContext& context)
{
    const size_t rowBytes = form.RowBytes();
    const auto width = static_cast<size_t>(form.Size.Width);
    const std::array<uint32_t, 256> colors = ColorsOf(form);
    const Bytes zeros(rowBytes);
    const uint8_t* above = zeros.data();
    for (int64_t y = 0; y < form.Size.Height; ++y) {
        uint8_t* row = lines + static_cast<size_t>(y) * (rowBytes + 1) + 1;
        const bool isColors = form.ColorType == kColors;
        if (isColors ? !Unfilter<3>(row[-1], row, above, rowBytes) : !Unfilter<1>(row[-1], row, above, rowBytes))
            return false;
        if (isColors)
            PaintColors(row, Line(context, y), width);
        else if (!PaintValues(row, Line(context, y), width, colors))
            return false;
        above = row;
    }
    return true;
}

} // namespace

bool DecodePngFast(ByteView file, const TvImgContext& context)
{
    Workspace space;
    const std::optional<Form> form = Parse(file, space);
    if (!form || !IsRoomFor(&context, form->Size))
        return false;
    const size_t bytes = (form->RowBytes() + 1) * static_cast<size_t>(form->Size.Height);
    uint8_t* lines = space.Lines(bytes);
    return Decompress(*form, lines, bytes) && PaintLines(*form, lines, context);
}

} // namespace tvimg
