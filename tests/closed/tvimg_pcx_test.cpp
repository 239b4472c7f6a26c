// Reading of PCX pictures: every format, and damaged files.
#include "tests/closed/imgfixture.h"

namespace {

class ImgPcx : public ImgTest { };

struct Form {
    uint8_t Bits;
    uint8_t Planes;
};

class ImgPcxForms : public ImgTest, public testing::WithParamInterface<Form> { };

std::string FormName(const testing::TestParamInfo<Form>& info)
{
    return "Bits" + std::to_string(info.param.Bits) + "Planes" + std::to_string(info.param.Planes);
}

std::vector<Form> AllForms()
{
    std::vector<Form> forms;
    for (const uint8_t bits : std::initializer_list<uint8_t>{ 1, 2, 4, 8 }) {
        for (const uint8_t planes : std::initializer_list<uint8_t>{ 1, 2, 3, 4 })
            forms.push_back({ bits, planes });
    }
    return forms;
}

std::vector<uint32_t> Colors(unsigned count, uint32_t factor)
{
    std::vector<uint32_t> colors;
    for (uint32_t i = 0; i < count; ++i)
        colors.push_back(0xff000000U | ((i + 1) * factor & 0xffffffU));
    return colors;
}

PcxFile FileOf(const Form& form, int width, int height)
{
    PcxFile file;
    file.Width = width;
    file.Height = height;
    file.Bits = form.Bits;
    file.Planes = form.Planes;
    file.HeaderColors = Colors(16, 0x102030);
    if (form.Bits * form.Planes > 4 && form.Bits * form.Planes <= 8)
        file.LargePalette = Colors(256, 0x35a7c1);
    return file;
}

constexpr uint32_t kBackground = 0xff2040a0;

/// Varied values with runs of equal ones.
uint32_t Value(int x, int y, const Form& form)
{
    const auto mix = static_cast<uint64_t>(x / 3 * 0x2f13 + y * 0x1207 + 1) * 0x9E3779B97F4A7C15U;
    const unsigned bits = form.Bits * form.Planes;
    return static_cast<uint32_t>(mix >> 32U) & static_cast<uint32_t>((uint64_t{ 1 } << bits) - 1);
}

uint32_t Mixed(uint32_t over, uint32_t under, uint32_t alpha)
{
    return (over * alpha + (under & 0xffU) * (255 - alpha) + 127) / 255;
}

uint32_t Expected(const PcxFile& file, uint32_t value)
{
    const unsigned bits = static_cast<unsigned>(file.Bits) * file.Planes;
    if (bits <= 4)
        return file.HeaderColors[value];
    if (bits <= 8)
        return file.LargePalette[value];
    const uint32_t full = (1U << file.Bits) - 1;
    const auto level = [&](unsigned plane) { return (value >> (plane * file.Bits) & full) * 255 / full; };
    const uint32_t blue = file.Planes > 2 ? level(2) : 0;
    const uint32_t alpha = file.Planes > 3 ? level(3) : 255;
    return 0xff000000U | Mixed(level(0), kBackground >> 16U, alpha) << 16U
        | Mixed(level(1), kBackground >> 8U, alpha) << 8U | Mixed(blue, kBackground, alpha);
}

uint32_t Grey(uint32_t level)
{
    return 0xff000000U | level * 0x010101U;
}

/// A picture of two rows of 64 bytes, from encoded bytes.
PcxFile TwoLinesOf64()
{
    PcxFile file = FileOf({ 8, 1 }, 64, 2);
    file.Version = 2;
    file.LargePalette.clear();
    return file;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Every, ImgPcxForms, testing::ValuesIn(AllForms()), &FormName);

TEST_P(ImgPcxForms, DecodesToItsColors)
{
    for (int width = 1; width <= 18; ++width) {
        for (const int filling : { 0, 1, 6 }) {
            PcxFile file = FileOf(GetParam(), width, 5);
            file.Filling = filling;
            const auto value = [&](int x, int y) { return Value(x, y, GetParam()); };
            const Picture expected = Picture::From(width, 5, [&](int x, int y) { return Expected(file, value(x, y)); });
            ASSERT_EQ(DecodePcx(file.With(value), kBackground), expected) << width << ", " << filling;
        }
    }
}

TEST_P(ImgPcxForms, DecodesPlainRowsToo)
{
    PcxFile file = FileOf(GetParam(), 11, 5);
    const auto value = [&](int x, int y) { return Value(x, y, GetParam()); };
    const Picture coded = DecodePcx(file.With(value), kBackground);
    file.Encoding = 0;
    EXPECT_EQ(DecodePcx(file.With(value), kBackground), coded);
    EXPECT_EQ(coded.Width, 11);
}

TEST_P(ImgPcxForms, RefusesAnyTruncation)
{
    for (const uint8_t encoding : std::initializer_list<uint8_t>{ 0, 1 }) {
        PcxFile form = FileOf(GetParam(), 7, 4);
        form.Encoding = encoding;
        const FileBytes file = form.With([](int x, int y) { return Value(x, y, GetParam()); });
        ASSERT_NE(DecodePcx(file).Width, 0);
        for (size_t bytes = 0; bytes < file.size(); ++bytes)
            ASSERT_EQ(DecodePcx(FileBytes(file.begin(), file.begin() + static_cast<ptrdiff_t>(bytes))).Width, 0)
                << bytes;
    }
}

TEST_F(ImgPcx, OldVersionsWithoutPaletteUseStandardColors)
{
    PcxFile file = FileOf({ 1, 4 }, 16, 1);
    const auto counting = [](int x, int) { return static_cast<uint32_t>(x); };
    const std::vector<uint32_t> standard{ 0xff000000, 0xff0000aa, 0xff00aa00, 0xff00aaaa, 0xffaa0000, 0xffaa00aa,
        0xffaa5500, 0xffaaaaaa, 0xff555555, 0xff5555ff, 0xff55ff55, 0xff55ffff, 0xffff5555, 0xffff55ff, 0xffffff55,
        0xffffffff };
    file.Version = 3; // the colours in its header are invalid
    EXPECT_EQ(DecodePcx(file.With(counting)).Pixels(), standard);
    file.Version = 0;
    file.HeaderColors.clear();
    EXPECT_EQ(DecodePcx(file.With(counting)).Pixels(), standard);
    file.HeaderColors = Colors(16, 0x102030);
    EXPECT_EQ(DecodePcx(file.With(counting)).Pixels(), file.HeaderColors);
}

TEST_F(ImgPcx, UnsetTwoColorPaletteIsBlackAndWhite)
{
    PcxFile file = FileOf({ 1, 1 }, 2, 1);
    const auto counting = [](int x, int) { return static_cast<uint32_t>(x); };
    const std::vector blackAndWhite{ 0xff000000U, 0xffffffffU };
    file.HeaderColors = { 0xff808080, 0xff808080 };
    EXPECT_EQ(DecodePcx(file.With(counting)).Pixels(), blackAndWhite);
    file.HeaderColors.clear();
    EXPECT_EQ(DecodePcx(file.With(counting)).Pixels(), blackAndWhite);
    file.HeaderColors = { 0xffff0000, 0xff0000ff };
    EXPECT_EQ(DecodePcx(file.With(counting)).Pixels(), file.HeaderColors);
    file.Version = 3;
    EXPECT_EQ(DecodePcx(file.With(counting)).Pixels(), blackAndWhite);
}

TEST_F(ImgPcx, GreyPictureWithoutPaletteIsGrey)
{
    PcxFile file = FileOf({ 8, 1 }, 3, 1);
    file.LargePalette.clear();
    file.PaletteInfo = 2;
    const FileBytes bytes = file.With([](int x, int) { return static_cast<uint32_t>(x) * 100U; });
    EXPECT_EQ(DecodePcx(bytes).Pixels(), (std::vector{ Grey(0), Grey(100), Grey(200) }));
}

TEST_F(ImgPcx, GreyPictureWithPaletteUsesIt)
{
    PcxFile file = FileOf({ 8, 1 }, 3, 1);
    file.PaletteInfo = 2;
    const FileBytes bytes = file.With([](int x, int) { return static_cast<uint32_t>(x); });
    EXPECT_EQ(DecodePcx(bytes).Pixels(), Colors(3, 0x35a7c1));
}

TEST_F(ImgPcx, GreyPictureMayContainPaletteMarker)
{
    PcxFile file = FileOf({ 8, 1 }, 1000, 1);
    file.LargePalette.clear();
    file.PaletteInfo = 2;
    const Picture picture = DecodePcx(file.With([](int, int) { return 12U; }));
    EXPECT_EQ(picture.Width, 1000);
    EXPECT_TRUE(picture.IsAll(Grey(12)));
}

TEST_F(ImgPcx, PaletteMayPrecedeOtherData)
{
    const PcxFile file = FileOf({ 8, 1 }, 3, 1);
    FileBytes bytes = file.With([](int x, int) { return static_cast<uint32_t>(x); });
    bytes.resize(bytes.size() + 100, 0x1a);
    EXPECT_EQ(DecodePcx(bytes).Pixels(), Colors(3, 0x35a7c1));
}

TEST_F(ImgPcx, PaletteMayFollowOtherData)
{
    const PcxFile file = FileOf({ 8, 1 }, 3, 1);
    EXPECT_EQ(DecodePcx(file.WithData({ 0, 1, 2, 0, 0, 0, 0 })).Pixels(), Colors(3, 0x35a7c1));
}

TEST_F(ImgPcx, OldVersionHasSixteenColorsAtMost)
{
    PcxFile file = FileOf({ 8, 1 }, 3, 1);
    file.Version = 2;
    file.LargePalette.clear();
    const auto upTo = [&](uint32_t last) {
        return DecodePcx(file.With([&](int x, int) { return x == 2 ? last : static_cast<uint32_t>(x); }));
    };
    EXPECT_EQ(upTo(15).At(2, 0), file.HeaderColors[15]);
    EXPECT_EQ(upTo(16).Width, 0);
}

TEST_F(ImgPcx, RefusesMissingPalette)
{
    PcxFile file = FileOf({ 8, 1 }, 3, 1);
    file.LargePalette.clear();
    EXPECT_EQ(DecodePcx(file.With([](int, int) { return 1U; })).Width, 0);
}

TEST_F(ImgPcx, PaletteIsNotReadAsPixels)
{
    PcxFile file = FileOf({ 8, 1 }, 400, 2);
    EXPECT_EQ(DecodePcx(file.WithData(FileBytes(800, 7))).Width, 400);
    EXPECT_EQ(DecodePcx(file.WithData(FileBytes(799, 7))).Width, 0);
}

TEST_F(ImgPcx, FourthPlaneOfZerosIsPadding)
{
    const PcxFile file = FileOf({ 8, 4 }, 2, 1);
    const FileBytes bytes = file.With([](int x, int) { return x == 0 ? 0x302010U : 0x605040U; });
    EXPECT_EQ(DecodePcx(bytes, kBackground).Pixels(), (std::vector{ 0xff102030U, 0xff405060U }));
}

TEST_F(ImgPcx, DecodesRuns)
{
    const Picture picture =
        DecodePcx(TwoLinesOf64().WithData({ 0xff, 3, 5, 0xc1, 9, 0xc0, 1, 0xc2, 2, 0xfc, 4, 0xc1, 7 }));
    ASSERT_EQ(picture.Width, 64);
    const std::vector<uint32_t> colors = TwoLinesOf64().HeaderColors;
    Picture expected(64, 2, colors[3]);
    expected.At(63, 0) = colors[5];
    for (int x = 0; x < 64; ++x)
        expected.At(x, 1) = x == 0 ? colors[9] : x < 3 ? colors[2] : x < 63 ? colors[4] : colors[7];
    EXPECT_EQ(picture, expected);
}

TEST_F(ImgPcx, RefusesRunAcrossEndOfRow)
{
    EXPECT_EQ(DecodePcx(TwoLinesOf64().WithData({ 0xff, 3, 0xff, 3, 0xc2, 3 })).Width, 0);
    EXPECT_EQ(DecodePcx(TwoLinesOf64().WithData({ 0xff, 3, 0xc1, 3, 0xff, 3, 0xc2, 3 })).Width, 0);
    EXPECT_EQ(DecodePcx(TwoLinesOf64().WithData({ 0xff, 3, 0xc1, 3, 0xff, 3, 0xc1, 3 })).Width, 64);
}

TEST_F(ImgPcx, AcceptsRunAcrossPlanesOfRow)
{
    PcxFile file = FileOf({ 8, 3 }, 4, 1);
    EXPECT_EQ(DecodePcx(file.WithData({ 0xc8, 0x10, 0xc4, 0x20 })).Pixels(), std::vector(4, 0xff101020U));
}

TEST_F(ImgPcx, RefusesRunWithoutValue)
{
    EXPECT_EQ(DecodePcx(TwoLinesOf64().WithData({ 0xff, 3, 0xc1, 3, 0xff, 3, 0xc1 })).Width, 0);
}

TEST_F(ImgPcx, PaintsNothingBeforePictureIsRead)
{
    Picture picture(64, 64, kBackground);
    const TvImgContext context = picture.Context();
    int32_t width = 0;
    int32_t height = 0;
    int32_t counter = 0;
    const FileBytes good = TwoLinesOf64().WithData({ 0xff, 3, 0xc1, 3, 0xff, 3, 0xc1, 3 });
    ASSERT_EQ(img.ImgPcxToMem(Store(good).c_str(), &width, &height), 0);
    EXPECT_NE(img.ImgPcxToMem(Path("missing").c_str(), &width, &height), 0);
    EXPECT_NE(img.ImgMemToDc(&context, 1, &counter), 0);
    ASSERT_EQ(img.ImgPcxToMem(Store(good).c_str(), &width, &height), 0);
    EXPECT_NE(img.ImgPcxToMem(Store(good).c_str(), nullptr, &height), 0);
    EXPECT_NE(img.ImgMemToDc(&context, 1, &counter), 0);
    EXPECT_TRUE(picture.IsAll(kBackground));
    EXPECT_EQ(counter, 0);
}

TEST_F(ImgPcx, TooSmallContextIsUnchanged)
{
    const FileBytes good = TwoLinesOf64().WithData({ 0xff, 3, 0xc1, 3, 0xff, 3, 0xc1, 3 });
    int32_t width = 0;
    int32_t height = 0;
    ASSERT_EQ(img.ImgPcxToMem(Store(good).c_str(), &width, &height), 0);
    Picture picture(64, 1, kBackground);
    const TvImgContext context = picture.Context();
    EXPECT_NE(img.ImgMemToDc(&context, 1, nullptr), 0);
    EXPECT_NE(img.ImgMemToDc(nullptr, 1, nullptr), 0);
    EXPECT_TRUE(picture.IsAll(kBackground));
}

TEST_F(ImgPcx, CanBePaintedTwice)
{
    const FileBytes good = TwoLinesOf64().WithData({ 0xff, 3, 0xc1, 3, 0xff, 3, 0xc1, 3 });
    int32_t width = 0;
    int32_t height = 0;
    ASSERT_EQ(img.ImgPcxToMem(Store(good).c_str(), &width, &height), 0);
    for (int time = 0; time < 2; ++time) {
        Picture picture(64, 2, kBackground);
        const TvImgContext context = picture.Context();
        EXPECT_EQ(img.ImgMemToDc(&context, 1, nullptr), 0);
        EXPECT_TRUE(picture.IsAll(TwoLinesOf64().HeaderColors[3]));
    }
    Picture other(64, 2);
    const TvImgContext context = other.Context();
    EXPECT_NE(img.ImgMemToDc(&context, 2, nullptr), 0); // there is only one mode
}
