// The preview's sheet in pixels: scale, hit test, dragging.
#include "print/preview/sheetPixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tarvik {

namespace {

constexpr QRect kEntry(100, 200, 80, 60); // right 179, bottom 259

Sheet SheetOf(float width, float height)
{
    Sheet sheet;
    sheet.Paper = { width, height };
    return sheet;
}

const QRect kArea(0, 0, 1000, 1000);

QRect Moved(Handle part, QPoint distance)
{
    return Dragged(kEntry, { part, distance, 1, false }, kArea);
}

QRect MovedLocked(Handle part, QPoint distance, double aspect = 2)
{
    return Dragged(kEntry, { part, distance, aspect, true }, kArea);
}

} // namespace

TEST(SheetPixels, PreviewKeepsTheAspectOfThePaper)
{
    EXPECT_EQ(PreviewSize(SheetOf(8, 12), { 1000, 600 }), QSize(400, 600));
    EXPECT_EQ(PreviewSize(SheetOf(8, 12), { 300, 600 }), QSize(300, 450));
    EXPECT_EQ(PreviewSize(SheetOf(12, 8), { 600, 600 }), QSize(600, 400));
    EXPECT_EQ(PreviewSize(SheetOf(8, 12), { 0, 0 }), QSize(1, 1));
}

TEST(SheetPixels, InchesAreCutToPixelsAndBack)
{
    const float scale = PixelsPerInch(SheetOf(8, 12), { 400, 600 });
    EXPECT_EQ(scale, 50);
    EXPECT_EQ(PixelsOf({ 1, 2.019F, 3.99F, 4 }, scale), QRect(50, 100, 199, 200));
    EXPECT_EQ(InchesOf(QRect(50, 100, 200, 25), scale, { 400, 600 }), (SheetRect{ 1, 2, 4, 0.5F }));
}

TEST(SheetPixels, PixelsOutsideTheSheetAreClipped)
{
    EXPECT_EQ(InchesOf(QRect(-50, 550, 100, 100), 50, { 400, 600 }), (SheetRect{ 0, 11, 1, 1 }));
}

TEST(HitTest, TwoPixelsAroundCount)
{
    EXPECT_EQ(HandleAt(kEntry, { 97, 230 }), Handle::Outside);
    EXPECT_EQ(HandleAt(kEntry, { 98, 230 }), Handle::Left);
    EXPECT_EQ(HandleAt(kEntry, { 181, 230 }), Handle::Right);
    EXPECT_EQ(HandleAt(kEntry, { 182, 230 }), Handle::Outside);
    EXPECT_EQ(HandleAt(kEntry, { 140, 197 }), Handle::Outside);
    EXPECT_EQ(HandleAt(kEntry, { 140, 198 }), Handle::Top);
    EXPECT_EQ(HandleAt(kEntry, { 140, 261 }), Handle::Bottom);
    EXPECT_EQ(HandleAt(kEntry, { 140, 262 }), Handle::Outside);
}

TEST(HitTest, EdgesAreSomePixelsWide)
{
    EXPECT_EQ(HandleAt(kEntry, { 102, 230 }), Handle::Left);
    EXPECT_EQ(HandleAt(kEntry, { 103, 230 }), Handle::Inside);
    EXPECT_EQ(HandleAt(kEntry, { 177, 230 }), Handle::Right);
    EXPECT_EQ(HandleAt(kEntry, { 176, 230 }), Handle::Inside);
    EXPECT_EQ(HandleAt(kEntry, { 140, 202 }), Handle::Top);
    EXPECT_EQ(HandleAt(kEntry, { 140, 203 }), Handle::Inside);
    EXPECT_EQ(HandleAt(kEntry, { 140, 257 }), Handle::Bottom);
    EXPECT_EQ(HandleAt(kEntry, { 140, 256 }), Handle::Inside);
}

TEST(HitTest, TwoEdgesAreACorner)
{
    EXPECT_EQ(HandleAt(kEntry, { 100, 200 }), Handle::TopLeft);
    EXPECT_EQ(HandleAt(kEntry, { 179, 200 }), Handle::TopRight);
    EXPECT_EQ(HandleAt(kEntry, { 179, 259 }), Handle::BottomRight);
    EXPECT_EQ(HandleAt(kEntry, { 100, 259 }), Handle::BottomLeft);
}

TEST(HitTest, FrontEntryIsTriedFirstThenTheHighest)
{
    PageRecord page;
    page.Count = 3;
    page.Entries[0].Pixels = { 0, 0, 50, 50 };
    page.Entries[0].Order = 2;
    page.Entries[1].Pixels = { 20, 20, 50, 50 };
    page.Entries[1].Order = 1;
    page.Entries[2].Pixels = { 30, 30, 50, 50 };
    page.Entries[2].Order = 0;
    page.FrontEntry = 1;
    EXPECT_EQ(HitTest(page, { 40, 40 }).Entry, 1);
    EXPECT_EQ(HitTest(page, { 10, 10 }).Entry, 0);
    EXPECT_EQ(HitTest(page, { 75, 75 }).Entry, 2);
    page.FrontEntry = kNoEntry;
    EXPECT_EQ(HitTest(page, { 40, 40 }).Entry, 0);
    EXPECT_EQ(HitTest(page, { 300, 300 }).Entry, kNoEntry);
    EXPECT_EQ(HitTest(page, { 300, 300 }).Part, Handle::Outside);
}

TEST(Handles, AreOnCornersAndSides)
{
    const auto handles = HandlesOf(kEntry);
    EXPECT_EQ(handles[0], QRect(97, 197, 7, 7));
    EXPECT_EQ(handles[1].center(), QPoint(139, 200));
    EXPECT_EQ(handles[4], QRect(176, 256, 7, 7));
    EXPECT_EQ(handles[7].center(), QPoint(100, 229));
    EXPECT_TRUE(
        std::all_of(handles.begin(), handles.end(), [](const QRect& handle) { return handle.size() == QSize(7, 7); }));
}

TEST(Drag, InsideMoves)
{
    EXPECT_EQ(Moved(Handle::Inside, { 5, -7 }), QRect(105, 193, 80, 60));
    EXPECT_EQ(MovedLocked(Handle::Inside, { 5, -7 }), QRect(105, 193, 80, 60));
    EXPECT_EQ(Moved(Handle::Outside, { 5, 5 }), kEntry);
}

TEST(Drag, EdgesMoveTheirSide)
{
    EXPECT_EQ(Moved(Handle::Top, { 9, -10 }), QRect(100, 190, 80, 70));
    EXPECT_EQ(Moved(Handle::Bottom, { 9, 10 }), QRect(100, 200, 80, 70));
    EXPECT_EQ(Moved(Handle::Right, { 10, 9 }), QRect(100, 200, 90, 60));
    EXPECT_EQ(Moved(Handle::Left, { 10, 9 }), QRect(110, 200, 70, 60));
}

TEST(Drag, LockedEdgesTakeTheOtherAxisAlong)
{
    EXPECT_EQ(MovedLocked(Handle::Top, { 0, -10 }), QRect(100, 190, 100, 70));
    EXPECT_EQ(MovedLocked(Handle::Bottom, { 0, 10 }), QRect(100, 200, 100, 70));
    EXPECT_EQ(MovedLocked(Handle::Right, { 10, 0 }), QRect(100, 200, 90, 65));
    EXPECT_EQ(MovedLocked(Handle::Left, { 10, 0 }), QRect(110, 200, 70, 55));
}

TEST(Drag, CornersMoveBothSides)
{
    EXPECT_EQ(Moved(Handle::TopLeft, { -10, -5 }), QRect(90, 195, 90, 65));
    EXPECT_EQ(Moved(Handle::TopRight, { 10, -5 }), QRect(100, 195, 90, 65));
    EXPECT_EQ(Moved(Handle::BottomRight, { 10, 5 }), QRect(100, 200, 90, 65));
    EXPECT_EQ(Moved(Handle::BottomLeft, { -10, 5 }), QRect(90, 200, 90, 65));
}

TEST(Drag, LockedCornersFollowTheLargerMovement)
{
    EXPECT_EQ(MovedLocked(Handle::BottomRight, { 10, 2 }), QRect(100, 200, 90, 65));
    EXPECT_EQ(MovedLocked(Handle::BottomRight, { 2, 10 }), QRect(100, 200, 100, 70));
    EXPECT_EQ(MovedLocked(Handle::BottomRight, { 10, 10 }), QRect(100, 200, 100, 70)) << "the height leads";
    EXPECT_EQ(MovedLocked(Handle::TopLeft, { -10, -2 }), QRect(90, 195, 90, 65));
    EXPECT_EQ(MovedLocked(Handle::TopRight, { 2, -10 }), QRect(100, 190, 100, 70));
    EXPECT_EQ(MovedLocked(Handle::BottomLeft, { -10, 2 }), QRect(90, 200, 90, 65));
}

TEST(Drag, EightPixelsAreTheLeast)
{
    EXPECT_EQ(Moved(Handle::Right, { -100, 0 }), QRect(100, 200, 8, 60));
    EXPECT_EQ(Moved(Handle::Left, { 100, 0 }), QRect(172, 200, 8, 60));
    EXPECT_EQ(Moved(Handle::Top, { 0, 100 }), QRect(100, 252, 80, 8));
    EXPECT_EQ(MovedLocked(Handle::BottomRight, { 0, -58 }), QRect(100, 200, 8, 8));
}

TEST(Drag, StepOutsideTheAreaIsRefused)
{
    const QRect area(100, 200, 100, 100);
    const auto move = [&area](Handle part, QPoint distance) {
        return Dragged(kEntry, { part, distance, 1, false }, area);
    };
    EXPECT_EQ(move(Handle::Inside, { -1, 0 }), kEntry);
    EXPECT_EQ(move(Handle::Inside, { 20, 40 }), QRect(120, 240, 80, 60));
    EXPECT_EQ(move(Handle::Inside, { 21, 0 }), kEntry);
    EXPECT_EQ(move(Handle::Bottom, { 0, 41 }), kEntry);
    EXPECT_EQ(move(Handle::Top, { 0, -1 }), kEntry);
}

TEST(SheetPixels, PixelsAroundAnAreaHoldThoseOfWhatIsInIt)
{
    EXPECT_EQ(PixelsAround({ 1, 1, 2, 1 }, 50), QRect(50, 50, 100, 50));
    const SheetRect area{ 0.249F, 0.249F, 0.999F, 0.999F };
    const QRect around = PixelsAround(area, 47.3F);
    for (int step = 0; step < 100; ++step) {
        const float left = area.Left + 0.005F * static_cast<float>(step);
        const SheetRect inside{ left, left, area.Right() - left, area.Bottom() - left };
        EXPECT_TRUE(around.contains(PixelsOf(inside, 47.3F))) << step;
    }
}

} // namespace tarvik
