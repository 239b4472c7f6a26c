#include "closed/tvimg/pcxReader.h"

#include <algorithm>

namespace tvimg {

namespace {

constexpr size_t kHeaderBytes = 128;
constexpr uint8_t kManufacturer = 10;
constexpr size_t kPaletteBytes = 768;
constexpr uint8_t kPaletteMark = 12; // precedes the 256 colours
constexpr unsigned kVersionWithoutPalette = 3;
constexpr unsigned kVersionWith256Colours = 5;
constexpr uint16_t kGreyPicture = 2;

constexpr uint8_t kRunMark = 0xC0;
constexpr size_t kLongestRun = 63;

/// Larger files are not pictures.
constexpr size_t kMaxFileBytes = size_t{ 1 } << 30U;

/// The 16 colours of early display adapters, which old files rely on.
constexpr std::array<uint32_t, 16> kStandardPalette{ 0xff000000, 0xff0000aa, 0xff00aa00, 0xff00aaaa, 0xffaa0000,
    0xffaa00aa, 0xffaa5500, 0xffaaaaaa, 0xff555555, 0xff5555ff, 0xff55ff55, 0xff55ffff, 0xffff5555, 0xffff55ff,
    0xffffff55, 0xffffffff };

uint32_t ColorAt(ByteView bytes, size_t at)
{
    return kOpaque | static_cast<uint32_t>(bytes[at]) << 16U | static_cast<uint32_t>(bytes[at + 1]) << 8U
        | bytes[at + 2];
}

void SetHeaderPalette(ByteView head, PcxHeader& header)
{
    for (size_t i = 0; i < header.Palette.size(); ++i)
        header.Palette[i] = ColorAt(head, 16 + 3 * i);
    const bool isSet = std::ranges::any_of(header.Palette, [](uint32_t color) { return color != kOpaque; });
    header.HasColors = isSet && header.Version != kVersionWithoutPalette;
    if (!header.HasColors)
        header.Palette = kStandardPalette;
}

bool IsKnownForm(const PcxHeader& header)
{
    const bool isKnownVersion = header.Version != 1 && header.Version <= kVersionWith256Colours;
    const bool areKnownBits = header.Bits == 1 || header.Bits == 2 || header.Bits == 4 || header.Bits == 8;
    return isKnownVersion && areKnownBits && header.Planes >= 1 && header.Planes <= 4;
}

/// The fewest bytes that can encode rows of this length.
uint64_t FewestBytes(const PcxHeader& header)
{
    const uint64_t line = header.LineBytes();
    const uint64_t coded = header.IsRunLength ? (line + kLongestRun - 1) / kLongestRun * 2 : line;
    // A literal byte takes one byte, a run two.
    const uint64_t fewest = header.IsRunLength && line % kLongestRun == 1 ? coded - 1 : coded;
    return fewest * static_cast<uint64_t>(header.Size.Height);
}

/// Decodes one row from the front of `data`. False if the data ends, or a run crosses the end of the row.
bool TakeCodedLine(ByteView& data, Bytes& line)
{
    size_t filled = 0;
    size_t used = 0;
    while (filled < line.size()) {
        if (used == data.size())
            return false;
        uint8_t value = data[used++];
        if (value < kRunMark) {
            line[filled++] = value;
            continue;
        }
        const size_t count = value - kRunMark;
        if (used == data.size() || count > line.size() - filled)
            return false;
        value = data[used++];
        std::fill_n(line.begin() + static_cast<ptrdiff_t>(filled), count, value);
        filled += count;
    }
    data = data.subspan(used);
    return true;
}

bool TakePlainLine(ByteView& data, Bytes& line)
{
    if (data.size() < line.size())
        return false;
    std::copy_n(data.begin(), line.size(), line.begin());
    data = data.subspan(line.size());
    return true;
}

/// Decodes all rows from the front of `data` into the picture, without padding.
bool TakeLines(ByteView& data, PcxPicture& picture)
{
    const PcxHeader& header = picture.Header;
    const size_t usedBytes = header.UsedBytes();
    Bytes line(header.LineBytes());
    picture.Lines.resize(usedBytes * header.Planes * static_cast<size_t>(header.Size.Height));
    auto target = picture.Lines.begin();
    for (int64_t y = 0; y < header.Size.Height; ++y) {
        if (header.IsRunLength ? !TakeCodedLine(data, line) : !TakePlainLine(data, line))
            return false;
        for (size_t plane = 0; plane < header.Planes; ++plane)
            target = std::copy_n(line.begin() + static_cast<ptrdiff_t>(plane * header.PlaneBytes), usedBytes, target);
    }
    return true;
}

ByteView LineOf(const PcxPicture& picture, int64_t y)
{
    const size_t bytes = picture.Header.UsedBytes() * picture.Header.Planes;
    return ByteView(picture.Lines).subspan(static_cast<size_t>(y) * bytes, bytes);
}

/// The value of pixel `x` in one plane.
unsigned Sample(const PcxHeader& header, ByteView line, unsigned plane, int64_t x)
{
    const auto bit = static_cast<size_t>(x) * header.Bits;
    const uint8_t byte = line[plane * header.UsedBytes() + bit / 8];
    return byte >> (8 - header.Bits - bit % 8) & ((1U << header.Bits) - 1);
}

unsigned Index(const PcxHeader& header, ByteView line, int64_t x)
{
    unsigned index = 0;
    for (unsigned plane = 0; plane < header.Planes; ++plane)
        index |= Sample(header, line, plane, x) << (plane * header.Bits);
    return index;
}

unsigned LargestIndex(const PcxPicture& picture)
{
    unsigned largest = 0;
    for (int64_t y = 0; y < picture.Header.Size.Height; ++y) {
        const ByteView line = LineOf(picture, y);
        for (int64_t x = 0; x < picture.Header.Size.Width; ++x)
            largest = std::max(largest, Index(picture.Header, line, x));
    }
    return largest;
}

/// The 256 colours after the rows: at the end of `rest`, or at its start if other data follows.
std::optional<ByteView> LargePalette(ByteView rest)
{
    constexpr size_t kMarkedBytes = 1 + kPaletteBytes;
    if (rest.size() < kMarkedBytes)
        return std::nullopt;
    for (const size_t mark : { rest.size() - kMarkedBytes, size_t{ 0 } }) {
        if (rest[mark] == kPaletteMark)
            return rest.subspan(mark + 1, kPaletteBytes);
    }
    return std::nullopt;
}

/// Sets the palette of a picture of more than 16 colours; false if an index has no colour.
bool SetLargePalette(ByteView rest, PcxPicture& picture)
{
    const PcxHeader& header = picture.Header;
    const std::optional<ByteView> colors = LargePalette(rest);
    for (unsigned i = 0; i < picture.Palette.size(); ++i) {
        if (colors)
            picture.Palette[i] = ColorAt(*colors, size_t{ 3 } * i);
        else
            picture.Palette[i] = header.IsGrey ? kOpaque | i * 0x010101U : header.Palette[i % header.Palette.size()];
    }
    if (colors || header.IsGrey)
        return true;
    return header.Version < kVersionWith256Colours && LargestIndex(picture) < header.Palette.size();
}

/// Black and white if both colours are the same: the palette is often unset, or set to one colour by some writers.
void SetTwoColors(PcxPicture& picture)
{
    const bool areTwo = picture.Header.HasColors && picture.Header.Palette[0] != picture.Header.Palette[1];
    picture.Palette[0] = areTwo ? picture.Header.Palette[0] : kOpaque;
    picture.Palette[1] = areTwo ? picture.Header.Palette[1] : kOpaqueWhite;
}

/// `rest` is the data after the rows.
bool SetPalette(ByteView rest, PcxPicture& picture)
{
    const unsigned bits = picture.Header.Bits * picture.Header.Planes;
    if (bits > 4)
        return SetLargePalette(rest, picture);
    std::ranges::copy(picture.Header.Palette, picture.Palette.begin());
    if (bits == 1)
        SetTwoColors(picture);
    return true;
}

/// A fourth plane of zeros is padding, not alpha: a fully transparent picture is never intended.
bool HasAlpha(const PcxPicture& picture)
{
    if (picture.Header.Planes != 4 || picture.Header.IsIndexed())
        return false;
    const size_t usedBytes = picture.Header.UsedBytes();
    for (int64_t y = 0; y < picture.Header.Size.Height; ++y) {
        if (std::ranges::any_of(LineOf(picture, y).last(usedBytes), [](uint8_t byte) { return byte != 0; }))
            return true;
    }
    return false;
}

/// The 8-bit level of a pixel in one of the colour planes.
uint32_t Level(const PcxHeader& header, ByteView line, unsigned plane, int64_t x)
{
    return Sample(header, line, plane, x) * 255U / ((1U << header.Bits) - 1);
}

void PaintColors(const PcxPicture& picture, ByteView line, uint32_t* pixels)
{
    const PcxHeader& header = picture.Header;
    for (int64_t x = 0; x < header.Size.Width; ++x) {
        const uint32_t blue = header.Planes > 2 ? Level(header, line, 2, x) : 0;
        const uint32_t color = Level(header, line, 0, x) << 16U | Level(header, line, 1, x) << 8U | blue;
        pixels[x] = picture.HasAlpha ? Blend(color | Level(header, line, 3, x) << 24U, pixels[x]) : color | kOpaque;
    }
}

/// Fast path for the usual format of full-colour files.
void PaintBytes(const PcxPicture& picture, ByteView line, uint32_t* pixels)
{
    const auto width = static_cast<size_t>(picture.Header.Size.Width);
    const uint8_t* red = line.data();
    const uint8_t* green = red + width;
    const uint8_t* blue = green + width;
    for (size_t x = 0; x < width; ++x)
        pixels[x] = kOpaque | static_cast<uint32_t>(red[x]) << 16U | static_cast<uint32_t>(green[x]) << 8U | blue[x];
}

} // namespace

std::optional<PcxHeader> ParsePcxHeader(ByteView head, uint64_t fileBytes)
{
    if (head.size() < kHeaderBytes || fileBytes < head.size() || head[0] != kManufacturer || head[2] > 1)
        return std::nullopt;
    PcxHeader header;
    // First to last column and row, inclusive; some writers use negative origins.
    header.Size = { static_cast<uint16_t>(Word(head, 8) - Word(head, 4)) + 1,
        static_cast<uint16_t>(Word(head, 10) - Word(head, 6)) + 1 };
    header.Version = head[1];
    header.IsRunLength = head[2] == 1;
    header.Bits = head[3];
    header.Planes = head[65];
    header.PlaneBytes = Word(head, 66);
    header.IsGrey = Word(head, 68) == kGreyPicture;
    SetHeaderPalette(head, header);
    if (!IsAllowed(header.Size) || !IsKnownForm(header) || header.PlaneBytes < header.UsedBytes()
        || FewestBytes(header) > fileBytes - kHeaderBytes)
        return std::nullopt;
    return header;
}

std::optional<PcxPicture> DecodePcx(ByteView file)
{
    const std::optional<PcxHeader> header = ParsePcxHeader(file, file.size());
    if (!header)
        return std::nullopt;
    PcxPicture picture;
    picture.Header = *header;
    ByteView rest = file.subspan(kHeaderBytes);
    if (!TakeLines(rest, picture) || (header->IsIndexed() && !SetPalette(rest, picture)))
        return std::nullopt;
    picture.HasAlpha = HasAlpha(picture);
    return picture;
}

std::optional<PcxPicture> ReadPcx(const char* path)
{
    Bytes file;
    if (path == nullptr || tvfile::ReadWholeFile(path, kMaxFileBytes, file) != 0)
        return std::nullopt;
    return DecodePcx(file);
}

void PaintPcxLine(const PcxPicture& picture, int64_t y, uint32_t* pixels)
{
    const PcxHeader& header = picture.Header;
    const ByteView line = LineOf(picture, y);
    if (header.Bits == 8 && header.Planes == 3) {
        PaintBytes(picture, line, pixels);
    } else if (!header.IsIndexed()) {
        PaintColors(picture, line, pixels);
    } else if (header.Bits == 8) {
        std::ranges::transform(line, pixels, [&](uint8_t index) { return picture.Palette[index]; });
    } else {
        for (int64_t x = 0; x < header.Size.Width; ++x)
            pixels[x] = picture.Palette[Index(header, line, x)];
    }
}

} // namespace tvimg
