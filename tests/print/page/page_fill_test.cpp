// Which windows a page takes, and where it places them.
#include "print/page/pageFill.h"

#include "print/page/pageLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarvik {

namespace {

constexpr float kNear = 1e-5F;
constexpr qint32 kDataSetSlot = 1;
constexpr qint32 kScreenSlot = 2;

/// A square picture, so that an entry without a title is square.
PageWindow Screen(WindowId id)
{
    return { id, { WindowType::Screen, { 100, 100 }, 0 } };
}

PageWindow DataSet(WindowId id)
{
    return { id, { WindowType::DataSet, { 100, 100 }, 0 } };
}

PageSlot Slot(qint32 type, const IniRect& rectangle = {}, qint32 order = 0)
{
    PageSlot slot;
    slot.Type = type;
    slot.Rectangle = rectangle;
    slot.Title = false;
    slot.Order = order;
    return slot;
}

std::vector<WindowId> Ids(const std::vector<PageWindow>& windows)
{
    std::vector<WindowId> ids;
    for (const PageWindow& window : windows)
        ids.push_back(window.Id);
    return ids;
}

using WindowIds = std::vector<WindowId>;

class PageFill : public testing::Test {
protected:
    PageFill()
    {
        sheet.Paper = { 8, 12 };
        sheet.Offset = { 0.25F, 0.25F };
    }

    void Fill(const std::vector<PageWindow>& windows)
    {
        FillPage(page, windows, sheet, defaults);
    }

    const PageEntry& Entry(size_t index) const
    {
        return page.Entries[index];
    }

    void ExpectPlace(size_t index, const SheetRect& expected)
    {
        EXPECT_NEAR(Entry(index).Rectangle.Left, expected.Left, kNear) << index;
        EXPECT_NEAR(Entry(index).Rectangle.Top, expected.Top, kNear) << index;
        EXPECT_NEAR(Entry(index).Rectangle.Width, expected.Width, kNear) << index;
        EXPECT_NEAR(Entry(index).Rectangle.Height, expected.Height, kNear) << index;
    }

    PageRecord page;
    Sheet sheet;
    EntryDefaults defaults{ true, false };
};

} // namespace

TEST(TakePage, TakesEachTypeWhileItHasSlots)
{
    PageSlots layout;
    layout[0] = Slot(kScreenSlot);
    layout[1] = Slot(kDataSetSlot);
    layout[2] = Slot(kScreenSlot);
    std::vector<PageWindow> windows{ Screen(1), Screen(2), Screen(3), DataSet(4), DataSet(5), Screen(6) };
    EXPECT_EQ(PagesOf(windows, layout), 2);
    EXPECT_EQ(Ids(TakePage(windows, layout)), WindowIds({ 1, 2, 4 }));
    EXPECT_EQ(Ids(windows), WindowIds({ 3, 5, 6 }));
    EXPECT_EQ(Ids(TakePage(windows, layout)), WindowIds({ 3, 5, 6 }));
    EXPECT_TRUE(windows.empty());
}

TEST(TakePage, FirstWindowAloneWithoutSlotOfItsType)
{
    PageSlots layout;
    layout[4] = Slot(kDataSetSlot);
    std::vector<PageWindow> windows{ Screen(1), Screen(2) };
    EXPECT_EQ(PagesOf(windows, layout), 2);
    EXPECT_EQ(Ids(TakePage(windows, layout)), WindowIds({ 1 }));
    EXPECT_EQ(Ids(windows), WindowIds({ 2 }));
}

TEST(TakePage, LaterWindowWithSlotComesBeforeFirstWithoutOne)
{
    PageSlots layout;
    layout[0] = Slot(kDataSetSlot);
    std::vector<PageWindow> windows{ Screen(1), DataSet(2), Screen(3) };
    EXPECT_EQ(Ids(TakePage(windows, layout)), WindowIds({ 2 }));
    EXPECT_EQ(Ids(TakePage(windows, layout)), WindowIds({ 1 }));
    EXPECT_EQ(Ids(TakePage(windows, layout)), WindowIds({ 3 }));
    EXPECT_TRUE(Ids(TakePage(windows, layout)).empty());
}

TEST(TakePage, ElevenScreensOnTenSlotsMakeTwoPages)
{
    PageSlots layout;
    layout.fill(Slot(kScreenSlot));
    std::vector<PageWindow> windows;
    for (WindowId id = 1; id <= 11; ++id)
        windows.push_back(Screen(id));
    EXPECT_EQ(PagesOf(windows, layout), 2);
    EXPECT_EQ(TakePage(windows, layout).size(), 10U);
    EXPECT_EQ(Ids(windows), WindowIds({ 11 }));
}

TEST_F(PageFill, PlacesInSlotsOfTheType)
{
    page.Layout[0] = Slot(kScreenSlot, { 1, 1, 2, 2 }, 7);
    page.Layout[1] = Slot(kDataSetSlot, { 1, 4, 3, 3 }, 3);
    page.Layout[2] = Slot(kScreenSlot, { 4, 1, 3, 3 });
    page.Layout[2].Title = true;
    page.Layout[2].Outline = false;
    Fill({ Screen(11), Screen(12), DataSet(13) });
    ASSERT_EQ(page.Count, 3);
    ExpectPlace(0, { 1, 1, 2, 2 });
    ExpectPlace(1, { 4, 1, 3, 3 * 109.0F / 100 });
    ExpectPlace(2, { 1, 4, 3, 3 });
    EXPECT_EQ(Entry(0).Window, 11);
    EXPECT_EQ(Entry(0).Order, 7 + 256);
    EXPECT_EQ(Entry(1).Order, 512);
    EXPECT_EQ(Entry(2).Order, 3 + 256);
    EXPECT_TRUE(Entry(0).Outline);
    EXPECT_FALSE(Entry(0).Title);
    EXPECT_FALSE(Entry(1).Outline);
    EXPECT_TRUE(Entry(1).Title);
    EXPECT_NEAR(Entry(1).Shares.Title, 9.0F / 109, kNear);
    EXPECT_EQ(page.FrontEntry, 1);
    EXPECT_EQ(DrawingOrder(page)[0], 2);
    EXPECT_EQ(DrawingOrder(page)[1], 0);
}

TEST_F(PageFill, WindowsBeyondTheSlotsUseThemAgain)
{
    page.Layout[3] = Slot(kScreenSlot, { 1, 1, 2, 2 });
    page.Layout[5] = Slot(kScreenSlot, { 4, 1, 3, 3 }, 5);
    Fill({ Screen(1), Screen(2), Screen(3), Screen(4), Screen(5) });
    ExpectPlace(2, { 1, 1, 2, 2 });
    ExpectPlace(3, { 4, 1, 3, 3 });
    ExpectPlace(4, { 1, 1, 2, 2 });
    EXPECT_EQ(Entry(2).Order, 3 * 256);
    EXPECT_EQ(Entry(3).Order, 5 + 4 * 256);
    EXPECT_EQ(page.FrontEntry, 4);
}

TEST_F(PageFill, FirstWithoutSlotTakesTheWholePage)
{
    defaults = { false, true };
    Fill({ Screen(1) });
    ExpectPlace(0, { 0.8F, 0.8F, 6.4F, 6.4F * 109 / 100 });
    EXPECT_EQ(Entry(0).Order, kOrderWithoutSlot);
    EXPECT_FALSE(Entry(0).Outline);
    EXPECT_TRUE(Entry(0).Title);
    EXPECT_NEAR(Entry(0).Shares.Title, 9.0F / 109, kNear);
    EXPECT_EQ(page.FrontEntry, 0);
}

TEST_F(PageFill, SecondWithoutSlotStandsBelowTheFirstOrOffset)
{
    const PageWindow wide{ 1, { WindowType::Screen, { 200, 100 }, 0 } };
    const PageWindow alsoWide{ 2, wide.Extent };
    const PageWindow third{ 3, wide.Extent };
    const PageWindow fourth{ 4, wide.Extent };
    Fill({ wide, alsoWide, third, fourth });
    ExpectPlace(0, { 0.8F, 0.8F, 6.4F, 3.2F });
    ExpectPlace(1, { 0.8F, 4.1F, 6.4F, 3.2F });
    ExpectPlace(2, { 0.8F, 7.4F, 6.4F, 3.2F });
    ExpectPlace(3, { 1, 7.6F, 6.4F, 3.2F });
    EXPECT_EQ(page.FrontEntry, 3);
}

TEST_F(PageFill, AnotherTypeWithoutSlotGetsTheDefaultRectangleBelowTheFront)
{
    page.Layout[0] = Slot(kScreenSlot, { 1, 1, 2, 2 });
    Fill({ Screen(1), DataSet(2) });
    ExpectPlace(0, { 1, 1, 2, 2 });
    ExpectPlace(1, { 1, 3.1F, 6.4F, 6.4F });
    EXPECT_EQ(Entry(1).Order, kOrderWithoutSlot);
}

TEST_F(PageFill, WithoutRoomBelowItIsOffsetFromTheFrontAndFitted)
{
    page.Layout[0] = Slot(kScreenSlot, { 1, 5, 2, 2 });
    Fill({ Screen(1), DataSet(2) });
    ExpectPlace(1, { 1.2F, 5.2F, 6.4F, 6.4F });
}

TEST_F(PageFill, SlotWithoutRectangleTakesThatOfTheFrontOneOfItsType)
{
    page.Layout[0] = Slot(kScreenSlot, { 1, 1, 2, 2 });
    page.Layout[1] = Slot(kScreenSlot);
    page.Layout[1].Title = true;
    Fill({ Screen(1), Screen(2) });
    ExpectPlace(1, { 1, 3.1F, 2, 2 * 109.0F / 100 });
    EXPECT_EQ(Entry(1).Order, kOrderWithoutSlot);
    EXPECT_TRUE(Entry(1).Title);
}

TEST_F(PageFill, SlotWithoutRectangleOnAnEmptyPageTakesTheDefaults)
{
    page.Layout[0] = Slot(kScreenSlot);
    page.Layout[0].Title = true;
    page.Layout[0].Outline = false;
    Fill({ Screen(1) });
    ExpectPlace(0, { 0.8F, 0.8F, 6.4F, 6.4F });
    EXPECT_FALSE(Entry(0).Title);
    EXPECT_TRUE(Entry(0).Outline);
}

TEST_F(PageFill, DamagedSlotsCountAsUndefined)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    for (const IniRect& damaged : { IniRect{ nan, 1, 2, 2 }, IniRect{ 1, infinity, 2, 2 }, IniRect{ 1, 1, 0, 2 },
             IniRect{ 1, 1, 2, -2 }, IniRect{ 1, 1, nan, 2 }, IniRect{ 1, 1, 2, infinity } }) {
        page.Layout[0] = Slot(kScreenSlot, damaged);
        Fill({ Screen(1) });
        ExpectPlace(0, { 0.8F, 0.8F, 6.4F, 6.4F });
    }
}

TEST_F(PageFill, LargestOrderOfASlotDoesNotOverflow)
{
    page.Layout[0] = Slot(kScreenSlot, { 1, 1, 2, 2 }, std::numeric_limits<qint32>::max());
    Fill({ Screen(1) });
    EXPECT_EQ(Entry(0).Order, std::numeric_limits<int>::max());
}

TEST_F(PageFill, SlotLargerThanTheAreaShrinksWithItsAspect)
{
    page.Layout[0] = Slot(kScreenSlot, { 0, 0, 16, 4 });
    page.Margins = { 1, 1, 1, 1 };
    Fill({ Screen(1) });
    ExpectPlace(0, { 1, 1, 6, 6 });
}

TEST_F(PageFill, RepairsMarginsBeforePlacing)
{
    page.Layout[0] = Slot(kScreenSlot, { 0, 0, 2, 2 });
    Fill({ Screen(1) });
    EXPECT_EQ(page.Margins, (PageMargins{ 0.25F, 0.25F, 0.25F, 0.25F }));
    ExpectPlace(0, { 0.25F, 0.25F, 2, 2 });
}

TEST_F(PageFill, FillingAgainReplacesTheWindows)
{
    Fill({ Screen(1), Screen(2) });
    Fill({ Screen(3) });
    EXPECT_EQ(page.Count, 1);
    EXPECT_EQ(Entry(0).Window, 3);
    EXPECT_EQ(Entry(1).Window, 0);
    Fill({});
    EXPECT_EQ(page.Count, 0);
    EXPECT_EQ(page.FrontEntry, kNoEntry);
}

TEST_F(PageFill, NoMoreThanTenWindows)
{
    std::vector<PageWindow> windows;
    for (WindowId id = 1; id <= 12; ++id)
        windows.push_back(Screen(id));
    Fill(windows);
    EXPECT_EQ(page.Count, kWindowsPerPage);
    EXPECT_EQ(Entry(9).Window, 10);
}

TEST_F(PageFill, OfEqualOrdersTheLaterEntryIsInFront)
{
    page.Layout[0] = Slot(kScreenSlot, { 1, 1, 2, 2 });
    page.Layout[1] = Slot(kDataSetSlot, { 4, 1, 2, 2 });
    Fill({ Screen(1), DataSet(2) });
    EXPECT_EQ(Entry(0).Order, Entry(1).Order);
    EXPECT_EQ(page.FrontEntry, 1);
    EXPECT_EQ(DrawingOrder(page)[0], 0);
}

TEST_F(PageFill, DescriptionCountsForTheAspect)
{
    Fill({ { 1, { WindowType::Screen, { 100, 60 }, 40 } } });
    ExpectPlace(0, { 0.8F, 0.8F, 6.4F, 6.4F });
    EXPECT_NEAR(Entry(0).Shares.Description, 0.4F, kNear);
}

} // namespace tarvik
