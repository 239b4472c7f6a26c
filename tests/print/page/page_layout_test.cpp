// Rectangles on a sheet: margins, shares, aspect, fitting.
#include "print/page/pageLayout.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

constexpr float kNear = 1e-5F;

Sheet SheetOf(float width, float height, float offset)
{
    Sheet sheet;
    sheet.Paper = { width, height };
    sheet.Offset = { offset, offset };
    sheet.DotsPerInch = { 300, 300 };
    return sheet;
}

void ExpectNear(const SheetRect& actual, const SheetRect& expected)
{
    EXPECT_NEAR(actual.Left, expected.Left, kNear);
    EXPECT_NEAR(actual.Top, expected.Top, kNear);
    EXPECT_NEAR(actual.Width, expected.Width, kNear);
    EXPECT_NEAR(actual.Height, expected.Height, kNear);
}

void ExpectNear(const PageMargins& actual, const PageMargins& expected)
{
    EXPECT_NEAR(actual.Left, expected.Left, kNear);
    EXPECT_NEAR(actual.Top, expected.Top, kNear);
    EXPECT_NEAR(actual.Right, expected.Right, kNear);
    EXPECT_NEAR(actual.Bottom, expected.Bottom, kNear);
}

constexpr WindowExtent kScreen{ WindowType::Screen, { 640, 480 }, 0 };
constexpr WindowExtent kDataSet{ WindowType::DataSet, { 640, 480 }, 0 };

} // namespace

TEST(Margins, AreAtLeastTheOffset)
{
    Sheet sheet = SheetOf(8, 12, 0.25F);
    sheet.Offset.Y = 0.5F;
    ExpectNear(RepairedMargins({}, sheet), { 0.25F, 0.5F, 0.25F, 0.5F });
    ExpectNear(RepairedMargins({ 1, 0.75F, 0.3F, 2 }, sheet), { 1, 0.75F, 0.3F, 2 });
}

TEST(Margins, ShrinkInStepsUntilTwoInchesRemain)
{
    const Sheet sheet = SheetOf(8, 12, 0.25F);
    ExpectNear(RepairedMargins({ 3.05F, 1, 3, 1 }, sheet), { 2.95F, 1, 2.9F, 1 });
    ExpectNear(RepairedMargins({ 3, 5, 3, 5 }, sheet), { 3, 5, 3, 5 });
    ExpectNear(RepairedMargins({ 1, 5.25F, 1, 5 }, sheet), { 1, 5.05F, 1, 4.8F });
}

TEST(Margins, ShrinkNoFurtherThanTheOffset)
{
    const Sheet sheet = SheetOf(8, 12, 0.25F);
    ExpectNear(RepairedMargins({ 9, 1, 0.3F, 1 }, sheet), { 5.7F, 1, 0.25F, 1 });
}

TEST(Margins, EndAtTheOffsetOnATinySheet)
{
    const Sheet sheet = SheetOf(2.2F, 1, 0.25F);
    ExpectNear(RepairedMargins({ 4, 4, 4, 4 }, sheet), { 0.25F, 0.25F, 0.25F, 0.25F });
}

TEST(Shares, TitleOfAScreenTakesHalf)
{
    const EntryShares screen = SharesOf(kScreen, true);
    EXPECT_NEAR(screen.Title, 9.0F / 489, kNear);
    EXPECT_NEAR(screen.Picture, 480.0F / 489, kNear);
    EXPECT_EQ(screen.Description, 0);
    EXPECT_EQ(screen.Status, 0);
    const EntryShares dataSet = SharesOf(kDataSet, true);
    EXPECT_NEAR(dataSet.Title, 18.0F / 498, kNear);
    EXPECT_NEAR(dataSet.Picture, 480.0F / 498, kNear);
}

TEST(Shares, TitleOffGivesThePictureItsShare)
{
    EXPECT_EQ(SharesOf(kScreen, false).Title, 0);
    EXPECT_EQ(SharesOf(kScreen, false).Picture, 1);
}

TEST(Shares, DescriptionHasItsHeight)
{
    const EntryShares shares = SharesOf({ WindowType::Screen, { 100, 60 }, 40 }, false);
    EXPECT_NEAR(shares.Picture, 0.6F, kNear);
    EXPECT_NEAR(shares.Description, 0.4F, kNear);
}

TEST(Shares, WindowWithoutHeightIsAllPicture)
{
    const EntryShares shares = SharesOf({ WindowType::Screen, {}, 0 }, false);
    EXPECT_EQ(shares.Picture, 1);
    EXPECT_EQ(AspectOf({ WindowType::Screen, {}, 0 }, shares), 1);
}

TEST(Shares, AspectIsOfTheWholeEntry)
{
    EXPECT_NEAR(AspectOf(kScreen, SharesOf(kScreen, false)), 640.0F / 480, kNear);
    EXPECT_NEAR(AspectOf(kScreen, SharesOf(kScreen, true)), 640.0F / 489, kNear);
    const WindowExtent described{ WindowType::Screen, { 100, 60 }, 40 };
    EXPECT_NEAR(AspectOf(described, SharesOf(described, false)), 1, kNear);
}

TEST(FullPage, MarginIsATenthOfTheShorterSide)
{
    EXPECT_NEAR(FullPageMargin(SheetOf(8, 12, 0.25F)), 0.8F, kNear);
    EXPECT_NEAR(FullPageMargin(SheetOf(12, 8, 0.25F)), 0.8F, kNear);
}

TEST(FullPage, MarginIsAtLeastTheOffsetOfTheXAxis)
{
    Sheet sheet = SheetOf(8, 12, 0.9F);
    EXPECT_NEAR(FullPageMargin(sheet), 0.9F, kNear);
    sheet.Offset = { 0.25F, 3 };
    EXPECT_NEAR(FullPageMargin(sheet), 0.8F, kNear);
}

TEST(FullPage, RectangleTakesTheWidthOrTheHeight)
{
    ExpectNear(DefaultRectangle(SheetOf(8, 12, 0.25F), 2), { 0.8F, 0.8F, 6.4F, 3.2F });
    ExpectNear(DefaultRectangle(SheetOf(8, 12, 0.25F), 0.5F), { 0.8F, 0.8F, 5.2F, 10.4F });
    ExpectNear(DefaultRectangle(SheetOf(12, 8, 0.25F), 1), { 0.8F, 0.8F, 6.4F, 6.4F });
}

TEST(Fitting, HeightFollowsFromWidth)
{
    const SheetRect area{ 1, 1, 6, 10 };
    ExpectNear(Fitted({ 2, 2, 4, 4 }, 2, true, area), { 2, 2, 4, 2 });
    ExpectNear(Fitted({ 2, 2, 4, 4 }, 2, false, area), { 2, 2, 4, 4 });
}

TEST(Fitting, TooWideOrTooHighShrinks)
{
    const SheetRect area{ 1, 1, 6, 10 };
    ExpectNear(Fitted({ 1, 1, 12, 6 }, 2, true, area), { 1, 1, 6, 3 });
    ExpectNear(Fitted({ 1, 1, 12, 6 }, 2, false, area), { 1, 1, 6, 6 });
    ExpectNear(Fitted({ 1, 1, 6, 1 }, 0.5F, true, area), { 1, 1, 5, 10 });
    ExpectNear(Fitted({ 1, 1, 3, 20 }, 2, false, area), { 1, 1, 3, 10 });
    ExpectNear(Fitted({ 1, 1, 60, 1 }, 0.25F, true, area), { 1, 1, 2.5F, 10 });
}

TEST(Fitting, MovesIntoTheArea)
{
    const SheetRect area{ 1, 1, 6, 10 };
    ExpectNear(Fitted({ 0, -5, 4, 2 }, 2, true, area), { 1, 1, 4, 2 });
    ExpectNear(Fitted({ 5, 10, 4, 2 }, 2, true, area), { 3, 9, 4, 2 });
}

TEST(Fitting, AreaIsInsideTheMargins)
{
    ExpectNear(PrintableArea(SheetOf(8, 12, 0.25F), { 1, 2, 0.5F, 3 }), { 1, 2, 6.5F, 7 });
}

TEST(Device, RectangleIsInDotsAndInset)
{
    Sheet sheet = SheetOf(8, 12, 0.25F);
    sheet.DotsPerInch.Y = 600;
    sheet.Offset.Y = 0.5F;
    EXPECT_EQ(DeviceRectangle({ 1, 2, 3, 4 }, sheet), QRect(225, 900, 890, 2390));
}

} // namespace tarvik
