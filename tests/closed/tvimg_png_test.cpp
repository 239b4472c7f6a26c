// Reading of PNG pictures: every format, and damaged files.
#include "tests/closed/imgfixture.h"

#include <algorithm>

namespace {

class ImgPng : public ImgTest { };

struct Form {
    uint8_t ColorType;
    uint8_t Bits;
    uint8_t Interlace;
};

/// Every colour type and bit depth, interlaced and not.
class ImgPngForms : public ImgTest, public testing::WithParamInterface<Form> { };

std::vector<Form> AllForms()
{
    constexpr std::pair<uint8_t, uint8_t> kTypesAndBits[] = { { 0, 1 }, { 0, 2 }, { 0, 4 }, { 0, 8 }, { 0, 16 },
        { 2, 8 }, { 2, 16 }, { 3, 1 }, { 3, 2 }, { 3, 4 }, { 3, 8 }, { 4, 8 }, { 4, 16 }, { 6, 8 }, { 6, 16 } };
    std::vector<Form> forms;
    for (const auto& [type, bits] : kTypesAndBits) {
        forms.push_back({ type, bits, 0 });
        forms.push_back({ type, bits, 1 });
    }
    return forms;
}

std::string FormName(const testing::TestParamInfo<Form>& info)
{
    return "Type" + std::to_string(info.param.ColorType) + "Bits" + std::to_string(info.param.Bits)
        + (info.param.Interlace != 0 ? "Interlaced" : "");
}

uint32_t PaletteColor(unsigned index)
{
    return 0xff000000U | (index * 0x35a7c1U & 0xffffffU);
}

FileBytes PaletteBytes(unsigned count)
{
    FileBytes bytes;
    for (unsigned i = 0; i < count; ++i) {
        for (const unsigned shift : { 16U, 8U, 0U })
            bytes.push_back(static_cast<uint8_t>(PaletteColor(i) >> shift));
    }
    return bytes;
}

/// 16 bits to 8, to nearest.
uint32_t Level(unsigned sample, unsigned bits)
{
    const unsigned full = (1U << bits) - 1;
    return (sample * 255U + full / 2) / full;
}

/// The exact blend of two levels, rounded to nearest.
uint32_t Mixed(uint32_t over, uint32_t under, uint32_t alpha)
{
    return (over * alpha + under * (255 - alpha) + 127) / 255;
}

uint32_t Blend(uint32_t red, uint32_t green, uint32_t blue, uint32_t alpha, uint32_t under)
{
    return 0xff000000U | Mixed(red, under >> 16U & 0xffU, alpha) << 16U | Mixed(green, under >> 8U & 0xffU, alpha) << 8U
        | Mixed(blue, under & 0xffU, alpha);
}

constexpr uint32_t kBackground = 0xff2040a0;

/// Varied samples; alpha is often opaque or transparent.
unsigned Sample(int x, int y, unsigned channel, unsigned bits)
{
    const auto value = static_cast<unsigned>(x * 0x2f13 + y * 0x1207 + static_cast<int>(channel) * 0x5a71);
    return value % 7 == 0 ? (1U << bits) - 1 : value & ((1U << bits) - 1);
}

uint32_t Expected(const Form& form, const std::function<unsigned(unsigned channel)>& sample)
{
    const auto level = [&](unsigned channel) { return Level(sample(channel), form.Bits); };
    switch (form.ColorType) {
    case 0:
        return Blend(level(0), level(0), level(0), 255, 0);
    case 2:
        return Blend(level(0), level(1), level(2), 255, 0);
    case 3:
        return PaletteColor(sample(0));
    case 4:
        return Blend(level(0), level(0), level(0), level(1), kBackground);
    default:
        return Blend(level(0), level(1), level(2), level(3), kBackground);
    }
}

PngFile FileOf(const Form& form, int width, int height)
{
    PngFile file;
    file.Width = static_cast<uint32_t>(width);
    file.Height = static_cast<uint32_t>(height);
    file.Bits = form.Bits;
    file.ColorType = form.ColorType;
    file.Interlace = form.Interlace;
    if (form.ColorType == 3)
        file.Palette = PaletteBytes(1U << form.Bits);
    return file;
}

FileBytes SmallFile(const Form& form)
{
    return FileOf(form, 9, 6).With([&](int x, int y, unsigned channel) { return Sample(x, y, channel, form.Bits); });
}

/// A file of one row of three pixels.
PngFile ThreePixels(uint8_t colorType, uint8_t bits, const FileBytes& transparency)
{
    PngFile file = FileOf({ colorType, bits, 0 }, 3, 1);
    file.Transparency = transparency;
    return file;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Every, ImgPngForms, testing::ValuesIn(AllForms()), &FormName);

TEST_P(ImgPngForms, DecodesToItsColors)
{
    for (const int width : { 1, 2, 3, 5, 8, 13, 33 }) {
        const auto sample = [&](int x, int y, unsigned channel) { return Sample(x, y, channel, GetParam().Bits); };
        const Picture expected = Picture::From(width, 11, [&](int x, int y) {
            return Expected(GetParam(), [&](unsigned channel) { return sample(x, y, channel); });
        });
        PngFile file = FileOf(GetParam(), width, 11);
        for (file.Filter = 0; file.Filter < 5; ++file.Filter)
            ASSERT_EQ(DecodePng(file.With(sample), kBackground), expected)
                << width << ", filter " << int{ file.Filter };
    }
}

TEST_P(ImgPngForms, RefusesInvalidRows)
{
    PngFile file = FileOf(GetParam(), 9, 6);
    file.Filter = 5;
    const auto sample = [&](int x, int y, unsigned channel) { return Sample(x, y, channel, GetParam().Bits); };
    EXPECT_EQ(DecodePng(file.With(sample)).Width, 0);
    EXPECT_EQ(DecodePng(SmallFile(GetParam())).Width, 9); // leaves rows in memory that must not replace missing ones
    EXPECT_EQ(DecodePng(file.WithLines({})).Width, 0);
    EXPECT_EQ(DecodePng(file.WithLines(FileBytes(9))).Width, 0);
}

TEST_P(ImgPngForms, RefusesAnyTruncation)
{
    const FileBytes file = SmallFile(GetParam());
    ASSERT_NE(DecodePng(file).Width, 0);
    for (size_t bytes = 0; bytes < file.size(); ++bytes)
        ASSERT_EQ(DecodePng(FileBytes(file.begin(), file.begin() + static_cast<ptrdiff_t>(bytes))).Width, 0) << bytes;
}

TEST_P(ImgPngForms, RefusesAnyDamage)
{
    const FileBytes file = SmallFile(GetParam());
    for (size_t at = 0; at < file.size(); ++at) {
        FileBytes damaged = file;
        damaged[at] ^= 0x10U;
        ASSERT_EQ(DecodePng(damaged, kBackground).Width, 0) << at;
    }
}

TEST_F(ImgPng, TransparentColorShowsContext)
{
    const auto rising = [](int x, int, unsigned) { return static_cast<unsigned>(x); };
    const FileBytes grey = ThreePixels(0, 8, { 0, 1 }).With(rising);
    EXPECT_EQ(DecodePng(grey, kBackground).Pixels(), (std::vector{ 0xff000000U, kBackground, 0xff020202U }));
    const FileBytes color = ThreePixels(2, 8, { 0, 2, 0, 2, 0, 2 }).With(rising);
    EXPECT_EQ(DecodePng(color, kBackground).Pixels(), (std::vector{ 0xff000000U, 0xff010101U, kBackground }));
    const FileBytes fewBits = ThreePixels(0, 2, { 0, 2 }).With(rising);
    EXPECT_EQ(DecodePng(fewBits, kBackground).Pixels(), (std::vector{ 0xff000000U, 0xff555555U, kBackground }));
}

TEST_F(ImgPng, TransparentColorOf16BitsMatchesExactly)
{
    const auto near = [](int x, int, unsigned) { return 0x7700U + static_cast<unsigned>(x); };
    const FileBytes file = ThreePixels(0, 16, { 0x77, 0x01 }).With(near);
    EXPECT_EQ(DecodePng(file, kBackground).Pixels(), (std::vector{ 0xff777777U, kBackground, 0xff777777U }));
}

TEST_F(ImgPng, TransparentPaletteEntriesShowContext)
{
    const FileBytes file =
        ThreePixels(3, 8, { 0, 128 }).With([](int x, int, unsigned) { return static_cast<unsigned>(x); });
    const uint32_t half = Blend(0x35, 0xa7, 0xc1, 128, kBackground);
    EXPECT_EQ(DecodePng(file, kBackground).Pixels(), (std::vector{ kBackground, half, PaletteColor(2) }));
}

TEST_F(ImgPng, RefusesIndexWithoutColor)
{
    for (const uint8_t interlace : std::initializer_list<uint8_t>{ 0, 1 }) {
        PngFile file = FileOf({ 3, 8, interlace }, 5, 5);
        file.Palette = PaletteBytes(24);
        const auto counting = [](int x, int y, unsigned) { return static_cast<unsigned>(5 * y + x); };
        EXPECT_EQ(DecodePng(file.With(counting)).Width, 0);
        file.Palette = PaletteBytes(25);
        EXPECT_EQ(DecodePng(file.With(counting)).Width, 5);
    }
}

TEST_F(ImgPng, RefusesMissingPalette)
{
    PngFile file = FileOf({ 3, 8, 0 }, 3, 3);
    file.Palette.clear();
    EXPECT_EQ(DecodePng(file.With([](int, int, unsigned) { return 0U; })).Width, 0);
}

TEST_F(ImgPng, IgnoresAncillaryChunks)
{
    PngFile file = FileOf({ 2, 8, 0 }, 4, 4);
    const auto sample = [](int x, int y, unsigned channel) { return Sample(x, y, channel, 8); };
    const Picture plain = DecodePng(file.With(sample));
    // A gamma that would change the colours, an invalid compressed text, a private chunk, a wrong checksum.
    for (const FileBytes& chunk : { PngFile::Chunk("gAMA", { 0, 1, 0x86, 0xa0 }),
             PngFile::Chunk("zTXt", { 'k', 0, 0, 0x78, 0x9c, 0xff, 0xff, 0xff }),
             PngFile::Chunk("xxXx", { 1, 2, 3 }) }) {
        file.Extra = chunk;
        EXPECT_EQ(DecodePng(file.With(sample)), plain);
        file.Extra.back() ^= 1U;
        EXPECT_EQ(DecodePng(file.With(sample)), plain);
    }
}

TEST_F(ImgPng, PixelsMayBeSplitIntoChunks)
{
    const PngFile form = FileOf({ 2, 8, 0 }, 9, 6);
    const auto sample = [](int x, int y, unsigned channel) { return Sample(x, y, channel, 8); };
    const FileBytes whole = form.With(sample);
    // Everything but signature, header and end is one chunk of pixels.
    const FileBytes pixels(whole.begin() + 33 + 8, whole.end() - 12 - 4);
    const auto inPieces = [&](const FileBytes& between) {
        FileBytes file(whole.begin(), whole.begin() + 33);
        for (size_t at = 0; at < pixels.size(); at += 7) {
            const FileBytes chunk = PngFile::Chunk("IDAT",
                FileBytes(pixels.begin() + static_cast<ptrdiff_t>(at),
                    pixels.begin() + static_cast<ptrdiff_t>(std::min(at + 7, pixels.size()))));
            file.insert(file.end(), chunk.begin(), chunk.end());
            file.insert(file.end(), between.begin(), between.end());
        }
        file.insert(file.end(), whole.end() - 12, whole.end());
        return file;
    };
    EXPECT_EQ(DecodePng(inPieces({})), DecodePng(whole));
    EXPECT_EQ(DecodePng(inPieces(PngFile::Chunk("tEXt", { 'k', 0, 'v' }))).Width, 0); // they must be consecutive
}

TEST_F(ImgPng, RefusesUnknownCriticalChunk)
{
    PngFile file = FileOf({ 2, 8, 0 }, 4, 4);
    file.Extra = PngFile::Chunk("ABCD", { 1 });
    EXPECT_EQ(DecodePng(file.With([](int, int, unsigned) { return 0U; })).Width, 0);
}

TEST_F(ImgPng, PaintsNothingOutsidePicture)
{
    const std::string path = Store(SmallFile({ 6, 8, 1 }));
    Picture picture(12, 7, kBackground, 20);
    const TvImgContext context = picture.Context();
    ASSERT_EQ(img.ImgPngToDc(path.c_str(), &context), 0);
    for (int y = 0; y < 7; ++y) {
        for (int x = y < 6 ? 9 : 0; x < 20; ++x)
            ASSERT_EQ(picture.At(x, y), kBackground) << x << ", " << y;
    }
}

TEST_F(ImgPng, TooSmallContextIsUnchanged)
{
    const std::string path = Store(SmallFile({ 2, 8, 0 }));
    for (const auto& [width, height] : { std::pair(8, 6), std::pair(9, 5) }) {
        Picture picture(width, height, kBackground);
        const TvImgContext context = picture.Context();
        EXPECT_NE(img.ImgPngToDc(path.c_str(), &context), 0);
        EXPECT_TRUE(picture.IsAll(kBackground));
    }
    EXPECT_NE(img.ImgPngToDc(path.c_str(), nullptr), 0);
}

TEST_F(ImgPng, RefusesMissingFile)
{
    Picture picture(1, 1);
    const TvImgContext context = picture.Context();
    EXPECT_NE(img.ImgPngToDc(Path("missing").c_str(), &context), 0);
    EXPECT_NE(img.ImgPngToDc(nullptr, &context), 0);
}
