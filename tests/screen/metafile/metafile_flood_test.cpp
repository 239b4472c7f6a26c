// Flood fills of metafiles.
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

constexpr QRgb kRgbRed = 0xFF0000;

/// 40 by 30 pixels with a black frame from (10, 5) to (29, 24) and a red brush.
MetafileBuilder Framed()
{
    MetafileBuilder builder(QSize(40, 30));
    return builder.Rectangle(10, 5, 30, 25).Pen(kNoPen, 0, 0).Brush(0, kRed).Select(0).Select(1);
}

} // namespace

TEST(MetafileFloods, StopAtBorder)
{
    const QImage inside = Painted(Framed().Record(0x0419, { kBlack, 0, 10, 20 }));
    EXPECT_EQ(Count(inside, kRgbRed), 18 * 18);
    EXPECT_EQ(At(inside, 11, 6), kRgbRed);
    const QImage outside = Painted(Framed().Record(0x0548, { 0, kBlack, 0, 0, 0 }));
    EXPECT_EQ(Count(outside, kRgbRed), 40 * 30 - 20 * 20);
}

TEST(MetafileFloods, FillOneColourOnly)
{
    const QImage picture = Painted(Framed().Record(0x0548, { 1, 0xFFFF, 0x00FF, 10, 20 }));
    EXPECT_EQ(Count(picture, kRgbRed), 18 * 18);
}

TEST(MetafileFloods, FillAroundCorners)
{
    MetafileBuilder builder = Framed();
    builder.Brush(0, kBlack).Select(2).Rectangle(11, 10, 26, 13).Rectangle(14, 16, 31, 19).Select(1);
    builder.Record(0x0419, { kBlack, 0, 6, 12 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 12, 22), kRgbRed);
    EXPECT_EQ(At(picture, 28, 22), kRgbRed);
    EXPECT_EQ(At(picture, 5, 22), 0xFFFFFFU);
}

TEST(MetafileFloods, FillNothingFromBorderOrOutside)
{
    EXPECT_EQ(Count(Painted(Framed().Record(0x0419, { kBlack, 0, 5, 10 })), kRgbRed), 0);
    EXPECT_EQ(Count(Painted(Framed().Record(0x0419, { kBlack, 0, 100, -1 })), kRgbRed), 0);
}

TEST(MetafileFloods, AreClipped)
{
    MetafileBuilder builder = Framed();
    builder.Record(0x0416, { 15, 40, 0, 0 }).Record(0x0419, { kBlack, 0, 10, 20 });
    EXPECT_EQ(Drawn(Painted(builder).copy(11, 6, 18, 18)).height(), 9);
}

} // namespace tarvik
