// Clipping and painting of regions.
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

constexpr QRgb kRgbRed = 0xFF0000;
constexpr QRgb kRgbWhite = 0xFFFFFF;

/// 40 by 30 pixels, red brush as object 1, no pen.
MetafileBuilder Red()
{
    return MetafileBuilder(QSize(40, 30)).Pen(kNoPen, 0, 0).Brush(0, kRed).Select(0).Select(1);
}

/// Fills the whole picture.
QImage Filled(MetafileBuilder& builder)
{
    return Painted(builder.Rectangle(-5, -5, 50, 50));
}

} // namespace

TEST(MetafileClipping, LimitsPainting)
{
    EXPECT_EQ(Drawn(Filled(Red().Record(0x0416, { 20, 30, 10, 5 }))), QRect(5, 10, 25, 10));
}

TEST(MetafileClipping, IntersectsRectangles)
{
    MetafileBuilder builder = Red();
    builder.Record(0x0416, { 20, 30, 10, 5 }).Record(0x0416, { 30, 40, 15, 10 });
    EXPECT_EQ(Drawn(Filled(builder)), QRect(10, 15, 20, 5));
}

TEST(MetafileClipping, ExcludesRectangle)
{
    const QImage picture = Filled(Red().Record(0x0415, { 20, 30, 10, 5 }));
    EXPECT_EQ(Count(picture, kRgbWhite), 25 * 10);
    EXPECT_EQ(At(picture, 5, 10), kRgbWhite);
    EXPECT_EQ(At(picture, 30, 10), kRgbRed);
}

TEST(MetafileClipping, MovesByAnOffset)
{
    MetafileBuilder builder = Red();
    builder.Record(0x0416, { 20, 30, 10, 5 }).Record(0x0220, { 3, 2 });
    EXPECT_EQ(Drawn(Filled(builder)), QRect(7, 13, 25, 10));
}

TEST(MetafileClipping, AcceptsRegion)
{
    MetafileBuilder builder = Red();
    builder.Region({ QRect(2, 3, 10, 5), QRect(20, 10, 5, 5) }).Record(0x012C, { 2 });
    const QImage picture = Filled(builder);
    EXPECT_EQ(Count(picture, kRgbRed), 10 * 5 + 5 * 5);
    EXPECT_EQ(At(picture, 2, 3), kRgbRed);
    EXPECT_EQ(At(picture, 24, 14), kRgbRed);
}

TEST(MetafileClipping, AcceptsSelectedRegion)
{
    MetafileBuilder builder = Red();
    builder.Region({ QRect(2, 3, 10, 5) }).Select(2);
    EXPECT_EQ(Drawn(Filled(builder)), QRect(2, 3, 10, 5));
}

TEST(MetafileClipping, IsClearedWithoutRegion)
{
    MetafileBuilder builder = Red();
    builder.Record(0x0416, { 20, 30, 10, 5 }).Record(0x012C, { 0xFFFF });
    EXPECT_EQ(Count(Filled(builder), kRgbRed), 40 * 30);
}

TEST(MetafileClipping, IsRestored)
{
    MetafileBuilder builder = Red();
    builder.Record(0x001E, {}).Record(0x0416, { 20, 30, 10, 5 }).Record(0x0127, { 0xFFFF });
    EXPECT_EQ(Count(Filled(builder), kRgbRed), 40 * 30);
}

TEST(MetafileClipping, EmptyClippingPaintsNothing)
{
    MetafileBuilder builder = Red();
    builder.Record(0x0416, { 5, 5, 0, 0 }).Record(0x0416, { 20, 20, 10, 10 });
    EXPECT_TRUE(Drawn(Filled(builder)).isEmpty());
}

TEST(MetafileRegions, AreFilledWithBrush)
{
    MetafileBuilder builder = Red();
    builder.Region({ QRect(2, 3, 10, 5) }).Brush(0, kBlue).Record(0x0228, { 2, 3 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(2, 3, 10, 5));
    EXPECT_EQ(At(picture, 5, 5), 0x0000FFU);
}

TEST(MetafileRegions, ArePaintedWithSelectedBrush)
{
    MetafileBuilder builder = Red();
    builder.Region({ QRect(2, 3, 10, 5) }).Record(0x012B, { 2 });
    EXPECT_EQ(Count(Painted(builder), kRgbRed), 50);
}

TEST(MetafileRegions, AreInverted)
{
    MetafileBuilder builder = Red();
    builder.Region({ QRect(2, 3, 10, 5) }).Record(0x012A, { 2 });
    EXPECT_EQ(Count(Painted(builder), 0x000000), 50);
}

TEST(MetafileRegions, AreFramed)
{
    MetafileBuilder builder = Red();
    builder.Region({ QRect(2, 3, 20, 15) }).Record(0x0429, { 2, 1, 2, 3 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(Count(picture, kRgbRed), 20 * 15 - 14 * 11);
    EXPECT_EQ(At(picture, 4, 10), kRgbRed);
    EXPECT_EQ(At(picture, 5, 5), kRgbWhite);
}

TEST(MetafileRegions, OtherObjectsAreIgnored)
{
    MetafileBuilder builder = Red();
    builder.Record(0x012B, { 1 }).Record(0x0228, { 0, 1 }).Record(0x0429, { 9, 9, 1, 1 });
    EXPECT_TRUE(Drawn(Painted(builder)).isEmpty());
}

TEST(MetafileRegions, TruncatedAreRefused)
{
    MetafileBuilder builder = Red();
    builder.Record(0x06FF, { 0, 6, 0, 0, 0, 2, 2, 0, 0, 0, 0, /* line */ 2, 0, 5, 0, 5, 2, /* second */ 40, 5 });
    EXPECT_TRUE(Painted(builder).isNull());
}

TEST(MetafileRegions, WithIncompleteRectangleAreRefused)
{
    MetafileBuilder builder = Red();
    builder.Record(0x06FF, { 0, 6, 0, 0, 0, 1, 2, 0, 0, 0, 0, /* line */ 1, 0, 5, 0, 1 });
    EXPECT_TRUE(Painted(builder).isNull());
}

} // namespace tarvik
