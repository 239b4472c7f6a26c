#include "tests/closed/imgfixture.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <span>

namespace {

void Append(FileBytes& bytes, const FileBytes& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

FileBytes BigDoubleWord(uint32_t value)
{
    return { static_cast<uint8_t>(value >> 24U), static_cast<uint8_t>(value >> 16U), static_cast<uint8_t>(value >> 8U),
        static_cast<uint8_t>(value) };
}

/// The pixels of one pass of an interlaced picture.
struct Pass {
    int X, Y, StepX, StepY;
};
constexpr std::array<Pass, 7> kPasses{ Pass{ 0, 0, 8, 8 }, Pass{ 4, 0, 8, 8 }, Pass{ 0, 4, 4, 8 }, Pass{ 2, 0, 4, 4 },
    Pass{ 0, 2, 2, 4 }, Pass{ 1, 0, 2, 2 }, Pass{ 0, 1, 1, 2 } };

unsigned Channels(uint8_t colorType)
{
    constexpr std::array<unsigned, 7> kChannels{ 1, 1, 3, 1, 2, 1, 4 };
    return kChannels.at(colorType);
}

/// Packs samples of any number of bits, highest bit first.
class BitWriter {
public:
    explicit BitWriter(FileBytes& bytes)
        : bytes_(bytes)
    {
    }
    void Put(unsigned value, unsigned bits)
    {
        while (bits-- > 0) {
            if (used_ == 0)
                bytes_.push_back(0);
            bytes_.back() = static_cast<uint8_t>(bytes_.back() | (value >> bits & 1U) << (7 - used_));
            used_ = (used_ + 1) % 8;
        }
    }

private:
    FileBytes& bytes_;
    unsigned used_ = 0;
};

/// The prediction of a byte from those to the left, above, and above left.
int Prediction(uint8_t filter, int left, int above, int corner)
{
    switch (filter) {
    case 1:
        return left;
    case 2:
        return above;
    case 3:
        return (left + above) / 2;
    case 4: {
        const int guess = left + above - corner;
        const int nearest = std::min({ std::abs(guess - left), std::abs(guess - above), std::abs(guess - corner) });
        if (std::abs(guess - left) == nearest)
            return left;
        return std::abs(guess - above) == nearest ? above : corner;
    }
    default:
        return 0;
    }
}

/// Appends a filtered row of a PNG.
void AppendLine(FileBytes& lines, uint8_t filter, const FileBytes& line, const FileBytes& above, size_t distance)
{
    lines.push_back(filter);
    for (size_t i = 0; i < line.size(); ++i) {
        const int left = i < distance ? 0 : line[i - distance];
        const int corner = i < distance || above.empty() ? 0 : above[i - distance];
        const int foretold = Prediction(filter, left, above.empty() ? 0 : above[i], corner);
        lines.push_back(static_cast<uint8_t>(line[i] - foretold));
    }
}

void PutWord(FileBytes& bytes, size_t at, int value)
{
    bytes[at] = static_cast<uint8_t>(value);
    bytes[at + 1] = static_cast<uint8_t>(value >> 8);
}

void PutColor(FileBytes& bytes, size_t at, uint32_t color)
{
    bytes[at] = static_cast<uint8_t>(color >> 16U);
    bytes[at + 1] = static_cast<uint8_t>(color >> 8U);
    bytes[at + 2] = static_cast<uint8_t>(color);
}

} // namespace

Picture::Picture(int width, int height, uint32_t color, int stride)
    : Width(width)
    , Height(height)
    , Stride(stride == 0 ? width : stride)
    , pixels_(static_cast<size_t>(Stride) * static_cast<size_t>(height), color)
{
}

Picture Picture::From(int width, int height, const std::function<uint32_t(int x, int y)>& color)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.At(x, y) = color(x, y);
    }
    return picture;
}

bool Picture::IsAll(uint32_t color) const
{
    return std::ranges::all_of(pixels_, [&](uint32_t pixel) { return pixel == color; });
}

Picture PictureOfColors(int width, int height, int colors)
{
    return Picture::From(width, height, [&](int x, int y) {
        const auto number = static_cast<uint32_t>((y * width + x) % colors);
        return 0xff000000U | (number * 0x010203U & 0xffffffU);
    });
}

Picture ColorfulPicture(int width, int height)
{
    return Picture::From(width, height, [](int x, int y) {
        const auto red = static_cast<uint32_t>(x * 7 + y * 3) & 0xffU;
        const auto green = static_cast<uint32_t>(x / 8 * 31 + y * 17) & 0xffU;
        const uint32_t blue = y % 3 == 0 ? 0xc0U : static_cast<uint32_t>(x * x + y) & 0xffU;
        return 0xff000000U | red << 16U | green << 8U | blue;
    });
}

ImgTest::ImgTest()
{
    img.Size = sizeof img;
    EXPECT_EQ(TvImgBind(&img), 0);
}

std::string ImgTest::Store(const FileBytes& bytes, const std::string& name) const
{
    FolderTest::Store(Path(name), bytes);
    return Path(name);
}

ScreenImageInfo ImgTest::Info(const FileBytes& bytes) const
{
    const ScreenImageInfo untouched{ -1, -1, -1 };
    ScreenImageInfo info = untouched;
    if (img.ImgGetFileInfo(Store(bytes).c_str(), &info) == 0)
        return info;
    EXPECT_EQ(info, untouched);
    return {};
}

Picture ImgTest::DecodePng(const FileBytes& bytes, uint32_t background) const
{
    const ScreenImageInfo info = Info(bytes);
    Picture picture(info.Width, info.Height, background);
    const TvImgContext context = picture.Context();
    if (info.Width != 0 && img.ImgPngToDc(Store(bytes).c_str(), &context) == 0)
        return picture;
    EXPECT_TRUE(picture.IsAll(background) || picture.IsAll(0xffffffff));
    return {};
}

Picture ImgTest::DecodePcx(const FileBytes& bytes, uint32_t background) const
{
    const ScreenImageInfo info = Info(bytes);
    int32_t width = -1;
    int32_t height = -1;
    if (info.Width == 0 || img.ImgPcxToMem(Store(bytes).c_str(), &width, &height) != 0)
        return {};
    EXPECT_EQ(width, info.Width);
    EXPECT_EQ(height, info.Height);
    Picture picture(width, height, background);
    const TvImgContext context = picture.Context();
    int32_t counter = 100;
    EXPECT_EQ(img.ImgMemToDc(&context, 1, &counter), 0);
    EXPECT_EQ(counter, 100 + height);
    return picture;
}

bool operator==(const ScreenImageInfo& left, const ScreenImageInfo& right)
{
    return left.Kind == right.Kind && left.Width == right.Width && left.Height == right.Height;
}

void PrintTo(const ScreenImageInfo& info, std::ostream* stream)
{
    *stream << "kind " << info.Kind << ", " << info.Width << " by " << info.Height;
}

FileBytes PngFile::Chunk(const std::string& name, const FileBytes& content)
{
    FileBytes chunk = BigDoubleWord(static_cast<uint32_t>(content.size()));
    chunk.insert(chunk.end(), name.begin(), name.end());
    Append(chunk, content);
    const uLong sum = ::crc32(0, chunk.data() + 4, static_cast<uInt>(chunk.size() - 4));
    Append(chunk, BigDoubleWord(static_cast<uint32_t>(sum)));
    return chunk;
}

FileBytes PngFile::With(const std::function<unsigned(int x, int y, unsigned channel)>& sample) const
{
    constexpr std::array<Pass, 1> kWhole{ Pass{ 0, 0, 1, 1 } };
    FileBytes lines;
    const size_t distance = (Bits * Channels(ColorType) + 7) / 8;
    for (const Pass& pass : Interlace != 0 ? std::span<const Pass>(kPasses) : std::span<const Pass>(kWhole)) {
        FileBytes above;
        for (int y = pass.Y; y < static_cast<int>(Height) && pass.X < static_cast<int>(Width); y += pass.StepY) {
            FileBytes line;
            BitWriter writer(line);
            for (int x = pass.X; x < static_cast<int>(Width); x += pass.StepX) {
                for (unsigned channel = 0; channel < Channels(ColorType); ++channel)
                    writer.Put(sample(x, y, channel), Bits);
            }
            AppendLine(lines, Filter, line, above, distance);
            above = line;
        }
    }
    return WithLines(lines);
}

FileBytes PngFile::WithLines(const FileBytes& lines) const
{
    FileBytes packed(::compressBound(lines.size()));
    uLongf length = packed.size();
    EXPECT_EQ(::compress(packed.data(), &length, lines.data(), lines.size()), Z_OK);
    packed.resize(length);

    FileBytes header = BigDoubleWord(Width);
    Append(header, BigDoubleWord(Height));
    Append(header, { Bits, ColorType, 0, 0, Interlace });
    FileBytes file{ 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };
    Append(file, Chunk("IHDR", header));
    Append(file, Extra);
    if (!Palette.empty())
        Append(file, Chunk("PLTE", Palette));
    if (!Transparency.empty())
        Append(file, Chunk("tRNS", Transparency));
    Append(file, Chunk("IDAT", packed));
    Append(file, Chunk("IEND", {}));
    return file;
}

FileBytes PcxFile::Header() const
{
    FileBytes header(128);
    header[0] = 10;
    header[1] = Version;
    header[2] = Encoding;
    header[3] = Bits;
    PutWord(header, 4, 3); // an origin other than 0
    PutWord(header, 6, 2);
    PutWord(header, 8, Width + 2);
    PutWord(header, 10, Height + 1);
    for (size_t i = 0; i < HeaderColors.size(); ++i)
        PutColor(header, 16 + 3 * i, HeaderColors[i]);
    header[65] = Planes;
    PutWord(header, 66, (Width * Bits + 7) / 8 + Filling);
    PutWord(header, 68, PaletteInfo);
    return header;
}

FileBytes PcxFile::With(const std::function<uint32_t(int x, int y)>& value) const
{
    FileBytes data;
    for (int y = 0; y < Height; ++y) {
        for (unsigned plane = 0; plane < Planes; ++plane) {
            FileBytes line;
            BitWriter writer(line);
            for (int x = 0; x < Width; ++x)
                writer.Put(value(x, y) >> (plane * Bits) & ((1U << Bits) - 1), Bits);
            line.resize(line.size() + static_cast<size_t>(Filling), 0x5a);
            for (const uint8_t byte : line) {
                if (Encoding == 1 && byte >= 0xc0)
                    data.push_back(0xc1);
                data.push_back(byte);
            }
        }
    }
    return WithData(data);
}

FileBytes PcxFile::WithData(const FileBytes& data) const
{
    FileBytes file = Header();
    Append(file, data);
    if (LargePalette.empty())
        return file;
    file.push_back(12);
    file.resize(file.size() + 768);
    for (size_t i = 0; i < LargePalette.size(); ++i)
        PutColor(file, file.size() - 768 + 3 * i, LargePalette[i]);
    return file;
}
