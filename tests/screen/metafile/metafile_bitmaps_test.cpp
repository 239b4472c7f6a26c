// Metafile records with bitmaps, and raster operations.
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

constexpr int kCopyHigh = 0x00CC;
constexpr int kCopyLow = 0x0020;

constexpr QRgb kUpperLeft = 0x102030;
constexpr QRgb kUpperRight = 0x405060;
constexpr QRgb kLowerLeft = 0x708090;
constexpr QRgb kLowerRight = 0xA0B0C0;

/// Four squares of `side` pixels in different colours.
QImage Quarters(int side = 1)
{
    QImage picture(2 * side, 2 * side, QImage::Format_RGB32);
    for (int y = 0; y < 2 * side; ++y) {
        for (int x = 0; x < 2 * side; ++x) {
            const bool left = x < side;
            picture.setPixel(x, y, y < side ? (left ? kUpperLeft : kUpperRight) : (left ? kLowerLeft : kLowerRight));
        }
    }
    return picture;
}

/// 40 by 30 pixels; scaling does not interpolate.
MetafileBuilder Page()
{
    return MetafileBuilder(QSize(40, 30)).Record(0x0107, { 3 });
}

MetafileBuilder& Stretch(MetafileBuilder& builder, QRect from, QRect to, const QByteArray& dib)
{
    return builder.Record(0x0F43,
        { kCopyLow, kCopyHigh, 0, from.height(), from.width(), from.y(), from.x(), to.height(), to.width(), to.y(),
            to.x() },
        dib);
}

MetafileBuilder& Copy(MetafileBuilder& builder, int operation, QPoint from, QRect to, const QByteArray& dib)
{
    return builder.Record(0x0940, { 0, operation, from.y(), from.x(), to.height(), to.width(), to.y(), to.x() }, dib);
}

/// Combines one source pixel and one picture pixel, with a brush.
QRgb Combined(int operation, QRgb source, QRgb picture, int brush)
{
    QImage one(1, 1, QImage::Format_RGB32);
    one.setPixel(0, 0, source);
    QImage under(1, 1, QImage::Format_RGB32);
    under.setPixel(0, 0, picture);
    MetafileBuilder builder = Page();
    builder.Brush(0, brush).Select(0);
    Copy(builder, kCopyHigh, {}, QRect(5, 5, 1, 1), DibOf(under));
    Copy(builder, operation, {}, QRect(5, 5, 1, 1), DibOf(one));
    return At(Painted(builder), 5, 5);
}

} // namespace

TEST(MetafileBitmaps, AreScaled)
{
    MetafileBuilder builder = Page();
    const QImage picture = Painted(Stretch(builder, QRect(0, 0, 2, 2), QRect(10, 5, 20, 10), DibOf(Quarters())));
    EXPECT_EQ(Drawn(picture), QRect(10, 5, 20, 10));
    EXPECT_EQ(At(picture, 19, 9), kUpperLeft);
    EXPECT_EQ(At(picture, 20, 9), kUpperRight);
    EXPECT_EQ(At(picture, 19, 10), kLowerLeft);
    EXPECT_EQ(At(picture, 29, 14), kLowerRight);
}

TEST(MetafileBitmaps, AreCopiedExactlyAtOwnSize)
{
    const QImage quarters = Quarters(5);
    MetafileBuilder builder(QSize(40, 30)); // whatever the stretch mode
    const QImage picture = Painted(Stretch(builder, QRect(0, 0, 10, 10), QRect(3, 4, 10, 10), DibOf(quarters)));
    EXPECT_EQ(picture.copy(3, 4, 10, 10).convertToFormat(QImage::Format_RGB888),
        quarters.convertToFormat(QImage::Format_RGB888));
}

TEST(MetafileBitmaps, CountLinesFromFirstStored)
{
    MetafileBuilder builder = Page();
    const QImage picture = Painted(Stretch(builder, QRect(0, 0, 2, 1), QRect(0, 0, 2, 1), DibOf(Quarters())));
    EXPECT_EQ(At(picture, 0, 0), kLowerLeft);
    EXPECT_EQ(At(picture, 1, 0), kLowerRight);
}

TEST(MetafileBitmaps, AreMirroredByNegativeSizes)
{
    MetafileBuilder builder = Page();
    Stretch(builder, QRect(QPoint(0, 0), QSize(2, 2)), QRect(QPoint(12, 10), QSize(-2, 2)), DibOf(Quarters()));
    Stretch(builder, QRect(QPoint(0, 0), QSize(2, 2)), QRect(QPoint(20, 12), QSize(2, -2)), DibOf(Quarters()));
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 10, 10), kUpperRight);
    EXPECT_EQ(At(picture, 11, 11), kLowerLeft);
    EXPECT_EQ(At(picture, 20, 10), kLowerLeft);
    EXPECT_EQ(At(picture, 21, 11), kUpperRight);
}

TEST(MetafileBitmaps, ShowOnlyExistingPart)
{
    MetafileBuilder builder = Page();
    Copy(builder, kCopyHigh, { 1, 1 }, QRect(10, 10, 2, 2), DibOf(Quarters()));
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 10, 10), kLowerRight);
    EXPECT_EQ(At(picture, 11, 11), 0xFFFFFFU);
}

TEST(MetafileBitmaps, AveragePixelsWhenTheyShrink)
{
    QImage stripes(400, 300, QImage::Format_RGB32);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            stripes.setPixel(x, y, x % 10 == 0 ? 0xFFFFFFFF : 0xFF000000);
    }
    MetafileBuilder builder(QSize(40, 30));
    const QImage picture = Painted(Stretch(builder, stripes.rect(), QRect(0, 0, 40, 30), DibOf(stripes)));
    EXPECT_NEAR(qGray(picture.pixel(20, 15)), 255 / 10, 3);
}

TEST(MetafileBitmaps, OfStretchRecordCountFromTop)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0B41, { kCopyLow, kCopyHigh, 1, 2, 0, 0, 10, 20, 5, 10 }, DibOf(Quarters()));
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(10, 5, 20, 10));
    EXPECT_EQ(At(picture, 10, 5), kUpperLeft);
    EXPECT_EQ(At(picture, 29, 14), kUpperRight);
}

TEST(MetafileBitmaps, CanComeInStrips)
{
    TestDib dib;
    dib.Width = 1;
    dib.Height = 4;
    dib.BitCount = 32;
    dib.Pixels = ByteWriter().Add32(kLowerLeft).Add32(kUpperLeft).Bytes(); // the second and third line from the bottom
    MetafileBuilder builder = Page();
    builder.Record(0x0D33, { 0, 2, 1, 0, 0, 4, 1, 10, 10 }, dib.Bytes());
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(10, 11, 1, 2));
    EXPECT_EQ(At(picture, 10, 11), kUpperLeft);
    EXPECT_EQ(At(picture, 10, 12), kLowerLeft);
}

TEST(MetafileBitmaps, MonochromeDeviceBitmapsUseTextAndBackgroundColour)
{
    const QByteArray bitmap =
        ByteWriter().Add16(0).Add16(8).Add16(1).Add16(2).Add8(1).Add8(1).Add8(0xF0).Add8(0).Bytes();
    MetafileBuilder builder = Page();
    builder.Record(0x0209, { kRed, 0 }).Record(0x0201, { kGreen, 0 });
    builder.Record(0x0922, { kCopyLow, kCopyHigh, 0, 0, 1, 8, 3, 4 }, bitmap);
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 4, 3), 0x00FF00U);
    EXPECT_EQ(At(picture, 11, 3), 0xFF0000U);
}

TEST(MetafileBitmaps, DeviceBitmapsCanHaveColours)
{
    ByteWriter bitmap;
    bitmap.Add16(0).Add16(1).Add16(2).Add16(4).Add8(1).Add8(24).Add8(0x30).Add8(0x20).Add8(0x10).Add8(0);
    bitmap.Add8(0x90).Add8(0x80).Add8(0x70).Add8(0);
    MetafileBuilder builder = Page();
    builder.Record(0x0B23, { kCopyLow, kCopyHigh, 2, 1, 0, 0, 4, 2, 0, 0 }, bitmap.Bytes());
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 1, 1), kUpperLeft);
    EXPECT_EQ(At(picture, 1, 3), kLowerLeft);
}

TEST(MetafileBitmaps, UsePaletteColours)
{
    TestDib dib;
    dib.Width = 2;
    dib.BitCount = 8;
    dib.ColoursUsed = 2;
    dib.Pixels = ByteWriter().Add16(1).Add16(0).Add8(0).Add8(1).Add16(0).Bytes(); // two indexes, then two pixels
    MetafileBuilder builder = Page();
    builder.Record(0x00F7, { 0x0300, 2, 0x2010, 0x0030, 0x5040, 0x0060 }).Record(0x0234, { 0 });
    builder.Record(0x0F43, { kCopyLow, kCopyHigh, 1, 1, 2, 0, 0, 1, 2, 5, 5 }, dib.Bytes());
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 5, 5), kUpperRight);
    EXPECT_EQ(At(picture, 6, 5), kUpperLeft);
}

TEST(MetafileBitmaps, CanContainPaletteIndexes)
{
    TestDib dib;
    dib.BitCount = 8;
    dib.Pixels = ByteWriter().Add32(1).Bytes();
    MetafileBuilder builder = Page();
    builder.Record(0x00F7, { 0x0300, 2, 0x2010, 0x0030, 0x5040, 0x0060 }).Record(0x0234, { 0 });
    builder.Record(0x0F43, { kCopyLow, kCopyHigh, 2, 1, 1, 0, 0, 1, 1, 5, 5 }, dib.Bytes());
    EXPECT_EQ(At(Painted(builder), 5, 5), kUpperRight);
}

TEST(MetafileBitmaps, CopyWithinPicture)
{
    MetafileBuilder builder = Page();
    Copy(builder, kCopyHigh, {}, QRect(2, 3, 2, 2), DibOf(Quarters()));
    builder.Record(0x0940, { kCopyLow, kCopyHigh, 3, 2, 0, 2, 2, 20, 10 });
    builder.Record(0x0B41, { kCopyLow, kCopyHigh, 1, 1, 3, 2, 0, 4, 4, 20, 20 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 10, 20), kUpperLeft);
    EXPECT_EQ(At(picture, 11, 21), kLowerRight);
    EXPECT_EQ(At(picture, 23, 23), kUpperLeft);
}

TEST(MetafileBitmaps, AreClipped)
{
    MetafileBuilder builder = Page();
    builder.Record(0x0416, { 30, 11, 0, 0 });
    Copy(builder, kCopyHigh, {}, QRect(10, 10, 2, 2), DibOf(Quarters()));
    EXPECT_EQ(Drawn(Painted(builder)), QRect(10, 10, 1, 2));
}

TEST(MetafileBitmaps, TruncatedAreRefused)
{
    const QByteArray dib = DibOf(Quarters());
    for (const qsizetype length : { 0, 4, 39, 40, 50 }) {
        MetafileBuilder builder = Page();
        EXPECT_TRUE(Painted(Stretch(builder, QRect(0, 0, 2, 2), QRect(0, 0, 2, 2), dib.left(length))).isNull())
            << length;
    }
}

TEST(RasterOperations, CombineSourceAndPicture)
{
    EXPECT_EQ(Combined(0x00EE, 0x0F0F0F, 0x3C3C3C, 0), 0x3F3F3FU); // or
    EXPECT_EQ(Combined(0x0088, 0x0F0F0F, 0x3C3C3C, 0), 0x0C0C0CU); // and
    EXPECT_EQ(Combined(0x0066, 0x0F0F0F, 0x3C3C3C, 0), 0x333333U); // exclusive or
    EXPECT_EQ(Combined(0x0044, 0x0F0F0F, 0x3C3C3C, 0), 0x030303U); // source and not picture
    EXPECT_EQ(Combined(0x0033, 0x0F0F0F, 0x3C3C3C, 0), 0xF0F0F0U); // not source
    EXPECT_EQ(Combined(0x0011, 0x0F0F0F, 0x3C3C3C, 0), 0xC0C0C0U); // neither
    EXPECT_EQ(Combined(0x00BB, 0x0F0F0F, 0x3C3C3C, 0), 0xFCFCFCU); // not source, or picture
}

TEST(RasterOperations, UseTheBrush)
{
    EXPECT_EQ(Combined(0x00F0, 0x0F0F0F, 0x3C3C3C, 0x55AA00), 0x00AA55U); // brush alone
    EXPECT_EQ(Combined(0x005A, 0x0F0F0F, 0x3C3C3C, 0xFFFFFF), 0xC3C3C3U); // brush exclusive or picture
    EXPECT_EQ(Combined(0x00C0, 0x0F0F0F, 0x3C3C3C, 0x010101), 0x010101U); // brush and source
    EXPECT_EQ(Combined(0x00FB, 0x0F0F0F, 0x3C3C3C, 0x010101), 0xFDFDFDU); // brush, not source, or picture
    EXPECT_EQ(Combined(0x00B8, 0x0F0F0F, 0x3C3C3C, 0x414141), 0x4C4C4CU); // brush where the source is 0
}

TEST(RasterOperations, OfEveryCodeFollowItsBits)
{
    for (int operation = 0; operation < 256; ++operation) {
        int expected = 0;
        for (int bit = 0; bit < 8; ++bit) // bit 7: all three set
            expected |= (operation >> bit & 1) << bit;
        // Each bit of a channel has a different combination of brush, source and picture.
        EXPECT_EQ(Combined(operation, 0xCCCCCC, 0xAAAAAA, 0xF0F0F0) & 0xFF, static_cast<QRgb>(expected)) << operation;
    }
}

TEST(RasterOperations, WithoutBitmapFillRectangle)
{
    MetafileBuilder builder = Page();
    builder.Brush(0, kRed).Select(0).Record(0x061D, { 0x0021, 0x00F0, 10, 20, 5, 3 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(3, 5, 20, 10));
    EXPECT_EQ(At(picture, 3, 5), 0xFF0000U);
}

TEST(RasterOperations, InvertBlackenAndWhiten)
{
    MetafileBuilder builder = Page();
    builder.Record(0x061D, { 0x0009, 0x0055, 30, 20, 0, 0 }).Record(0x061D, { 0x0042, 0x0000, 30, 10, 0, 20 });
    builder.Record(0x061D, { 0x0062, 0x00FF, 30, 5, 0, 0 });
    EXPECT_EQ(Drawn(Painted(builder)), QRect(5, 0, 25, 30));
}

TEST(RasterOperations, OnThreePicturesAreClipped)
{
    QImage black(20, 20, QImage::Format_RGB32);
    black.fill(Qt::black);
    MetafileBuilder builder = Page();
    builder.Brush(0, kRed).Select(0).Record(0x0416, { 10, 10, 5, 5 });
    Copy(builder, 0x00B8, {}, QRect(0, 0, 20, 20), DibOf(black));
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(5, 5, 5, 5));
    EXPECT_EQ(At(picture, 5, 5), 0xFF0000U);
}

} // namespace tarvik
