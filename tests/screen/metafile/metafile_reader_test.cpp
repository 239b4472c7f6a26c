// Lines and shapes, and the attributes set by records.
#include "screen/metafile/metafileReader.h"
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

constexpr QRgb kRgbRed = 0xFF0000;
constexpr QRgb kRgbGreen = 0x00FF00;
constexpr QRgb kRgbBlue = 0x0000FF;
constexpr QRgb kRgbBlack = 0x000000;
constexpr QRgb kRgbWhite = 0xFFFFFF;

/// 40 by 30 pixels.
MetafileBuilder Small()
{
    return MetafileBuilder(QSize(40, 30));
}

/// A selected solid brush without pen.
MetafileBuilder WithBrush(int colour)
{
    return Small().Pen(kNoPen, 0, 0).Brush(0, colour).Select(0).Select(1);
}

/// A selected thin pen without brush.
MetafileBuilder WithPen(int style, int width, int colour)
{
    return Small().Pen(style, width, colour).Brush(kHollow, 0).Select(0).Select(1);
}

MetafileBuilder& Line(MetafileBuilder& builder, QPoint from, QPoint to)
{
    return builder.Record(0x0214, { from.y(), from.x() }).Record(0x0213, { to.y(), to.x() });
}

} // namespace

TEST(MetafileReader, PaintsOnBackground)
{
    const auto picture = ReadMetafile(Small().Bytes(), QColor(10, 20, 30));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->format(), QImage::Format_RGB32);
    EXPECT_EQ(picture->size(), QSize(40, 30));
    EXPECT_EQ(Count(*picture, qRgb(10, 20, 30) & 0xFFFFFF), 40 * 30);
}

TEST(MetafileReader, StartsWithBlackPenAndWhiteBrush)
{
    const auto picture = ReadMetafile(Small().Rectangle(5, 5, 15, 15).Bytes(), Qt::gray);
    ASSERT_TRUE(picture);
    EXPECT_EQ(At(*picture, 5, 5), kRgbBlack);
    EXPECT_EQ(At(*picture, 10, 10), kRgbWhite);
}

TEST(MetafileReader, SkipsUnknownRecords)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x0626, { 15, 4, 1, 2 }).Record(0x7777, {}).Rectangle(0, 0, 40, 30);
    EXPECT_EQ(At(Painted(builder), 20, 20), kRgbRed);
}

TEST(MetafileLines, ExcludeLastPixel)
{
    MetafileBuilder builder = WithPen(0, 0, kRed);
    const QImage picture = Painted(Line(builder, { 5, 7 }, { 15, 7 }));
    EXPECT_EQ(Drawn(picture), QRect(5, 7, 10, 1));
    EXPECT_EQ(Count(picture, kRgbRed), 10);
}

TEST(MetafileLines, ContinueAtCurrentPosition)
{
    MetafileBuilder builder = WithPen(0, 0, kRed);
    Line(builder, { 5, 5 }, { 15, 5 }).Record(0x0213, { 12, 15 });
    EXPECT_EQ(Drawn(Painted(builder)), QRect(5, 5, 11, 7));
}

TEST(MetafileLines, WideLinesCoverBothSides)
{
    MetafileBuilder builder = WithPen(0x0200, 5, kBlue);
    const QImage picture = Painted(Line(builder, { 5, 10 }, { 30, 10 }));
    EXPECT_EQ(Drawn(picture).top(), 8);
    EXPECT_EQ(Drawn(picture).height(), 5);
}

TEST(MetafileLines, WideLinesAreExtendedByRoundAndSquareCaps)
{
    MetafileBuilder flat = WithPen(0x0200, 6, kBlue);
    MetafileBuilder square = WithPen(0x0100, 6, kBlue);
    MetafileBuilder round = WithPen(0, 6, kBlue);
    const QImage flatPicture = Painted(Line(flat, { 10, 10 }, { 20, 10 }));
    const QImage squarePicture = Painted(Line(square, { 10, 10 }, { 20, 10 }));
    const QImage roundPicture = Painted(Line(round, { 10, 10 }, { 20, 10 }));
    EXPECT_EQ(Drawn(flatPicture).width(), 10);
    EXPECT_EQ(Drawn(squarePicture).width(), 16);
    EXPECT_GT(Count(squarePicture, kRgbBlue), Count(roundPicture, kRgbBlue));
    EXPECT_GT(Count(roundPicture, kRgbBlue), Count(flatPicture, kRgbBlue));
}

TEST(MetafileLines, WidthsAreScaled)
{
    MetafileBuilder builder = WithPen(0x0200, 60, kBlue);
    builder.Window(0, 0, 400, 300);
    EXPECT_EQ(Drawn(Painted(Line(builder, { 100, 100 }, { 300, 100 }))).height(), 6);
}

TEST(MetafileLines, AreNotDrawnByNullPen)
{
    MetafileBuilder builder = WithPen(kNoPen, 1, kRed);
    EXPECT_TRUE(Drawn(Painted(Line(builder, { 5, 5 }, { 15, 5 }))).isEmpty());
}

TEST(MetafileLines, DashesLeaveGaps)
{
    MetafileBuilder builder = WithPen(1, 1, kRed);
    builder.Record(0x0102, { 1 }).Record(0x0201, { kGreen, 0 });
    const QImage picture = Painted(Line(builder, { 0, 5 }, { 40, 5 }));
    EXPECT_EQ(At(picture, 17, 5), kRgbRed);
    EXPECT_EQ(At(picture, 20, 5), kRgbWhite);
    EXPECT_EQ(At(picture, 26, 5), kRgbRed);
}

TEST(MetafileLines, GapsShowBackgroundColourUnlessTransparent)
{
    MetafileBuilder builder = WithPen(1, 1, kRed);
    builder.Record(0x0102, { 2 }).Record(0x0201, { kGreen, 0 });
    const QImage picture = Painted(Line(builder, { 0, 5 }, { 40, 5 }));
    EXPECT_EQ(At(picture, 17, 5), kRgbRed);
    EXPECT_EQ(At(picture, 20, 5), kRgbGreen);
}

TEST(MetafileLines, StylesDiffer)
{
    QVector<int> painted;
    for (int style = 0; style <= 4; ++style) {
        MetafileBuilder builder = WithPen(style, 1, kRed);
        builder.Record(0x0102, { 1 });
        painted.append(Count(Painted(Line(builder, { 0, 5 }, { 39, 5 })), kRgbRed));
    }
    EXPECT_EQ(painted, QVector<int>({ 39, 33, 21, 21, 27 }));
}

TEST(MetafileLines, PolylinesStayOpen)
{
    MetafileBuilder builder = WithPen(0, 0, kRed);
    builder.Record(0x0325, { 3, 5, 5, 15, 5, 15, 15 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 10, 5), kRgbRed);
    EXPECT_EQ(At(picture, 15, 10), kRgbRed);
    EXPECT_EQ(At(picture, 10, 10), kRgbWhite);
}

TEST(MetafileLines, SinglePixelsAreSet)
{
    MetafileBuilder builder = Small();
    builder.Record(0x041F, { kGreen, 0, 7, 9 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 9, 7), kRgbGreen);
    EXPECT_EQ(Count(picture, kRgbGreen), 1);
}

TEST(MetafileShapes, RectanglesExcludeSecondCorner)
{
    EXPECT_EQ(Drawn(Painted(WithPen(0, 0, kRed).Rectangle(5, 6, 15, 26))), QRect(5, 6, 10, 20));
}

TEST(MetafileShapes, RectanglesWithoutPenAreOnePixelSmaller)
{
    EXPECT_EQ(Drawn(Painted(WithBrush(kRed).Rectangle(5, 6, 15, 26))), QRect(5, 6, 9, 19));
}

TEST(MetafileShapes, EmptyShapesAreNotDrawn)
{
    EXPECT_TRUE(Drawn(Painted(WithPen(0, 0, kRed).Rectangle(5, 6, 5, 26))).isEmpty());
}

TEST(MetafileShapes, HollowBrushKeepsInside)
{
    const QImage picture = Painted(WithPen(0, 0, kRed).Rectangle(5, 5, 15, 15));
    EXPECT_EQ(Count(picture, kRgbRed), 4 * 9);
}

TEST(MetafileShapes, InsideFramePenStaysWithinFigure)
{
    EXPECT_EQ(Drawn(Painted(WithPen(6, 5, kRed).Rectangle(10, 10, 30, 25))), QRect(10, 10, 20, 15));
}

TEST(MetafileShapes, EllipsesTouchBoundingRectangle)
{
    MetafileBuilder builder = WithPen(0, 0, kRed);
    builder.Record(0x0418, { 25, 31, 4, 10 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(Drawn(picture), QRect(10, 4, 21, 21));
    EXPECT_EQ(At(picture, 20, 14), kRgbWhite);
    EXPECT_EQ(At(picture, 10, 4), kRgbWhite);
}

TEST(MetafileShapes, RoundRectanglesHaveNoCorners)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x061C, { 12, 12, 25, 31, 4, 10 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 10, 4), kRgbWhite);
    EXPECT_EQ(At(picture, 20, 4), kRgbRed);
    EXPECT_EQ(At(picture, 10, 14), kRgbRed);
}

TEST(MetafileShapes, ArcsRunCounterClockwiseFromFirstRay)
{
    // From the right to the top of a circle around (20, 15).
    MetafileBuilder builder = WithPen(0, 0, kRed);
    builder.Record(0x0817, { 0, 20, 15, 40, 26, 31, 5, 10 });
    const QRect drawn = Drawn(Painted(builder));
    EXPECT_GE(drawn.left(), 19);
    EXPECT_LE(drawn.bottom(), 16);
}

TEST(MetafileShapes, ArcsWithoutAngleAreFullCircles)
{
    MetafileBuilder builder = WithPen(0, 0, kRed);
    builder.Record(0x0817, { 15, 40, 15, 40, 26, 31, 5, 10 });
    EXPECT_EQ(Drawn(Painted(builder)), QRect(10, 5, 21, 21));
}

TEST(MetafileShapes, PiesReachCentreAndChordsDoNot)
{
    const std::initializer_list<int> quarter{ 0, 20, 15, 40, 26, 31, 5, 10 };
    const QImage pie = Painted(WithBrush(kRed).Record(0x081A, quarter));
    const QImage chord = Painted(WithBrush(kRed).Record(0x0830, quarter));
    EXPECT_EQ(At(pie, 22, 13), kRgbRed);
    EXPECT_EQ(At(chord, 22, 13), kRgbWhite);
    EXPECT_EQ(At(pie, 26, 9), kRgbRed);
    EXPECT_EQ(At(chord, 26, 9), kRgbRed);
}

TEST(MetafileShapes, PolygonsAreClosedAndFilled)
{
    MetafileBuilder builder = WithBrush(kBlue);
    builder.Record(0x0324, { 3, 0, 0, 20, 0, 0, 20 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 5, 5), kRgbBlue);
    EXPECT_EQ(At(picture, 15, 15), kRgbWhite);
}

TEST(MetafileShapes, FillRuleAffectsInnermostPart)
{
    // A five-pointed star.
    const std::initializer_list<int> star{ 5, 20, 1, 27, 25, 8, 10, 32, 10, 13, 25 };
    const QImage alternate = Painted(WithBrush(kBlue).Record(0x0106, { 1 }).Record(0x0324, star));
    const QImage winding = Painted(WithBrush(kBlue).Record(0x0106, { 2 }).Record(0x0324, star));
    EXPECT_EQ(At(alternate, 20, 14), kRgbWhite);
    EXPECT_EQ(At(winding, 20, 14), kRgbBlue);
}

TEST(MetafileShapes, PolyPolygonsHaveHoles)
{
    MetafileBuilder builder = WithBrush(kBlue);
    builder.Record(0x0538, { 2, 4, 4, 2, 2, 30, 2, 30, 25, 2, 25, 10, 8, 20, 8, 20, 18, 10, 18 });
    const QImage picture = Painted(builder);
    EXPECT_EQ(At(picture, 5, 5), kRgbBlue);
    EXPECT_EQ(At(picture, 15, 12), kRgbWhite);
    EXPECT_EQ(At(picture, 25, 20), kRgbBlue);
}

TEST(MetafileBrushes, HatchesShowBackgroundColourUnlessTransparent)
{
    MetafileBuilder opaque = Small().Pen(kNoPen, 0, 0).Brush(kHatched, kRed, 0).Select(0).Select(1);
    opaque.Record(0x0201, { kGreen, 0 });
    MetafileBuilder clear = opaque;
    const QImage filled = Painted(opaque.Rectangle(0, 0, 41, 31));
    const QImage lines = Painted(clear.Record(0x0102, { 1 }).Rectangle(0, 0, 41, 31));
    EXPECT_EQ(Count(filled, kRgbRed), Count(lines, kRgbRed));
    EXPECT_EQ(Count(filled, kRgbGreen), 40 * 30 - Count(filled, kRgbRed));
    EXPECT_EQ(Count(lines, kRgbWhite), 40 * 30 - Count(lines, kRgbRed));
}

TEST(MetafileBrushes, HatchesHaveTheirDirections)
{
    QVector<QImage> hatches;
    for (int hatch = 0; hatch < 6; ++hatch) {
        MetafileBuilder builder = Small().Pen(kNoPen, 0, 0).Brush(kHatched, kRed, hatch).Select(0).Select(1);
        hatches.append(Painted(builder.Rectangle(0, 0, 41, 31)).copy(0, 0, 16, 16));
    }
    EXPECT_EQ(At(hatches[0], 0, 3), At(hatches[0], 7, 3)); // horizontal
    EXPECT_EQ(At(hatches[1], 4, 0), kRgbRed); // vertical
    EXPECT_EQ(At(hatches[1], 4, 7), kRgbRed);
    EXPECT_EQ(At(hatches[2], 0, 0), kRgbRed); // falling to the right
    EXPECT_EQ(At(hatches[2], 5, 5), kRgbRed);
    EXPECT_EQ(At(hatches[3], 0, 7), kRgbRed); // rising
    EXPECT_EQ(At(hatches[3], 5, 2), kRgbRed);
    EXPECT_EQ(Count(hatches[4], kRgbRed), 4 * (8 + 7)); // cross
    EXPECT_EQ(Count(hatches[5], kRgbRed), 4 * 16); // diagonal cross
}

TEST(MetafileBrushes, PatternsRepeat)
{
    QImage pattern(2, 2, QImage::Format_RGB32);
    pattern.fill(Qt::red);
    pattern.setPixel(1, 0, 0xFF0000FF);
    MetafileBuilder builder = Small().Pen(kNoPen, 0, 0).Record(0x0142, { 5, 0 }, DibOf(pattern)).Select(0).Select(1);
    const QImage picture = Painted(builder.Rectangle(0, 0, 41, 31));
    EXPECT_EQ(At(picture, 0, 0), kRgbRed);
    EXPECT_EQ(At(picture, 1, 0), kRgbBlue);
    EXPECT_EQ(At(picture, 21, 10), kRgbBlue);
    EXPECT_EQ(Count(picture, kRgbBlue), 40 * 30 / 4);
}

TEST(MetafileBrushes, MonochromePatternsUseTextAndBackgroundColour)
{
    TestDib dib;
    dib.Width = 8;
    dib.BitCount = 1;
    dib.Colours = { 0xFF000000, 0xFFFFFFFF };
    dib.Pixels = QByteArray("\xF0\0\0\0", 4);
    MetafileBuilder builder = Small().Pen(kNoPen, 0, 0).Record(0x0142, { 3, 0 }, dib.Bytes()).Select(0).Select(1);
    builder.Record(0x0209, { kRed, 0 }).Record(0x0201, { kGreen, 0 });
    const QImage picture = Painted(builder.Rectangle(0, 0, 41, 31));
    EXPECT_EQ(At(picture, 0, 0), kRgbGreen);
    EXPECT_EQ(At(picture, 4, 0), kRgbRed);
}

TEST(MetafileBrushes, DeviceBitmapPatternsAreTheSame)
{
    ByteWriter pattern;
    pattern.Add16(0).Add16(8).Add16(1).Add16(2).Add8(1).Add8(1).Add32(0).Add(QByteArray(18, '\0'));
    pattern.Add8(0xF0).Add8(0);
    MetafileBuilder builder = Small().Pen(kNoPen, 0, 0).Record(0x01F9, {}, pattern.Bytes()).Select(0).Select(1);
    builder.Record(0x0209, { kRed, 0 }).Record(0x0201, { kGreen, 0 });
    const QImage picture = Painted(builder.Rectangle(0, 0, 41, 31));
    EXPECT_EQ(At(picture, 0, 0), kRgbGreen);
    EXPECT_EQ(At(picture, 4, 0), kRgbRed);
}

TEST(MetafileRop2, CombinesWithPicture)
{
    const std::pair<int, QRgb> mixes[] = { { 1, 0x000000 }, { 2, 0x000F0F }, { 3, 0x0F0000 }, { 4, 0x0F0F0F },
        { 6, 0x0FF0FF }, { 7, 0xFF0FF0 }, { 9, 0xF00000 }, { 11, 0xF0F000 }, { 13, 0xF0F0F0 }, { 15, 0xFFFFF0 },
        { 16, 0xFFFFFF } };
    for (const auto& [mix, unused] : mixes) {
        MetafileBuilder builder = WithBrush(0xF0F0F0);
        builder.Record(0x0104, { mix }).Rectangle(0, 0, 41, 31);
        const auto picture = ReadMetafile(builder.Bytes(), QColor(0x0F, 0xF0, 0xAA));
        ASSERT_TRUE(picture);
        QRgb expected = 0;
        for (int term = 0; term < 4; ++term) {
            const QRgb paint = (term & 2) != 0 ? 0xF0F0F0U : ~0xF0F0F0U;
            const QRgb under = (term & 1) != 0 ? 0x0FF0AAU : ~0x0FF0AAU;
            expected |= (mix - 1) >> term & 1 ? paint & under : 0;
        }
        EXPECT_EQ(At(*picture, 20, 20), expected & 0xFFFFFF) << mix;
    }
}

TEST(MetafileState, IsSavedAndRestored)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Brush(0, kBlue).Record(0x001E, {}).Select(2).Window(0, 0, 4, 3).Record(0x0127, { 0xFFFF });
    const QImage picture = Painted(builder.Rectangle(0, 0, 10, 10));
    EXPECT_EQ(At(picture, 5, 5), kRgbRed);
    EXPECT_EQ(At(picture, 20, 20), kRgbWhite);
}

TEST(MetafileState, CanBeRestoredByLevel)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Brush(0, kBlue).Brush(0, kGreen).Record(0x001E, {}).Select(2).Record(0x001E, {}).Select(3);
    builder.Record(0x0127, { 1 }).Record(0x0127, { 0xFFFF });
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), kRgbRed);
}

TEST(MetafileObjects, UseLowestFreeIndex)
{
    MetafileBuilder builder = WithBrush(kRed); // objects 0 and 1
    builder.Brush(0, kBlue).Brush(0, kGreen).Delete(3).Delete(2).Brush(0, kBlack).Select(2);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), kRgbBlack);
}

TEST(MetafileObjects, StaySelectedAfterDeletion)
{
    EXPECT_EQ(At(Painted(WithBrush(kRed).Delete(1).Brush(0, kBlue).Rectangle(0, 0, 10, 10)), 5, 5), kRgbRed);
}

TEST(MetafileObjects, UnusedIndexesAreIgnored)
{
    EXPECT_EQ(At(Painted(WithBrush(kRed).Select(77).Delete(99).Rectangle(0, 0, 10, 10)), 5, 5), kRgbRed);
}

TEST(MetafileMapping, ScalesWindowToPicture)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Window(100, 200, 400, 300).Rectangle(200, 300, 300, 400);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(10, 10, 9, 9));
}

TEST(MetafileMapping, UsesPlaceableFrameWithoutWindow)
{
    MetafileBuilder builder;
    builder.Placeable(1000, 1000, 2000, 2000, 960).Rectangle(1500, 1500, 2000, 2000);
    const QImage picture = Painted(builder);
    EXPECT_EQ(picture.size(), QSize(100, 100));
    EXPECT_EQ(Drawn(picture), QRect(50, 50, 50, 50));
}

TEST(MetafileMapping, CanPointUpwards)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Window(0, 30, 40, -30).Rectangle(0, 0, 10, 10);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(0, 20, 9, 9));
}

TEST(MetafileMapping, OffsetsAndScalesAccumulate)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x020F, { 5, 10 }).Record(0x0211, { 2, 1 }).Record(0x0410, { 2, 1, 2, 1 });
    builder.Rectangle(10, 5, 14, 10);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(1, 2, 7, 9));
}

TEST(MetafileMapping, ViewportsAreInPixels)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x020E, { 15, 20 }).Record(0x020D, { 3, 4 }).Rectangle(0, 0, 40, 30);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(4, 3, 19, 14));
}

TEST(MetafileMapping, KeepsAspectInIsotropicMode)
{
    MetafileBuilder builder = WithBrush(kRed);
    builder.Record(0x0103, { 7 }).Window(0, 0, 40, 60).Rectangle(0, 0, 40, 60);
    EXPECT_EQ(Drawn(Painted(builder)), QRect(0, 0, 19, 29));
}

TEST(MetafileMapping, OfPhysicalUnitsPointsUpwards)
{
    MetafileBuilder builder;
    builder.Record(0x0103, { 4 }).Rectangle(0, 0, 100, 100).Pen(kNoPen, 0, 0).Brush(0, kRed).Select(0).Select(1);
    builder.Rectangle(0, 0, 50, 50);
    const QImage picture = Painted(builder);
    EXPECT_EQ(picture.size(), QSize(96, 96));
    EXPECT_EQ(At(picture, 10, 80), kRgbRed);
    EXPECT_NE(At(picture, 10, 10), kRgbRed);
}

TEST(MetafilePalettes, ResolveColourIndexes)
{
    MetafileBuilder builder = Small();
    builder.Record(0x00F7, { 0x0300, 2, 0, 0, 0x2211, 0x0033 }).Record(0x0234, { 0 }).Record(0x0035, {});
    builder.Record(0x02FC, { 0, 1, 0x0100, 0 }).Pen(kNoPen, 0, 0).Select(1).Select(2);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), 0x112233U);
}

TEST(MetafilePalettes, CanBeChangedWhileSelected)
{
    MetafileBuilder builder = Small();
    builder.Record(0x00F7, { 0x0300, 1, 0, 0 }).Record(0x0234, { 0 }).Record(0x0139, { 2 });
    builder.Record(0x0037, { 1, 1, 0x5544, 0x0066 });
    builder.Record(0x02FC, { 0, 1, 0x0100, 0 }).Pen(kNoPen, 0, 0).Select(1).Select(2);
    EXPECT_EQ(At(Painted(builder.Rectangle(0, 0, 10, 10)), 5, 5), 0x445566U);
}

} // namespace tarvik
