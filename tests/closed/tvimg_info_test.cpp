// Format and size of the picture in a file.
#include "tests/closed/imgfixture.h"

#include <filesystem>

namespace {

class ImgInfo : public ImgTest {
protected:
    /// Expects that every truncation of the file up to `headerBytes` is refused.
    void ExpectNoShorterHeader(const FileBytes& file, size_t headerBytes)
    {
        ASSERT_TRUE(HasInfo(file));
        for (size_t bytes = 0; bytes < headerBytes; ++bytes)
            EXPECT_FALSE(HasInfo(FileBytes(file.begin(), file.begin() + static_cast<ptrdiff_t>(bytes)))) << bytes;
    }
};

void PutWord(FileBytes& bytes, size_t at, uint32_t value)
{
    bytes[at] = static_cast<uint8_t>(value);
    bytes[at + 1] = static_cast<uint8_t>(value >> 8U);
}

void PutDoubleWord(FileBytes& bytes, size_t at, uint32_t value)
{
    PutWord(bytes, at, value & 0xffff);
    PutWord(bytes, at + 2, value >> 16U);
}

struct BitmapFile {
    int Width = 5;
    int Height = 3;
    uint32_t HeaderBytes = 40;
    uint32_t BitCount = 24;
    uint32_t Planes = 1;
    uint32_t Compression = 0;
    size_t PixelBytes = 16 * 2 + 15; ///< 5 by 3 pixels of 24 bits, without padding in the last row

    [[nodiscard]] FileBytes Bytes() const
    {
        const uint32_t offset = 14 + HeaderBytes;
        FileBytes file(offset + PixelBytes);
        file[0] = 'B';
        file[1] = 'M';
        PutDoubleWord(file, 10, offset);
        PutDoubleWord(file, 14, HeaderBytes);
        if (HeaderBytes == 12) {
            PutWord(file, 18, static_cast<uint32_t>(Width));
            PutWord(file, 20, static_cast<uint32_t>(Height));
            PutWord(file, 22, Planes);
            PutWord(file, 24, BitCount);
            return file;
        }
        PutDoubleWord(file, 18, static_cast<uint32_t>(Width));
        PutDoubleWord(file, 22, static_cast<uint32_t>(Height));
        PutWord(file, 26, Planes);
        PutWord(file, 28, BitCount);
        PutDoubleWord(file, 30, Compression);
        return file;
    }
};

struct Box {
    int Left = 0, Top = 0, Right = 640, Bottom = 480;
};

FileBytes MetafileHeader()
{
    FileBytes header(18);
    PutWord(header, 0, 1);
    PutWord(header, 2, 9);
    PutWord(header, 4, 0x0300);
    return header;
}

FileBytes PlaceableFile(const Box& box, uint32_t unitsPerInch = 96)
{
    FileBytes file(22);
    PutDoubleWord(file, 0, 0x9AC6CDD7);
    PutWord(file, 6, static_cast<uint32_t>(box.Left));
    PutWord(file, 8, static_cast<uint32_t>(box.Top));
    PutWord(file, 10, static_cast<uint32_t>(box.Right));
    PutWord(file, 12, static_cast<uint32_t>(box.Bottom));
    PutWord(file, 14, unitsPerInch);
    const FileBytes header = MetafileHeader();
    file.insert(file.end(), header.begin(), header.end());
    return file;
}

/// Appends a record with the function and its 16-bit parameters.
void AddRecord(FileBytes& file, uint32_t function, const std::vector<int>& parameters)
{
    const size_t at = file.size();
    file.resize(at + 6 + 2 * parameters.size());
    PutDoubleWord(file, at, static_cast<uint32_t>(3 + parameters.size()));
    PutWord(file, at + 4, function);
    for (size_t i = 0; i < parameters.size(); ++i)
        PutWord(file, at + 6 + 2 * i, static_cast<uint32_t>(parameters[i]));
}

constexpr uint32_t kEnd = 0;
constexpr uint32_t kSetMapMode = 0x0103;
constexpr uint32_t kSetWindowExtent = 0x020C;

/// A metafile without the placeable header.
FileBytes BareMetafile(int mapMode, int width, int height)
{
    FileBytes file = MetafileHeader();
    AddRecord(file, kSetMapMode, { mapMode });
    AddRecord(file, kSetWindowExtent, { height, width });
    AddRecord(file, kEnd, {});
    return file;
}

unsigned Zero(int, int, unsigned)
{
    return 0;
}

FileBytes PngOfSize(uint32_t width, uint32_t height)
{
    PngFile file;
    file.Bits = 1;
    file.ColorType = 0;
    const FileBytes small = file.With(&Zero);
    FileBytes header{ static_cast<uint8_t>(width >> 24U), static_cast<uint8_t>(width >> 16U),
        static_cast<uint8_t>(width >> 8U), static_cast<uint8_t>(width), static_cast<uint8_t>(height >> 24U),
        static_cast<uint8_t>(height >> 16U), static_cast<uint8_t>(height >> 8U), static_cast<uint8_t>(height), 1, 0, 0,
        0, 0 };
    const FileBytes chunk = PngFile::Chunk("IHDR", header);
    FileBytes result(small.begin(), small.begin() + 8);
    result.insert(result.end(), chunk.begin(), chunk.end());
    result.insert(result.end(), small.begin() + 33, small.end());
    return result;
}

constexpr size_t kMuch = size_t{ 1 } << 18U;

} // namespace

TEST_F(ImgInfo, GivesSizeOfPng)
{
    PngFile file;
    file.Width = 17;
    file.Height = 9;
    EXPECT_EQ(Info(file.With(&Zero)), (ScreenImageInfo{ 3, 17, 9 }));
}

TEST_F(ImgInfo, GivesSizeOfPcx)
{
    PcxFile file;
    file.Width = 13;
    file.Height = 4;
    file.Version = 0;
    EXPECT_EQ(Info(file.With([](int, int) { return 0U; })), (ScreenImageInfo{ 2, 13, 4 }));
}

TEST_F(ImgInfo, GivesSizeOfEveryFormOfBitmap)
{
    for (const uint32_t headerBytes : { 12U, 40U, 52U, 56U, 64U, 108U, 124U }) {
        BitmapFile file;
        file.HeaderBytes = headerBytes;
        EXPECT_EQ(Info(file.Bytes()), (ScreenImageInfo{ 1, 5, 3 })) << headerBytes;
    }
}

TEST_F(ImgInfo, GivesSizeOfTopDownBitmap)
{
    BitmapFile file;
    file.Height = -3;
    EXPECT_EQ(Info(file.Bytes()), (ScreenImageInfo{ 1, 5, 3 }));
}

TEST_F(ImgInfo, AcceptsAnyLengthOfCompressedBitmap)
{
    BitmapFile file;
    file.PixelBytes = 2;
    for (const uint32_t coding : { 1U, 2U }) {
        file.BitCount = coding == 1 ? 8 : 4;
        file.Compression = coding;
        EXPECT_EQ(Info(file.Bytes()), (ScreenImageInfo{ 1, 5, 3 })) << coding;
    }
}

TEST_F(ImgInfo, GivesSizeOfBitmapOfEveryDepth)
{
    for (const auto& [bits, pixelBytes] : { std::pair(1U, 9U), std::pair(2U, 10U), std::pair(4U, 11U),
             std::pair(8U, 21U), std::pair(16U, 34U), std::pair(24U, 47U), std::pair(32U, 60U) }) {
        BitmapFile file;
        file.BitCount = bits;
        file.PixelBytes = pixelBytes;
        EXPECT_EQ(Info(file.Bytes()), (ScreenImageInfo{ 1, 5, 3 })) << bits;
        --file.PixelBytes;
        EXPECT_FALSE(HasInfo(file.Bytes())) << bits;
    }
}

TEST_F(ImgInfo, RequiresAllPixelsOfBitmapWithMasks)
{
    for (const uint32_t coding : { 3U, 6U }) {
        BitmapFile file;
        file.BitCount = 32;
        file.Compression = coding;
        file.PixelBytes = 60;
        EXPECT_EQ(Info(file.Bytes()), (ScreenImageInfo{ 1, 5, 3 })) << coding;
        --file.PixelBytes;
        EXPECT_FALSE(HasInfo(file.Bytes())) << coding;
    }
}

TEST_F(ImgInfo, RefusesBitmapWithPixelsBeyondItsEnd)
{
    FileBytes file = BitmapFile().Bytes();
    for (const uint32_t offset : { 1000U, 0x80000000U, 0xffffffffU }) {
        PutDoubleWord(file, 10, offset);
        EXPECT_FALSE(HasInfo(file)) << offset;
    }
}

TEST_F(ImgInfo, GivesSizeOfPlaceableMetafileAtItsResolution)
{
    EXPECT_EQ(Info(PlaceableFile({ 0, 0, 640, 480 })), (ScreenImageInfo{ 4, 640, 480 }));
    EXPECT_EQ(Info(PlaceableFile({ -1440, 1440, 1440, 2880 }, 1440)), (ScreenImageInfo{ 4, 192, 96 }));
    EXPECT_EQ(Info(PlaceableFile({ 0, 0, 1001, 3 }, 1000)), (ScreenImageInfo{ 4, 96, 1 }));
}

TEST_F(ImgInfo, AcceptsPlaceableBoxWithSidesInAnyOrder)
{
    EXPECT_EQ(Info(PlaceableFile({ 640, 480, 0, 0 })), (ScreenImageInfo{ 4, 640, 480 }));
}

TEST_F(ImgInfo, GivesSizeOfBareMetafileByItsWindow)
{
    EXPECT_EQ(Info(BareMetafile(1, 320, 240)), (ScreenImageInfo{ 4, 320, 240 }));
    EXPECT_EQ(Info(BareMetafile(8, 320, -240)), (ScreenImageInfo{ 4, 320, 240 }));
}

TEST_F(ImgInfo, GivesSizeOfLongMetafileByAllRecords)
{
    FileBytes file = MetafileHeader();
    for (int record = 0; record < 1000; ++record)
        AddRecord(file, kSetMapMode, { 8 });
    AddRecord(file, kSetWindowExtent, { 240, 320 });
    AddRecord(file, kEnd, {});
    EXPECT_EQ(Info(file), (ScreenImageInfo{ 4, 320, 240 }));
}

TEST_F(ImgInfo, GivesSizeOfPlaceableMetafileWithLargestPicture)
{
    const std::string path = Store(PlaceableFile({ 0, 0, 16384, 8192 }));
    std::filesystem::resize_file(path, size_t{ 3 } * TVIMG_MAX_PIXELS + 1000); // a bitmap of 24 bits
    ScreenImageInfo info{};
    ASSERT_EQ(img.ImgGetFileInfo(path.c_str(), &info), 0);
    EXPECT_EQ(info, (ScreenImageInfo{ 4, 16384, 8192 }));
}

TEST_F(ImgInfo, RefusesMetafileWithoutSize)
{
    FileBytes file = MetafileHeader();
    AddRecord(file, kSetMapMode, { 8 });
    AddRecord(file, kEnd, {});
    AddRecord(file, kSetWindowExtent, { 10, 10 }); // after the end record
    EXPECT_FALSE(HasInfo(file));
    EXPECT_FALSE(HasInfo(PlaceableFile({}, 0)));
    EXPECT_FALSE(HasInfo(BareMetafile(8, 0, 10)));
}

TEST_F(ImgInfo, RefusesInvalidMetafileRecord)
{
    FileBytes file = MetafileHeader();
    AddRecord(file, kSetWindowExtent, { 10, 10 });
    AddRecord(file, kEnd, {});
    ASSERT_TRUE(HasInfo(file));
    for (const uint32_t words : { 0U, 2U, 9U, 0x80000005U, 0xffffffffU }) {
        PutDoubleWord(file, 18, words);
        EXPECT_FALSE(HasInfo(file)) << words;
    }
}

TEST_F(ImgInfo, RefusesPlaceableHeaderWithoutMetafile)
{
    FileBytes file = PlaceableFile({});
    PutWord(file, 22, 7);
    EXPECT_FALSE(HasInfo(file));
}

TEST_F(ImgInfo, GoesByContentNotByName)
{
    ScreenImageInfo info{};
    ASSERT_EQ(img.ImgGetFileInfo(Store(PlaceableFile({}), "picture.png").c_str(), &info), 0);
    EXPECT_EQ(info.Kind, 4);
}

TEST_F(ImgInfo, RefusesNonPictures)
{
    ScreenImageInfo info{};
    EXPECT_NE(img.ImgGetFileInfo(Path("missing").c_str(), &info), 0);
    EXPECT_NE(img.ImgGetFileInfo(Path(".").c_str(), &info), 0);
    EXPECT_NE(img.ImgGetFileInfo("", &info), 0);
    EXPECT_NE(img.ImgGetFileInfo(nullptr, &info), 0);
    EXPECT_NE(img.ImgGetFileInfo(Store(PlaceableFile({})).c_str(), nullptr), 0);
    EXPECT_FALSE(HasInfo({}));
    EXPECT_FALSE(HasInfo(FileBytes(1000, 'x')));
    EXPECT_FALSE(HasInfo(FileBytes(1000, 0)));
}

TEST_F(ImgInfo, RefusesTruncatedHeader)
{
    ExpectNoShorterHeader(PngFile().With(&Zero), 33);
    ExpectNoShorterHeader(BitmapFile().Bytes(), BitmapFile().Bytes().size());
    ExpectNoShorterHeader(PlaceableFile({}), 40);
    ExpectNoShorterHeader(BareMetafile(8, 10, 10), BareMetafile(8, 10, 10).size());
    ExpectNoShorterHeader(PcxFile().With([](int, int) { return 0U; }), 129);
}

TEST_F(ImgInfo, RefusesSizesBeyondTheLimits)
{
    EXPECT_FALSE(HasInfo(PngOfSize(0, 1)));
    EXPECT_FALSE(HasInfo(PngOfSize(1, 0)));
    EXPECT_FALSE(HasInfo(PngOfSize(32768, 1)));
    EXPECT_FALSE(HasInfo(PngOfSize(1, 0x80000000)));
    EXPECT_TRUE(HasInfo(PngOfSize(32767, 1)));

    for (const auto& [width, height] : { std::pair(0, 3), std::pair(5, 0), std::pair(-5, 3), std::pair(32768, 1) }) {
        BitmapFile file;
        file.Width = width;
        file.Height = height;
        file.PixelBytes = kMuch;
        EXPECT_FALSE(HasInfo(file.Bytes())) << width << " by " << height;
    }
    EXPECT_FALSE(HasInfo(PlaceableFile({ 0, 0, 0, 10 })));
    EXPECT_FALSE(HasInfo(PlaceableFile({ 0, 0, 32767, 32767 })));
    EXPECT_FALSE(HasInfo(PlaceableFile({ 0, 0, 600, 1 }, 1)));
}

TEST_F(ImgInfo, RefusesPngTooShortForItsPixels)
{
    EXPECT_FALSE(HasInfo(PngOfSize(32767, 4096)));
}

TEST_F(ImgInfo, RefusesPcxTooShortForItsPixels)
{
    PcxFile file;
    file.Width = 640;
    file.Height = 480;
    EXPECT_FALSE(HasInfo(file.WithData(FileBytes(size_t{ 480 } * 22 - 1, 0xff)))); // 10 runs of 63 and one of 10
    EXPECT_TRUE(HasInfo(file.WithData(FileBytes(size_t{ 480 } * 22, 0xff))));
}

TEST_F(ImgInfo, RefusesPngWithDamagedHeader)
{
    const FileBytes file = PngFile().With(&Zero);
    for (size_t at = 8; at < 33; ++at) {
        FileBytes damaged = file;
        damaged[at] ^= 4U;
        EXPECT_FALSE(HasInfo(damaged)) << at;
    }
}

TEST_F(ImgInfo, RefusesPngOfUnknownForm)
{
    for (const auto& [bits, type] :
        { std::pair(3, 0), std::pair(4, 2), std::pair(16, 3), std::pair(8, 1), std::pair(8, 5), std::pair(4, 6) }) {
        FileBytes header{ 0, 0, 0, 1, 0, 0, 0, 1, static_cast<uint8_t>(bits), static_cast<uint8_t>(type), 0, 0, 0 };
        FileBytes file = PngFile().With(&Zero);
        const FileBytes chunk = PngFile::Chunk("IHDR", header);
        std::copy(chunk.begin(), chunk.end(), file.begin() + 8);
        EXPECT_FALSE(HasInfo(file)) << bits << " bits, type " << type;
    }
    for (const auto& [at, value] : { std::pair(10, 1), std::pair(11, 1), std::pair(12, 2) }) {
        FileBytes header{ 0, 0, 0, 1, 0, 0, 0, 1, 8, 2, 0, 0, 0 };
        header[static_cast<size_t>(at)] = static_cast<uint8_t>(value);
        FileBytes file = PngFile().With(&Zero);
        const FileBytes chunk = PngFile::Chunk("IHDR", header);
        std::copy(chunk.begin(), chunk.end(), file.begin() + 8);
        EXPECT_FALSE(HasInfo(file)) << "byte " << at;
    }
}

TEST_F(ImgInfo, RefusesBitmapOfUnknownForm)
{
    BitmapFile file;
    file.Planes = 3;
    EXPECT_FALSE(HasInfo(file.Bytes()));
    file = {};
    file.BitCount = 7;
    EXPECT_FALSE(HasInfo(file.Bytes()));
    file = {};
    file.Compression = 5;
    EXPECT_FALSE(HasInfo(file.Bytes()));
    file = {};
    file.HeaderBytes = 41;
    EXPECT_FALSE(HasInfo(file.Bytes()));
}

TEST_F(ImgInfo, RefusesPcxOfUnknownForm)
{
    const auto isKnown = [&](const std::function<void(PcxFile&)>& change) {
        PcxFile file;
        change(file);
        return HasInfo(file.WithData(FileBytes(100)));
    };
    EXPECT_TRUE(isKnown([](PcxFile&) {}));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Version = 1; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Version = 6; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Encoding = 2; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Bits = 3; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Planes = 0; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Planes = 5; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Filling = -1; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Width = -1; }));
    EXPECT_FALSE(isKnown([](PcxFile& file) { file.Height = 32768; }));
}
