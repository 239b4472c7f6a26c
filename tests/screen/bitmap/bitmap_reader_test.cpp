#include "closed/tvimg.h"
#include "screen/bitmap/bitmapReader.h"
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

enum Compression { Plain = 0, Rle8 = 1, Rle4 = 2, Masks = 3, AlphaMasks = 6 };

QByteArray FileOf(const QByteArray& dib, int pixelsAt = 0)
{
    return ByteWriter().Add8('B').Add8('M').Add32(14 + dib.size()).Add32(0).Add32(pixelsAt).Add(dib).Bytes();
}

std::optional<QImage> Read(const QByteArray& file)
{
    return ReadBitmap(file, Qt::white);
}

std::optional<QImage> Read(const TestDib& dib)
{
    return Read(FileOf(dib.Bytes()));
}

/// The colours of a row, 0xRRGGBB.
QVector<QRgb> Line(const std::optional<QImage>& picture, int y = 0)
{
    QVector<QRgb> colours;
    for (int x = 0; picture && x < picture->width(); ++x)
        colours.append(At(*picture, x, y));
    return colours;
}

/// A single row of pixels.
TestDib OneLine(int width, int bitCount, const QByteArray& pixels, const std::vector<QRgb>& colours = {})
{
    TestDib dib;
    dib.Width = width;
    dib.BitCount = bitCount;
    dib.Colours = colours;
    dib.Pixels = pixels;
    return dib;
}

const std::vector<QRgb> kFour{ 0x000000, 0xFF0000, 0x00FF00, 0x0000FF };

std::vector<QRgb> Greys(int count)
{
    std::vector<QRgb> greys;
    greys.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        greys.push_back(qRgb(i, i, i));
    return greys;
}

/// Run-length encoded 8-bit indexes into four colours.
TestDib Runs(int width, int height, const QByteArray& codes)
{
    TestDib dib = OneLine(width, 8, codes, kFour);
    dib.Height = height;
    dib.Compression = Rle8;
    return dib;
}

/// A bitmap of 16 or 32 bits with masks after its header.
TestDib Masked(int bitCount, std::initializer_list<qint64> masks, const QByteArray& pixels, int compression = Masks)
{
    ByteWriter bytes;
    for (const qint64 mask : masks)
        bytes.Add32(mask);
    TestDib dib = OneLine(1, bitCount, bytes.Add(pixels).Bytes());
    dib.Compression = compression;
    return dib;
}

/// A header of 108 bytes for 32 bits with alpha in the highest byte.
QByteArray WithAlpha(const QByteArray& pixels, int width)
{
    ByteWriter dib;
    dib.Add32(108).Add32(width).Add32(1).Add16(1).Add16(32).Add32(Masks).Add(QByteArray(20, '\0'));
    dib.Add32(0xFF0000).Add32(0xFF00).Add32(0xFF).Add32(0xFF000000).Add(QByteArray(52, '\0')).Add(pixels);
    return FileOf(dib.Bytes(), 14 + 108);
}

} // namespace

TEST(BitmapReader, ReadsOneBit)
{
    const auto picture = Read(OneLine(10, 1, QByteArray("\xA0\x40\0\0", 4), { 0x102030, 0x405060 }));
    EXPECT_EQ(Line(picture),
        QVector<QRgb>(
            { 0x405060, 0x102030, 0x405060, 0x102030, 0x102030, 0x102030, 0x102030, 0x102030, 0x102030, 0x405060 }));
}

TEST(BitmapReader, ReadsTwoBits)
{
    EXPECT_EQ(Line(Read(OneLine(5, 2, QByteArray("\x1B\x40\0\0", 4), kFour))),
        QVector<QRgb>({ 0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFF0000 }));
}

TEST(BitmapReader, ReadsFourBits)
{
    EXPECT_EQ(Line(Read(OneLine(3, 4, QByteArray("\x12\x30\0\0", 4), kFour))),
        QVector<QRgb>({ 0xFF0000, 0x00FF00, 0x0000FF }));
}

TEST(BitmapReader, ReadsEightBits)
{
    EXPECT_EQ(
        Line(Read(OneLine(3, 8, QByteArray("\3\0\2\0", 4), kFour))), QVector<QRgb>({ 0x0000FF, 0x000000, 0x00FF00 }));
}

TEST(BitmapReader, ReadsSixteenBitsOfFiveEach)
{
    const QByteArray pixels = ByteWriter().Add16(0x7FFF).Add16(0x7C00).Add16(0x0021).Add16(0).Bytes();
    EXPECT_EQ(Line(Read(OneLine(4, 16, pixels))), QVector<QRgb>({ 0xFFFFFF, 0xFF0000, 0x000808, 0x000000 }));
}

TEST(BitmapReader, ReadsTwentyFourBits)
{
    EXPECT_EQ(Line(Read(OneLine(1, 24, QByteArray("\x30\x20\x10\0", 4)))), QVector<QRgb>({ 0x102030 }));
}

TEST(BitmapReader, ReadsThirtyTwoBitsWithoutAlpha)
{
    EXPECT_EQ(Line(Read(OneLine(1, 32, QByteArray("\x30\x20\x10\0", 4)))), QVector<QRgb>({ 0x102030 }));
}

TEST(BitmapReader, ReadsMasksAfterHeader)
{
    EXPECT_EQ(Line(Read(Masked(16, { 0xF800, 0x07E0, 0x001F }, ByteWriter().Add32(0x07E0).Bytes()))),
        QVector<QRgb>({ 0x00FF00 }));
    EXPECT_EQ(Line(Read(Masked(32, { 0xFF, 0xFF00, 0xFF0000 }, ByteWriter().Add32(0x302010).Bytes()))),
        QVector<QRgb>({ 0x102030 }));
}

TEST(BitmapReader, ScalesFewBitsToFullRange)
{
    const auto grey = [](int value) {
        return Line(Read(Masked(16, { 0x0F00, 0x0010, 0x0003 }, ByteWriter().Add32(value).Bytes())));
    };
    EXPECT_EQ(grey(0x0F13), QVector<QRgb>({ 0xFFFFFF }));
    EXPECT_EQ(grey(0x0802), QVector<QRgb>({ 0x8800AA }));
}

TEST(BitmapReader, UsesUpperBitsOfWideMasksAndZeroForEmptyOnes)
{
    EXPECT_EQ(Line(Read(Masked(32, { 0x3FF00000, 0x000FFC00, 0 }, ByteWriter().Add32(0x200803FF).Bytes()))),
        QVector<QRgb>({ 0x808000 }));
}

TEST(BitmapReader, BlendsTransparentPixelsOverBackground)
{
    const QByteArray file = WithAlpha(ByteWriter().Add32(0xFF102030).Add32(0x00102030).Add32(0x80000000).Bytes(), 3);
    const auto picture = ReadBitmap(file, QColor(200, 100, 50));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->format(), QImage::Format_RGB32);
    EXPECT_EQ(Line(picture).mid(0, 2), QVector<QRgb>({ 0x102030, qRgb(200, 100, 50) & 0xFFFFFF }));
    EXPECT_NEAR(qRed(picture->pixel(2, 0)), 100, 1);
}

TEST(BitmapReader, IgnoresAlphaThatIsZeroEverywhere)
{
    EXPECT_EQ(Line(Read(WithAlpha(ByteWriter().Add32(0x102030).Add32(0x405060).Bytes(), 2))),
        QVector<QRgb>({ 0x102030, 0x405060 }));
}

TEST(BitmapReader, ReadsAlphaMaskInHeaderLongEnough)
{
    ByteWriter dib;
    dib.Add32(56).Add32(2).Add32(1).Add16(1).Add16(32).Add32(Masks).Add(QByteArray(20, '\0'));
    dib.Add32(0xFF0000).Add32(0xFF00).Add32(0xFF).Add32(0xFF000000).Add32(0x00FF0000).Add32(0xFF000000);
    EXPECT_EQ(Line(Read(FileOf(dib.Bytes(), 14 + 56))), QVector<QRgb>({ 0xFFFFFF, 0x000000 }));
}

TEST(BitmapReader, ReadsAlphaMaskAfterHeader)
{
    const QByteArray pixel = ByteWriter().Add32(0x00FF0000).Bytes();
    TestDib dib = Masked(32, { 0xFF0000, 0xFF00, 0xFF, 0xFF000000 }, pixel + QByteArray("\0\0\0\xFF", 4), AlphaMasks);
    dib.Width = 2;
    EXPECT_EQ(Line(Read(dib)), QVector<QRgb>({ 0xFFFFFF, 0x000000 }));
}

TEST(BitmapReader, ReadsFirstHeaderVersion)
{
    ByteWriter dib;
    dib.Add32(12).Add16(2).Add16(1).Add16(1).Add16(1).Add8(0x30).Add8(0x20).Add8(0x10).Add8(0x60).Add8(0x50).Add8(0x40);
    EXPECT_EQ(Line(Read(FileOf(dib.Add32(0x40).Bytes()))), QVector<QRgb>({ 0x102030, 0x405060 }));
}

TEST(BitmapReader, ReadsLongerHeaderVersions)
{
    for (const int length : { 52, 56, 64, 108, 124 }) {
        ByteWriter dib;
        dib.Add32(length).Add32(1).Add32(1).Add16(1).Add16(24).Add(QByteArray(length - 16, '\0'));
        EXPECT_EQ(Line(Read(FileOf(dib.Add32(0x102030).Bytes()))), QVector<QRgb>({ 0x102030 })) << length;
    }
}

TEST(BitmapReader, IsBottomUpUnlessHeightIsNegative)
{
    const QByteArray pixels = ByteWriter().Add32(0x111111).Add32(0x222222).Bytes();
    TestDib dib = OneLine(1, 32, pixels);
    dib.Height = 2;
    EXPECT_EQ(At(*Read(dib), 0, 0), 0x222222U);
    dib.Height = -2;
    EXPECT_EQ(At(*Read(dib), 0, 0), 0x111111U);
}

TEST(BitmapReader, HonoursPixelOffset)
{
    const QByteArray dib = OneLine(1, 24, QByteArray("....", 4) + QByteArray("\x30\x20\x10\0", 4)).Bytes();
    EXPECT_EQ(Line(Read(FileOf(dib, 14 + 40 + 4))), QVector<QRgb>({ 0x102030 }));
}

TEST(BitmapReader, AcceptsSmallerColourTable)
{
    TestDib dib = OneLine(4, 8, QByteArray("\0\1\2\3", 4), kFour);
    dib.ColoursUsed = 0; // 256 by default, but the pixel offset leaves space for fewer
    EXPECT_EQ(Line(Read(FileOf(dib.Bytes(), 14 + 40 + 16))), QVector<QRgb>({ 0x000000, 0xFF0000, 0x00FF00, 0x0000FF }));
}

TEST(BitmapReader, SkipsColourTableOfTrueColourBitmap)
{
    EXPECT_EQ(Line(Read(OneLine(1, 24, QByteArray("\x30\x20\x10\0", 4), kFour))), QVector<QRgb>({ 0x102030 }));
}

TEST(BitmapReader, AcceptsMissingPaddingOfLastLine)
{
    EXPECT_EQ(Line(Read(OneLine(1, 24, QByteArray("\x30\x20\x10", 3)))), QVector<QRgb>({ 0x102030 }));
    EXPECT_FALSE(Read(OneLine(1, 24, QByteArray("\x30\x20", 2))));
}

TEST(BitmapRuns, RepeatPixels)
{
    EXPECT_EQ(Line(Read(Runs(5, 1, QByteArray("\3\1\2\2\0\1", 6)))),
        QVector<QRgb>({ 0xFF0000, 0xFF0000, 0xFF0000, 0x00FF00, 0x00FF00 }));
}

TEST(BitmapRuns, LiteralPixelsArePaddedToWords)
{
    EXPECT_EQ(Line(Read(Runs(4, 1, QByteArray("\0\3\1\2\3\0\1\2\0\1", 10)))),
        QVector<QRgb>({ 0xFF0000, 0x00FF00, 0x0000FF, 0x00FF00 }));
}

TEST(BitmapRuns, AreBottomUp)
{
    const auto picture = Read(Runs(2, 2, QByteArray("\2\1\0\0\2\2\0\1", 8)));
    EXPECT_EQ(Line(picture, 1), QVector<QRgb>({ 0xFF0000, 0xFF0000 }));
    EXPECT_EQ(Line(picture, 0), QVector<QRgb>({ 0x00FF00, 0x00FF00 }));
}

TEST(BitmapRuns, CanSkipPixels)
{
    const auto picture = Read(Runs(3, 3, QByteArray("\1\1\0\2\1\2\1\2\0\1", 10)));
    EXPECT_EQ(Line(picture, 2), QVector<QRgb>({ 0xFF0000, 0, 0 }));
    EXPECT_EQ(Line(picture, 1), QVector<QRgb>({ 0, 0, 0 }));
    EXPECT_EQ(Line(picture, 0), QVector<QRgb>({ 0, 0, 0x00FF00 }));
}

TEST(BitmapRuns, OfFourBitsAlternateBetweenTwoColours)
{
    TestDib dib = OneLine(8, 4, QByteArray("\3\x12\0\5\x12\x31\x20\0\0\1", 10), kFour);
    dib.Compression = Rle4;
    EXPECT_EQ(Line(Read(dib)),
        QVector<QRgb>({ 0xFF0000, 0x00FF00, 0xFF0000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFF0000, 0x00FF00 }));
}

TEST(BitmapRuns, MayEndWithoutMarkWhenPictureIsFull)
{
    EXPECT_TRUE(Read(Runs(2, 2, QByteArray("\2\1\0\0\2\2", 6))));
    EXPECT_FALSE(Read(Runs(2, 2, QByteArray("\2\1\0\0\1\2", 6))));
    EXPECT_FALSE(Read(Runs(2, 2, QByteArray("\2\1", 2))));
}

TEST(BitmapRuns, MayEncodePadding)
{
    // In the padding an index may exceed the colour table.
    const auto picture = Read(Runs(2, 2, QByteArray("\3\1\1\x63\0\0\0\4\2\1\3\3\0\0\0\1", 16)));
    EXPECT_EQ(Line(picture, 1), QVector<QRgb>({ 0xFF0000, 0xFF0000 }));
    EXPECT_EQ(Line(picture, 0), QVector<QRgb>({ 0x00FF00, 0xFF0000 }));
    EXPECT_TRUE(Read(Runs(2, 1, QByteArray("\4\1", 2))));
    TestDib dib = OneLine(3, 4, QByteArray("\x8\x12\0\1", 4), kFour);
    dib.Compression = Rle4;
    EXPECT_EQ(Line(Read(dib)), QVector<QRgb>({ 0xFF0000, 0x00FF00, 0xFF0000 }));
}

TEST(BitmapRuns, BeyondPaddingAreRefused)
{
    EXPECT_FALSE(Read(Runs(2, 2, QByteArray("\5\1\0\1", 4))));
    EXPECT_FALSE(Read(Runs(2, 2, QByteArray("\2\1\3\1\0\1", 6))));
    EXPECT_FALSE(Read(Runs(2, 1, QByteArray("\0\5\1\1\1\1\1\0\0\1", 10))));
    EXPECT_FALSE(Read(Runs(4, 1, QByteArray("\5\1\0\1", 4))));
}

TEST(BitmapRuns, BeyondPictureAreRefused)
{
    EXPECT_FALSE(Read(Runs(2, 1, QByteArray("\2\1\0\0\1\1\0\1", 8))));
    EXPECT_FALSE(Read(Runs(2, 1, QByteArray("\0\2\0\1\0\1", 6))));
    EXPECT_FALSE(Read(Runs(2, 1, QByteArray("\0\2\5\0\0\1", 6))));
    EXPECT_FALSE(Read(Runs(2, 1, QByteArray("\0\0\0\0\0\1", 6))));
}

TEST(BitmapRuns, TruncatedAreRefused)
{
    EXPECT_FALSE(Read(Runs(4, 1, QByteArray("\0\4\1\1\1", 5))));
    EXPECT_FALSE(Read(Runs(4, 1, QByteArray("\0\2\1", 3))));
    EXPECT_FALSE(Read(Runs(4, 1, QByteArray("\4", 1))));
    EXPECT_FALSE(Read(Runs(4, 1, {})));
}

TEST(HostileBitmaps, TruncatedAnywhereAreRefused)
{
    const QByteArray file = FileOf(OneLine(4, 8, QByteArray("\0\1\2\3", 4), kFour).Bytes());
    for (int length = 0; length < file.size(); ++length)
        EXPECT_FALSE(Read(file.left(length))) << length;
    EXPECT_TRUE(Read(file));
    EXPECT_TRUE(Read(file + "more"));
}

TEST(HostileBitmaps, OfEveryFormTruncatedAnywhereAreRefused)
{
    const QByteArray pixel = ByteWriter().Add32(0xFF102030).Bytes();
    TestDib fourBitRuns = OneLine(3, 4, QByteArray("\3\x12\0\1", 4), kFour);
    fourBitRuns.Compression = Rle4;
    const QByteArray files[] = {
        FileOf(OneLine(1, 1, QByteArray("\x80", 1), kFour).Bytes()),
        FileOf(OneLine(1, 2, QByteArray("\x80", 1), kFour).Bytes()),
        FileOf(OneLine(1, 4, QByteArray("\x10", 1), kFour).Bytes()),
        FileOf(OneLine(1, 16, QByteArray("\x10\x20", 2)).Bytes()),
        FileOf(OneLine(1, 24, QByteArray("\x10\x20\x30", 3)).Bytes()),
        FileOf(OneLine(1, 32, pixel).Bytes()),
        FileOf(Masked(32, { 0xFF, 0xFF00, 0xFF0000 }, pixel).Bytes()),
        FileOf(Masked(32, { 0xFF, 0xFF00, 0xFF0000, 0xFF000000 }, pixel, AlphaMasks).Bytes()),
        FileOf(Runs(3, 1, QByteArray("\2\1\0\1", 4)).Bytes()).chopped(2), // the data ends inside a line
        FileOf(fourBitRuns.Bytes()).chopped(3),
        WithAlpha(pixel, 1),
    };
    for (const QByteArray& file : files) {
        for (int length = 0; length < file.size(); ++length)
            EXPECT_FALSE(Read(file.left(length))) << file.toHex().toStdString() << ", " << length;
    }
    for (const QByteArray& file : files)
        EXPECT_EQ(Read(file).has_value(), &file != &files[8] && &file != &files[9]) << file.toHex().toStdString();
}

TEST(HostileBitmaps, OfOtherFormatsAreRefused)
{
    QByteArray file = FileOf(OneLine(1, 24, QByteArray(4, '\0')).Bytes());
    file[0] = 'b';
    EXPECT_FALSE(Read(file));
}

TEST(HostileBitmaps, WithoutSizeAreRefused)
{
    EXPECT_FALSE(Read(OneLine(0, 24, QByteArray(4, '\0'))));
    EXPECT_FALSE(Read(OneLine(-1, 24, QByteArray(4, '\0'))));
    TestDib flat = OneLine(1, 24, QByteArray(4, '\0'));
    flat.Height = 0;
    EXPECT_FALSE(Read(flat));
}

TEST(HostileBitmaps, OfAbsurdSizesAreRefusedBeforeAllocating)
{
    const std::pair<int, int> sizes[] = { { TVIMG_MAX_SIDE + 1, 1 }, { 1, TVIMG_MAX_SIDE + 1 },
        { 1, -TVIMG_MAX_SIDE - 1 }, { TVIMG_MAX_SIDE, TVIMG_MAX_SIDE }, { 0x7FFFFFFF, 0x7FFFFFFF },
        { 1, std::numeric_limits<int>::min() } };
    for (const auto& [width, height] : sizes) {
        TestDib dib = Runs(width, height, QByteArray("\0\1", 2));
        EXPECT_FALSE(Read(dib)) << width << " by " << height;
    }
}

TEST(HostileBitmaps, WithIndexesBeyondColourTableAreRefused)
{
    EXPECT_FALSE(Read(OneLine(4, 8, QByteArray("\0\1\2\4", 4), kFour)));
    EXPECT_FALSE(Read(OneLine(2, 4, QByteArray("\x14\0\0\0", 4), kFour)));
    EXPECT_FALSE(Read(Runs(1, 1, QByteArray("\1\4\0\1", 4))));
    EXPECT_FALSE(Read(Runs(2, 1, QByteArray("\0\2\1\4\0\1", 6))));
    EXPECT_TRUE(Read(OneLine(4, 8, QByteArray("\0\1\2\4", 4), Greys(5))));
}

TEST(HostileBitmaps, WithImpossibleHeadersAreRefused)
{
    for (const int bits : { 0, 3, 5, 15, 48, 64 })
        EXPECT_FALSE(Read(OneLine(1, bits, QByteArray(64, '\0'), Greys(8)))) << bits;
    for (const int compression : { 4, 5, 7, -1 }) {
        TestDib dib = OneLine(1, 24, QByteArray(64, '\0'));
        dib.Compression = compression;
        EXPECT_FALSE(Read(dib)) << compression;
    }
    TestDib runs = Runs(1, -1, QByteArray("\1\1\0\1", 4));
    EXPECT_FALSE(Read(runs));
    runs.Height = 1;
    runs.BitCount = 4;
    EXPECT_FALSE(Read(runs));
    runs.Compression = Rle4;
    EXPECT_TRUE(Read(runs));
    runs.Height = -1;
    EXPECT_FALSE(Read(runs));
    ByteWriter fax; // this value means another compression in this header
    fax.Add32(64).Add32(1).Add32(1).Add16(1).Add16(32).Add32(Masks).Add(QByteArray(20, '\0'));
    fax.Add32(0xFF0000).Add32(0xFF00).Add32(0xFF).Add(QByteArray(12, '\0')).Add32(0);
    EXPECT_FALSE(Read(FileOf(fax.Bytes())));
    QByteArray planes = FileOf(OneLine(1, 24, QByteArray(4, '\0')).Bytes());
    planes[14 + 12] = 3;
    EXPECT_FALSE(Read(planes));
    QByteArray header = FileOf(OneLine(1, 24, QByteArray(4, '\0')).Bytes());
    header[14] = 41;
    EXPECT_FALSE(Read(header));
}

TEST(HostileBitmaps, WithImpossibleMasksAreRefused)
{
    const QByteArray pixel(4, '\0');
    EXPECT_FALSE(Read(Masked(16, { 0, 0, 0 }, pixel)));
    EXPECT_FALSE(Read(Masked(16, { 0xF00F, 0xF0, 0x0F00 }, pixel)));
    EXPECT_FALSE(Read(Masked(24, { 0xFF0000, 0xFF00, 0xFF }, pixel)));
    EXPECT_FALSE(Read(Masked(32, { 0xFF0000 }, {})));
}

TEST(HostileBitmaps, WithTooLongColourTablesAreRefused)
{
    TestDib dib = OneLine(1, 8, QByteArray(4, '\0'), kFour);
    dib.ColoursUsed = 0x7FFFFFFF;
    EXPECT_FALSE(Read(dib));
    dib.ColoursUsed = 200; // beyond the end of the file
    EXPECT_FALSE(Read(dib));
    EXPECT_TRUE(Read(OneLine(1, 8, QByteArray(4, '\0'), std::vector<QRgb>(256))));
    EXPECT_FALSE(Read(OneLine(1, 8, QByteArray(4, '\0'), std::vector<QRgb>(257))));
}

TEST(HostileBitmaps, WithPixelsOutsideFileAreRefused)
{
    const QByteArray dib = OneLine(1, 24, QByteArray(4, '\0')).Bytes();
    for (const int at : { 1, 13, 14, 20, 53, 1000, -1, std::numeric_limits<int>::min() })
        EXPECT_FALSE(Read(FileOf(dib, at))) << at;
}

} // namespace tarvik
