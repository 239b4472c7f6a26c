// Writing of pictures: lossless, in the smallest format, and atomic.
#include "tests/closed/failingfilesystem.h"
#include "tests/closed/imgfixture.h"

using tvfile::FailingFileSystem;

namespace {

using Names = std::vector<std::string>;

class ImgWrite : public ImgTest {
protected:
    /// Writes the whole picture and returns the status.
    int16_t WritePng(Picture& picture, const std::string& name = "picture")
    {
        const TvImgContext context = picture.Context();
        return img.ImgDcToPng(Path(name).c_str(), &context, picture.Width, picture.Height);
    }
    int16_t WritePcx(Picture& picture, const std::string& name = "picture")
    {
        const TvImgContext context = picture.Context();
        counter = 0;
        return img.ImgDcToPcx(Path(name).c_str(), &context, picture.Width, picture.Height, 1, &counter);
    }

    /// Writes the picture to a file and reads it back.
    Picture ThroughPng(Picture picture)
    {
        EXPECT_EQ(WritePng(picture), 0);
        return DecodePng(Contents(Path()));
    }
    Picture ThroughPcx(Picture picture)
    {
        EXPECT_EQ(WritePcx(picture), 0);
        EXPECT_EQ(counter, picture.Height);
        return DecodePcx(Contents(Path()));
    }

    int32_t counter = 0;
};

struct FewColors {
    int Colors;
    int Bits;
};

std::string ColorsName(const testing::TestParamInfo<FewColors>& info)
{
    return std::to_string(info.param.Colors);
}

class ImgWriteColors : public ImgWrite, public testing::WithParamInterface<FewColors> { };

Picture Greys(int levels)
{
    return Picture::From(
        40, 20, [&](int x, int y) { return 0xff000000U | static_cast<uint32_t>((y * 40 + x) % levels) * 0x010101U; });
}

constexpr size_t kBitsAt = 24; // offset in a PNG file
constexpr size_t kColorTypeAt = 25;

} // namespace

INSTANTIATE_TEST_SUITE_P(Numbers, ImgWriteColors,
    testing::Values(FewColors{ 1, 1 }, FewColors{ 2, 1 }, FewColors{ 3, 2 }, FewColors{ 4, 2 }, FewColors{ 5, 4 },
        FewColors{ 16, 4 }, FewColors{ 17, 8 }, FewColors{ 255, 8 }, FewColors{ 256, 8 }),
    &ColorsName);

TEST_P(ImgWriteColors, UseFewestPaletteBits)
{
    for (const int width : { 23, 64 }) {
        const Picture picture = PictureOfColors(width, 17, GetParam().Colors);
        ASSERT_EQ(ThroughPng(picture), picture) << width;
        const FileBytes file = Contents(Path());
        EXPECT_EQ(file[kColorTypeAt], 3);
        EXPECT_EQ(file[kBitsAt], GetParam().Bits);
    }
}

TEST_F(ImgWrite, PngOfMoreColorsHas24Bits)
{
    const Picture picture = PictureOfColors(23, 17, 257);
    EXPECT_EQ(ThroughPng(picture), picture);
    EXPECT_EQ(Contents(Path())[kColorTypeAt], 2);
    EXPECT_EQ(Contents(Path())[kBitsAt], 8);
}

TEST_F(ImgWrite, PngOfManyGreysHasNoPalette)
{
    EXPECT_EQ(ThroughPng(Greys(256)), Greys(256));
    EXPECT_EQ(Contents(Path())[kColorTypeAt], 0);
    EXPECT_EQ(Contents(Path())[kBitsAt], 8);
    EXPECT_EQ(ThroughPng(Greys(16)), Greys(16));
    EXPECT_EQ(Contents(Path())[kColorTypeAt], 3);
}

TEST_F(ImgWrite, PicturesOfAnySizeRoundTrip)
{
    for (const auto& [width, height] : { std::pair(1, 1), std::pair(1, 50), std::pair(50, 1), std::pair(62, 3),
             std::pair(63, 3), std::pair(64, 3), std::pair(65, 3), std::pair(127, 5), std::pair(1281, 40) }) {
        const Picture picture = ColorfulPicture(width, height);
        ASSERT_EQ(ThroughPng(picture), picture) << width << " by " << height;
        ASSERT_EQ(ThroughPcx(picture), picture) << width << " by " << height;
    }
}

TEST_F(ImgWrite, EveryLevelRoundTrips)
{
    const Picture picture = Picture::From(256, 3, [](int x, int y) {
        return 0xff000000U | static_cast<uint32_t>(x) << static_cast<unsigned>(8 * y) | (y == 0 ? 0xc0c000U : 0xc0U);
    });
    EXPECT_EQ(ThroughPng(picture), picture);
    EXPECT_EQ(ThroughPcx(picture), picture);
}

TEST_F(ImgWrite, WritesUpperLeftOfContext)
{
    Picture large(30, 20, 0xff123456, 37);
    Picture expected(11, 7);
    const Picture source = ColorfulPicture(11, 7);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 11; ++x) {
            expected.At(x, y) = Picture(source).At(x, y);
            large.At(x, y) = expected.At(x, y);
        }
    }
    const TvImgContext context = large.Context();
    ASSERT_EQ(img.ImgDcToPng(Path().c_str(), &context, 11, 7), 0);
    EXPECT_EQ(DecodePng(Contents(Path())), expected);
    ASSERT_EQ(img.ImgDcToPcx(Path().c_str(), &context, 11, 7, 1, nullptr), 0);
    EXPECT_EQ(DecodePcx(Contents(Path())), expected);
}

TEST_F(ImgWrite, IgnoresHighestByteOfPixel)
{
    const Picture opaque = PictureOfColors(16, 16, 20);
    Picture bare = opaque;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            bare.At(x, y) &= x % 2 == 0 ? 0xffffffU : 0x80ffffffU;
    }
    EXPECT_EQ(ThroughPng(bare), opaque);
    EXPECT_EQ(ThroughPcx(bare), opaque);
}

TEST_F(ImgWrite, PcxHasExpectedHeader)
{
    Picture picture(5, 300, 0xff0a0b0c);
    ASSERT_EQ(WritePcx(picture), 0);
    const FileBytes file = Contents(Path());
    FileBytes expected(128);
    const FileBytes start{ 10, 5, 1, 8, 0, 0, 0, 0, 4, 0, 43, 1, 96, 0, 96, 0 };
    std::copy(start.begin(), start.end(), expected.begin());
    expected[65] = 3;
    expected[66] = 6;
    expected[68] = 1;
    EXPECT_EQ(FileBytes(file.begin(), file.begin() + 128), expected);
    const FileBytes line{ 0xc6, 0x0a, 0xc6, 0x0b, 0xc6, 0x0c };
    EXPECT_EQ(FileBytes(file.begin() + 128, file.begin() + 134), line);
    EXPECT_EQ(file.size(), 128U + 300U * 6U);
}

TEST_F(ImgWrite, PcxRunsEndWithPlaneAndAt63)
{
    Picture picture(64, 1, 0xff111111);
    picture.At(63, 0) = 0xffc01213;
    ASSERT_EQ(WritePcx(picture), 0);
    const FileBytes file = Contents(Path());
    const FileBytes lines{ 0xff, 0x11, 0xc1, 0xc0, 0xff, 0x11, 0x12, 0xff, 0x11, 0x13 };
    EXPECT_EQ(FileBytes(file.begin() + 128, file.end()), lines);
}

TEST_F(ImgWrite, RefusesInvalidArguments)
{
    Picture picture(10, 10);
    const TvImgContext context = picture.Context();
    const std::string path = Path();
    for (const auto& [width, height] : { std::pair(0, 10), std::pair(10, 0), std::pair(-1, 10), std::pair(11, 10),
             std::pair(10, 11), std::pair(32768, 1) }) {
        EXPECT_NE(img.ImgDcToPng(path.c_str(), &context, width, height), 0);
        EXPECT_NE(img.ImgDcToPcx(path.c_str(), &context, width, height, 1, nullptr), 0);
    }
    const TvImgContext withoutPixels{ nullptr, 10, 10, 10 };
    for (const TvImgContext* bad : { static_cast<const TvImgContext*>(nullptr), &withoutPixels }) {
        EXPECT_NE(img.ImgDcToPng(path.c_str(), bad, 10, 10), 0);
        EXPECT_NE(img.ImgDcToPcx(path.c_str(), bad, 10, 10, 1, nullptr), 0);
    }
    EXPECT_NE(img.ImgDcToPcx(path.c_str(), &context, 10, 10, 2, nullptr), 0);
    EXPECT_TRUE(FolderNames().empty());
}

TEST_F(ImgWrite, RefusesPathsThatAreNotFiles)
{
    Picture picture(10, 10);
    const TvImgContext context = picture.Context();
    for (const std::string& path : { std::string(), Path("."), Path("missing/picture") }) {
        EXPECT_NE(img.ImgDcToPng(path.c_str(), &context, 10, 10), 0) << path;
        EXPECT_NE(img.ImgDcToPcx(path.c_str(), &context, 10, 10, 1, nullptr), 0) << path;
    }
    EXPECT_NE(img.ImgDcToPng(nullptr, &context, 10, 10), 0);
    EXPECT_NE(img.ImgDcToPcx(nullptr, &context, 10, 10, 1, nullptr), 0);
}

TEST_F(ImgWrite, ReplacesAnOlderFile)
{
    Picture picture = ColorfulPicture(20, 20);
    (void)Store(FileBytes(10'000, 'x'));
    ASSERT_EQ(WritePng(picture), 0);
    EXPECT_EQ(DecodePng(Contents(Path())), picture);
    EXPECT_EQ(FolderNames(), (Names{ "picture" }));
}

TEST_F(ImgWrite, DiskFullInLargePictureLeavesNothing)
{
    Picture picture = ColorfulPicture(1500, 900); // more than one write in either format
    for (const size_t bytes : { size_t{ 1 } << 18U, size_t{ 1 } << 20U }) {
        FailingFileSystem disk;
        disk.BytesLeft = bytes;
        EXPECT_NE(WritePcx(picture), 0);
        EXPECT_LT(counter, 900);
    }
    FailingFileSystem disk;
    disk.BytesLeft = 1000; // enough for the header and some rows
    EXPECT_NE(WritePng(picture), 0);
    EXPECT_TRUE(FolderNames().empty());
}

TEST_F(ImgWrite, RefusesTooSmallTable)
{
    TvImgApi small{};
    small.Size = sizeof small - 1;
    EXPECT_NE(TvImgBind(&small), 0);
    EXPECT_NE(TvImgBind(nullptr), 0);
    EXPECT_EQ(small.ImgDcToPng, nullptr);
}
