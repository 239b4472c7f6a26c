// Malicious metafiles.
#include "closed/tvimg.h"
#include "screen/metafile/metafileReader.h"
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

/// One record of each kind that checks a length of its own.
MetafileBuilder Everything()
{
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    MetafileBuilder builder(QSize(40, 30));
    builder.Pen(0, 1, kRed).Brush(0, kBlue).Font(10, "DejaVu Sans").Region({ QRect(1, 1, 5, 5) }).Select(0).Select(1);
    builder.Rectangle(1, 1, 10, 10).Record(0x0324, { 3, 0, 0, 20, 0, 0, 20 }).Record(0x0521, { 2, 0x4848, 5, 5 });
    builder.Record(0x0F43, { 0x20, 0xCC, 0, 2, 3, 0, 0, 2, 3, 5, 5 }, DibOf(picture));
    return builder;
}

} // namespace

TEST(HostileMetafiles, TruncatedAnywhereAreRefused)
{
    const QByteArray bytes = Everything().Bytes();
    ASSERT_FALSE(Painted(bytes).isNull());
    for (int length = 0; length < bytes.size(); ++length)
        EXPECT_TRUE(Painted(bytes.left(length)).isNull()) << length;
}

TEST(HostileMetafiles, OfOtherFormatsAreRefused)
{
    EXPECT_TRUE(Painted(QByteArray()).isNull());
    EXPECT_TRUE(Painted(QByteArray("BM not a metafile, but long enough for one of them")).isNull());
}

TEST(HostileMetafiles, OfAbsurdSizesAreRefusedBeforeAllocating)
{
    EXPECT_TRUE(Painted(MetafileBuilder().Placeable(0, 0, 32767, 32767, 96)).isNull());
    EXPECT_TRUE(Painted(MetafileBuilder().Placeable(0, 0, 32767, 1, 95)).isNull());
    EXPECT_TRUE(Painted(MetafileBuilder().Placeable(-32768, -32768, 32767, 32767, 1)).isNull());
    EXPECT_TRUE(Painted(MetafileBuilder().Window(0, 0, 1, 1).Record(0x020E, { 32767, 32767 })).isNull());
    EXPECT_EQ(Painted(MetafileBuilder().Placeable(0, 0, TVIMG_MAX_SIDE, 1, 96)).width(), TVIMG_MAX_SIDE);
}

TEST(HostileMetafiles, WithTooShortRecordsAreRefused)
{
    for (const int function : { 0x0103, 0x012D, 0x020B, 0x02FA, 0x02FB, 0x02FC, 0x0324, 0x041B, 0x0538, 0x061C, 0x0817,
             0x0940, 0x0A32, 0x0F43 })
        EXPECT_TRUE(Painted(MetafileBuilder(QSize(40, 30)).Record(function, {})).isNull()) << function;
}

TEST(HostileMetafiles, WithMissingPointsAreRefused)
{
    EXPECT_TRUE(Painted(MetafileBuilder(QSize(40, 30)).Record(0x0324, { 3, 0, 0, 1, 1 })).isNull());
    EXPECT_TRUE(Painted(MetafileBuilder(QSize(40, 30)).Record(0x0325, { 0xFFFF, 0, 0, 1, 1 })).isNull());
    EXPECT_TRUE(Painted(MetafileBuilder(QSize(40, 30)).Record(0x0538, { 2, 2, 2, 0, 0, 1, 1 })).isNull());
    EXPECT_TRUE(Painted(MetafileBuilder(QSize(40, 30)).Record(0x0538, { 0xFFFF, 0 })).isNull());
}

TEST(HostileMetafiles, WithMissingColoursAreRefused)
{
    EXPECT_TRUE(Painted(MetafileBuilder(QSize(40, 30)).Record(0x00F7, { 0x0300, 2, 0, 0 })).isNull());
    EXPECT_TRUE(Painted(MetafileBuilder(QSize(40, 30)).Record(0x0037, { 0, 2, 0, 0 })).isNull());
}

TEST(HostileMetafiles, MayHaveShapesWithoutPoints)
{
    MetafileBuilder builder(QSize(40, 30));
    builder.Record(0x0324, { 0 }).Record(0x0325, { 1, 5, 5 }).Record(0x0538, { 0 }).Record(0x0538, { 1, 0 });
    EXPECT_TRUE(Drawn(Painted(builder)).isEmpty());
    EXPECT_FALSE(Painted(builder).isNull());
}

TEST(HostileMetafiles, MayDrawFarOutside)
{
    MetafileBuilder builder(QSize(40, 30));
    builder.Window(0, 0, 1, 1).Record(0x0410, { 1000, 1, 1000, 1 }).Pen(1, 1000, kRed).Select(0);
    builder.Record(0x0214, { -32768, -32768 }).Record(0x0213, { 32767, 32767 }).Rectangle(-32768, -32768, 32767, 32767);
    builder.Record(0x0817, { 0, 0, 5, 5, 32767, 32767, -32768, -32768 }).Font(32767, "DejaVu Sans").Select(1);
    builder.Record(0x0521, { 2, 0x4848, 0, 0 });
    EXPECT_FALSE(Painted(builder).isNull());
}

TEST(HostileMetafiles, MayScaleToZero)
{
    MetafileBuilder builder(QSize(40, 30));
    builder.Record(0x020C, { 0, 0 }).Record(0x020E, { 0, 5 }).Record(0x0410, { 0, 0, 0, 0 });
    for (int i = 0; i < 40; ++i)
        builder.Record(0x0410, { 1, 32767, 1, 32767 }).Record(0x0412, { 32767, 1, 32767, 1 });
    EXPECT_FALSE(Painted(builder.Rectangle(0, 0, 10, 10)).isNull());
}

TEST(HostileMetafiles, MayRestoreWithoutSaving)
{
    MetafileBuilder builder(QSize(40, 30));
    builder.Record(0x0127, { 0xFFFF }).Record(0x0127, { 5 }).Record(0x0127, { 0 }).Record(0x0127, { 0x8000 });
    EXPECT_FALSE(Painted(builder).isNull());
}

TEST(HostileMetafiles, WithUnlimitedSavesAreRefused)
{
    MetafileBuilder builder(QSize(40, 30));
    for (int i = 0; i < 2000; ++i)
        builder.Record(0x001E, {});
    EXPECT_TRUE(Painted(builder).isNull());
}

TEST(HostileMetafiles, WithUnlimitedPaintingAreRefused)
{
    MetafileBuilder builder;
    builder.Placeable(0, 0, 8192, 8192, 96).Pen(kNoPen, 0, 0).Select(0);
    for (int i = 0; i < 40; ++i)
        builder.Rectangle(0, 0, 8192, 8192);
    EXPECT_TRUE(Painted(builder).isNull());
}

TEST(HostileMetafiles, WithUnlimitedPatternsAreRefused)
{
    TestDib dib; // a pattern of 16 million pixels in two bytes
    dib.Width = 4096;
    dib.Height = 4096;
    dib.BitCount = 8;
    dib.Compression = 1;
    dib.Colours = { 0 };
    dib.Pixels = QByteArray("\0\1", 2);
    MetafileBuilder one(QSize(40, 30));
    one.Record(0x0142, { 5, 0 }, dib.Bytes());
    EXPECT_FALSE(Painted(one).isNull());
    EXPECT_TRUE(Painted(one.Record(0x0142, { 5, 0 }, dib.Bytes())).isNull());
}

TEST(HostileMetafiles, MayCreateManyObjects)
{
    MetafileBuilder builder(QSize(40, 30));
    for (int i = 0; i < 5000; ++i)
        builder.Brush(0, kRed);
    for (int i = 4999; i >= 0; --i)
        builder.Delete(i);
    builder.Brush(0, kBlue).Select(0);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 20, 20)), 5, 5), 0x0000FFU);
}

TEST(HostileMetafiles, WithUnlimitedOutlinesFarOutsideAreRefused)
{
    const auto arcs = [](int count) { // each far outside the picture, in a record of 22 bytes
        MetafileBuilder builder(QSize(1, 1));
        for (int i = 0; i < count; ++i)
            builder.Record(0x0817, { 0, 5, 9, 0, 32767, 32767, -32768, -32768 });
        return Painted(builder);
    };
    EXPECT_FALSE(arcs(500).isNull());
    EXPECT_TRUE(arcs(2500).isNull());
}

TEST(HostileMetafiles, WithUnlimitedFillsAreRefused)
{
    constexpr int kPoints = 10000;
    ByteWriter points; // above the picture: charged, but not painted
    for (int i = 0; i < kPoints; ++i)
        points.Add16(i / 20).Add16(i % 2 == 0 ? -32768 : -100);
    const auto painted = [&](int function, int pen, int count) {
        MetafileBuilder builder(QSize(500, 800));
        builder.Pen(pen, 1, kRed).Select(0);
        for (int i = 0; i < count; ++i)
            builder.Record(function, { kPoints }, points.Bytes());
        return !Painted(builder).isNull();
    };
    constexpr int kSolid = 0;
    constexpr int kDashed = 1;
    EXPECT_TRUE(painted(0x0324, kSolid, 1));
    EXPECT_FALSE(painted(0x0324, kSolid, 3));
    EXPECT_TRUE(painted(0x0325, kSolid, 3)); // thin lines are cheap
    EXPECT_FALSE(painted(0x0325, kDashed, 3));
}

TEST(HostileMetafiles, WithUnlimitedTextAreRefused)
{
    MetafileBuilder builder(QSize(1, 1));
    builder.Record(0x0521, { 0, 0, 0 });
    EXPECT_FALSE(Painted(builder).isNull());
    for (int i = 0; i < 140000; ++i)
        builder.Record(0x0521, { 0, 0, 0 });
    EXPECT_TRUE(Painted(builder).isNull());
}

TEST(HostileMetafiles, MayHaveHugeWidths)
{
    MetafileBuilder builder(QSize(40, 30));
    builder.Pen(0, 32767, kRed).Select(0).Region({ QRect(0, 0, 5, 5) }).Brush(0, kBlue);
    for (int i = 0; i < 4; ++i)
        builder.Record(0x0412, { 1, 32767, 1, 32767 });
    builder.Rectangle(0, 0, 10, 10).Record(0x0213, { 5, 5 }).Record(0x0325, { 2, 0, 0, 5, 5 });
    builder.Record(0x0429, { 1, 2, 32767, -32768 });
    EXPECT_FALSE(Painted(builder).isNull());
}

TEST(HostileMetafiles, MayMoveClippingVeryFar)
{
    for (const auto& [down, across] : { std::pair(32767, 0), std::pair(0, 32767) }) {
        MetafileBuilder builder(QSize(40, 30));
        builder.Brush(0, kRed).Select(0).Record(0x0416, { 30, 40, 0, 0 }).Record(0x0410, { 32767, 1, 32767, 1 });
        for (int i = 0; i < 200; ++i)
            builder.Record(0x0220, { down, across });
        for (int i = 0; i < 200; ++i)
            builder.Record(0x0220, { -down, -across });
        const QImage picture = Painted(builder.Rectangle(0, 0, 10, 10));
        ASSERT_FALSE(picture.isNull()) << down;
        EXPECT_TRUE(Drawn(picture).isEmpty()) << down;
    }
}

} // namespace tarvik
