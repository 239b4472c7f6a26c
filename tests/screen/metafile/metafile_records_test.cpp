// Rarely used records: joins, scaled viewports, animated palettes, device-dependent patterns and bitmaps.
#include "screen/metafile/metafileMapping.h"
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

constexpr QRgb kRgbRed = 0xFF0000;
constexpr QRgb kRgbGreen = 0x00FF00;
constexpr QRgb kRgbBlue = 0x0000FF;

constexpr int kCopyHigh = 0x00CC;
constexpr int kCopyLow = 0x0020;

MetafileBuilder Small()
{
    return MetafileBuilder(QSize(40, 30));
}

MetafileBuilder WithBrush(int colour)
{
    return Small().Pen(kNoPen, 0, 0).Brush(0, colour).Select(0).Select(1);
}

/// The number of pixels in a corner of a wide line.
int CornerOf(int style)
{
    MetafileBuilder builder = Small();
    builder.Pen(style, 8, kRed).Select(0).Record(0x0325, { 3, 8, 25, 8, 8, 35, 8 });
    return Count(Painted(builder), kRgbRed);
}

/// A selected palette as object 0: 102030 and 405060.
MetafileBuilder WithPalette()
{
    return Small().Record(0x00F7, { 0x0300, 2, 0x2010, 0x0030, 0x5040, 0x0060 }).Record(0x0234, { 0 });
}

/// The header of a device bitmap of one plane.
ByteWriter DeviceHead(int width, int height, int lineBytes, int bitCount)
{
    return ByteWriter().Add16(0).Add16(width).Add16(height).Add16(lineBytes).Add8(1).Add8(bitCount);
}

/// Copies a device bitmap of 2 by 1 pixels to (5, 5).
QImage PaintedDevice(MetafileBuilder builder, const ByteWriter& bitmap)
{
    return Painted(builder.Record(0x0922, { kCopyLow, kCopyHigh, 0, 0, 1, 2, 5, 5 }, bitmap.Bytes()));
}

} // namespace

TEST(MetafileLines, WideLinesHaveRoundBevelledAndMitredJoins)
{
    const int flatEnds = 0x0200;
    const int round = CornerOf(flatEnds);
    const int bevelled = CornerOf(flatEnds | 0x1000);
    const int pointed = CornerOf(flatEnds | 0x2000);
    EXPECT_LT(bevelled, round);
    EXPECT_LT(round, pointed);
    EXPECT_EQ(pointed, (17 + 27) * 8); // both lines share the square at the corner
}

TEST(MetafileMapping, ScalesViewport)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x0412, { 2, 1, 4, 3 }).Rectangle(0, 0, 40, 30); // half as high, three quarters as wide
    EXPECT_EQ(Drawn(Painted(builder)), QRect(0, 0, 29, 14));
}

TEST(MetafileMapping, OfPixelsResetsScaling)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Window(0, 0, 400, 300).Record(0x0103, { 1 }).Rectangle(0, 0, 20, 10);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(0, 0, 19, 9));
}

TEST(MetafileMapping, IgnoresUnknownMode)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Window(0, 0, 400, 300).Record(0x0103, { 9 }).Rectangle(0, 0, 200, 100);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(0, 0, 19, 9));
}

TEST(MetafileMapping, LengthsAreClamped)
{
    tvpicture::MetafileFrame frame;
    frame.WindowWidth = frame.WindowHeight = frame.Width = frame.Height = 1;
    MetafileMapping mapping(frame);
    for (int i = 0; i < 3; ++i)
        mapping.ScaleViewportExtent({ 32767, 32767 }, { 1, 1 });
    EXPECT_EQ(mapping.Across(-32768), 1 << 24);
    EXPECT_EQ(mapping.Down(32767), 1 << 24);
}

TEST(MetafilePalettes, CanBeAnimated)
{
    MetafileBuilder builder = WithPalette();
    builder.Record(0x0436, { 1, 1, 0x5544, 0x0066 });
    builder.Record(0x02FC, { 0, 1, 0x0100, 0 }).Pen(kNoPen, 0, 0).Select(1).Select(2);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), 0x445566U);
}

TEST(MetafilePalettes, IgnoreIndexesBeyondLastColour)
{
    MetafileBuilder builder = WithPalette();
    builder.Record(0x0037, { 1, 2, 0x5544, 0x0066, 0x7777, 0x0077 }); // the second index is out of range
    builder.Record(0x02FC, { 0, 2, 0x0100, 0 }).Pen(kNoPen, 0, 0).Select(1).Select(2);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), 0x000000U);
}

TEST(MetafileBrushes, DevicePatternsIgnoreColourUsage)
{
    TestDib dib;
    dib.BitCount = 8;
    dib.Colours = { 0xFFFF0000, 0xFF0000FF };
    dib.Pixels = QByteArray("\1\0\0\0", 4);
    MetafileBuilder builder = WithPalette(); // object 0
    builder.Pen(kNoPen, 0, 0).Record(0x0142, { 3, 1 }, dib.Bytes()).Select(1).Select(2);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), kRgbBlue);
}

TEST(MetafileBrushes, PatternsCanUsePaletteColours)
{
    TestDib dib;
    dib.BitCount = 8;
    dib.ColoursUsed = 2;
    dib.Pixels = ByteWriter().Add16(1).Add16(0).Add32(0).Bytes(); // two indexes, then one pixel
    MetafileBuilder builder = WithPalette();
    builder.Pen(kNoPen, 0, 0).Record(0x0142, { 5, 1 }, dib.Bytes()).Select(1).Select(2);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), 0x405060U);
}

TEST(MetafileDeviceBitmaps, OfFourAndEightBitsUsePaletteColours)
{
    const QImage four = PaintedDevice(WithPalette(), DeviceHead(2, 1, 2, 4).Add8(0x10).Add8(0));
    EXPECT_EQ(At(four, 5, 5), 0x405060U);
    EXPECT_EQ(At(four, 6, 5), 0x102030U);
    const QImage eight = PaintedDevice(WithPalette(), DeviceHead(2, 1, 2, 8).Add8(1).Add8(0));
    EXPECT_EQ(At(eight, 5, 5), 0x405060U);
    EXPECT_EQ(At(eight, 6, 5), 0x102030U);
}

TEST(MetafileDeviceBitmaps, OfSixteenBitsHaveSixGreenBits)
{
    const QImage picture = PaintedDevice(Small(), DeviceHead(2, 1, 4, 16).Add16(0x07E0).Add16(0xF800));
    EXPECT_EQ(At(picture, 5, 5), kRgbGreen);
    EXPECT_EQ(At(picture, 6, 5), kRgbRed);
}

TEST(MetafileDeviceBitmaps, OfThirtyTwoBitsHaveBlueFirst)
{
    const QImage picture = PaintedDevice(Small(), DeviceHead(2, 1, 8, 32).Add32(0x102030).Add32(0x405060));
    EXPECT_EQ(At(picture, 5, 5), 0x102030U);
    EXPECT_EQ(At(picture, 6, 5), 0x405060U);
}

TEST(MetafileDeviceBitmaps, InvalidOnesAreRefused)
{
    const QByteArray pixels(64, '\0');
    ASSERT_FALSE(PaintedDevice(WithPalette(), DeviceHead(2, 1, 2, 8).Add(pixels)).isNull());
    EXPECT_TRUE(PaintedDevice(WithPalette(), DeviceHead(2, 1, 2, 7).Add(pixels)).isNull());
    EXPECT_TRUE(PaintedDevice(WithPalette(), DeviceHead(0, 1, 2, 8).Add(pixels)).isNull());
    EXPECT_TRUE(PaintedDevice(WithPalette(), DeviceHead(2, -1, 2, 8).Add(pixels)).isNull());
    EXPECT_TRUE(PaintedDevice(WithPalette(), DeviceHead(2, 40, 2, 8).Add(pixels)).isNull()); // truncated
    EXPECT_TRUE(PaintedDevice(WithPalette(), DeviceHead(2, 1, 2, 8).Add16(0x0002)).isNull()); // a third colour
    const ByteWriter planes = ByteWriter().Add16(0).Add16(2).Add16(1).Add16(2).Add8(4).Add8(1).Add(pixels);
    EXPECT_TRUE(PaintedDevice(Small(), planes).isNull());
}

TEST(MetafileBitmaps, TopDownBitmapsCountFromTop)
{
    TestDib dib;
    dib.Height = -3;
    dib.BitCount = 32;
    dib.Pixels = ByteWriter().Add32(0x111111).Add32(0x222222).Add32(0x333333).Bytes();
    MetafileBuilder builder = Small();
    builder.Record(0x0F43, { kCopyLow, kCopyHigh, 0, 1, 1, 1, 0, 1, 1, 5, 5 }, dib.Bytes());
    builder.Record(0x0F43, { kCopyLow, kCopyHigh, 0, 1, 1, 0, 0, 1, 1, 7, 7 }, dib.Bytes());
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 5, 5), 0x222222U);
    EXPECT_EQ(At(picture, 7, 7), 0x111111U);
}

TEST(MetafileBitmaps, InStripsShowRequestedPart)
{
    TestDib dib;
    dib.Width = 2;
    dib.Height = 3;
    dib.BitCount = 32;
    dib.Pixels =
        ByteWriter().Add32(0x11).Add32(0x12).Add32(0x21).Add32(0x22).Add32(0x31).Add32(0x32).Bytes(); // bottom-up
    MetafileBuilder builder = Small();
    builder.Record(0x0D33, { 0, 3, 0, 1, 1, 2, 1, 10, 10 }, dib.Bytes()); // from (1, 1), 1 by 2
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(10, 10, 1, 2));
    EXPECT_EQ(At(picture, 10, 10), 0x000032U);
    EXPECT_EQ(At(picture, 10, 11), 0x000022U);
}

TEST(MetafileBitmaps, TopDownStripsCountFromTop)
{
    TestDib dib;
    dib.Height = -4;
    dib.BitCount = 32;
    dib.Pixels = ByteWriter().Add32(0x222222).Bytes(); // the second line
    MetafileBuilder builder = Small();
    builder.Record(0x0D33, { 0, 1, 1, 0, 0, 4, 1, 10, 10 }, dib.Bytes());
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(10, 11, 1, 1));
    EXPECT_EQ(At(picture, 10, 11), 0x222222U);
}

TEST(MetafileBitmaps, InStripsWithTooManyLinesShowAll)
{
    TestDib dib;
    dib.Height = 2;
    dib.BitCount = 32;
    dib.Pixels = ByteWriter().Add32(0x111111).Add32(0x222222).Bytes();
    MetafileBuilder builder = Small();
    builder.Record(0x0D33, { 0, 9, 0, 0, 0, 2, 1, 10, 10 }, dib.Bytes());
    EXPECT_EQ(Drawn(Painted(builder)), QRect(10, 10, 1, 2));
}

TEST(MetafileBitmaps, ShowRequestedPartMirrored)
{
    QImage line(5, 1, QImage::Format_RGB32);
    for (int x = 0; x < 5; ++x)
        line.setPixel(x, 0, 0xFF000011U * static_cast<QRgb>(x + 1));
    MetafileBuilder builder = Small();
    builder.Record(0x0F43, { kCopyLow, kCopyHigh, 0, 1, 2, 0, 1, 1, -2, 5, 12 }, DibOf(line)); // 2 pixels from x = 1
    builder.Record(0x0F43, { kCopyLow, kCopyHigh, 0, 1, -2, 0, 3, 1, 2, 8, 10 }, DibOf(line)); // as above, reversed
    const QImage picture = Painted(builder);
    for (const int y : { 5, 8 }) {
        EXPECT_EQ(At(picture, 10, y), 0x000033U) << y;
        EXPECT_EQ(At(picture, 11, y), 0x000022U) << y;
    }
}

TEST(MetafileMapping, KeepsAspectUpwardsToo)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x0103, { 7 }).Window(0, 60, 40, -60).Rectangle(0, 0, 40, 30);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(0, 15, 19, 14));
}

TEST(MetafileShapes, PolyPolygonsHonourFillRule)
{
    const std::initializer_list<int> nested{ 2, 4, 4, 2, 2, 30, 2, 30, 25, 2, 25, 10, 8, 20, 8, 20, 18, 10, 18 };
    EXPECT_EQ(At(Painted(WithBrush(kRed).Record(0x0106, { 1 }).Record(0x0538, nested)), 15, 12), 0xFFFFFFU);
    EXPECT_EQ(At(Painted(WithBrush(kRed).Record(0x0106, { 2 }).Record(0x0538, nested)), 15, 12), kRgbRed);
}

TEST(MetafileFloods, CombineWithPicture)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x0104, { 6 }).Record(0x0419, { kBlack, 0, 5, 5 }); // invert
    EXPECT_EQ(Count(Painted(builder), 0x000000), 40 * 30);
}

} // namespace tarvik
