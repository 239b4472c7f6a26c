// Windows of the preview on their pages.
#include "print/preview/pagination.h"

#include "print/page/pageLayout.h"
#include "print/page/printJob.h"
#include "print/page/printSettings.h"
#include "tests/support/fixture.h"
#include "tests/support/messages.h"

namespace tarvik {

namespace {

PageWindow Screen(int id)
{
    return { static_cast<WindowId>(id), { WindowType::Screen, { 100, 100 }, 0 } };
}

std::vector<PageWindow> Screens(int count)
{
    std::vector<PageWindow> windows;
    for (int id = 1; id <= count; ++id)
        windows.push_back(Screen(id));
    return windows;
}

PageSlot ScreenSlot()
{
    PageSlot slot;
    slot.Type = 2;
    return slot;
}

class Pagination : public ProgramTest {
protected:
    Pagination()
    {
        sheet.Paper = { 8, 12 };
        sheet.Offset = { 0.25F, 0.25F };
    }

    static PageRecord& Page(size_t number)
    {
        return ThePages().Table[number];
    }

    static std::vector<int> Counts()
    {
        std::vector<int> counts;
        for (const PageRecord& page : ThePages().Table) {
            if (page.Count > 0)
                counts.push_back(page.Count);
        }
        return counts;
    }

    static std::vector<WindowId> Ids(size_t number)
    {
        std::vector<WindowId> ids;
        for (const PageEntry& entry : Page(number).InUse())
            ids.push_back(entry.Window);
        return ids;
    }

    Sheet sheet;
};

using Ints = std::vector<int>;
using WindowIds = std::vector<WindowId>;

} // namespace

TEST_F(Pagination, BuildsPagesByTheLayoutOfTheFirst)
{
    Page(0).Layout[0] = ScreenSlot();
    Page(0).Layout[1] = ScreenSlot();
    Page(0).Margins = { 1, 1, 1, 1 };
    BuildPages(Screens(5), sheet);
    EXPECT_EQ(Counts(), Ints({ 2, 2, 1 }));
    EXPECT_EQ(Ids(1), WindowIds({ 3, 4 }));
    EXPECT_EQ(Page(2).Margins, Page(0).Margins);
    EXPECT_EQ(Page(2).Layout[1].Type, 2);
    EXPECT_EQ(ThePages().Present, 0);
}

TEST_F(Pagination, DistributesAgainInOrder)
{
    BuildPages(Screens(3), sheet);
    ASSERT_EQ(Counts(), Ints({ 1, 1, 1 }));
    ThePages().Present = 2;
    ASSERT_TRUE(Repaginate(2, sheet));
    EXPECT_EQ(Counts(), Ints({ 2, 1 }));
    EXPECT_EQ(Ids(0), WindowIds({ 1, 2 }));
    EXPECT_EQ(Ids(1), WindowIds({ 3 }));
    EXPECT_EQ(ThePages().Present, 0);
    EXPECT_NEAR(Page(1).Entries[0].Rectangle.Left, 0.8F, 1e-5F) << "arranged";
    EXPECT_NEAR(Page(1).Entries[0].Rectangle.Width, 6.4F, 1e-5F);
    ASSERT_TRUE(Repaginate(10, sheet));
    EXPECT_EQ(Counts(), Ints({ 3 }));
}

TEST_F(Pagination, FiveThousandWindowsFillTheTable)
{
    for (PageRecord& page : ThePages().Table)
        FillPage(page, Screens(10), sheet, {});
    ASSERT_TRUE(Repaginate(10, sheet));
    EXPECT_EQ(PagesInUse(), kPages);
    EXPECT_EQ(Page(499).Count, 10);
}

TEST_F(Pagination, TooManyPagesAreRefused)
{
    for (PageRecord& page : ThePages().Table)
        FillPage(page, Screens(2), sheet, {});
    ThePages().Present = 7;
    Answers().Expect(12710, { "500" }, Ok);
    EXPECT_FALSE(Repaginate(1, sheet));
    EXPECT_EQ(PagesInUse(), kPages);
    EXPECT_EQ(Page(3).Count, 2);
    EXPECT_EQ(ThePages().Present, 7);
    EXPECT_TRUE(Repaginate(2, sheet));
}

TEST_F(Pagination, AddedWindowsGoOnToTheNextPages)
{
    Page(0).Margins = { 1, 1, 1, 1 };
    Page(0).BlackAndWhite = true;
    BuildPages(Screens(1), sheet);
    Page(0).BlackAndWhite = true;
    ASSERT_TRUE(AddWindows(std::vector{ Screen(7), Screen(8), Screen(9) }, 2, sheet));
    EXPECT_EQ(Counts(), Ints({ 2, 2 }));
    EXPECT_EQ(Ids(0), WindowIds({ 1, 7 }));
    EXPECT_EQ(Ids(1), WindowIds({ 8, 9 }));
    EXPECT_EQ(ThePages().Present, 1);
    EXPECT_EQ(Page(1).Margins, Page(0).Margins);
    EXPECT_TRUE(Page(1).BlackAndWhite);
}

TEST_F(Pagination, AddedWindowsFillLaterPagesWithRoom)
{
    BuildPages(Screens(2), sheet);
    ASSERT_TRUE(AddWindows(std::vector{ Screen(7) }, 1, sheet));
    EXPECT_EQ(Ids(2), WindowIds({ 7 }));
    EXPECT_EQ(ThePages().Present, 2);
}

TEST_F(Pagination, FullTableTakesNoMore)
{
    for (PageRecord& page : ThePages().Table)
        FillPage(page, Screens(1), sheet, {});
    Answers().Expect(12710, { "500" }, Ok);
    EXPECT_FALSE(AddWindows(std::vector{ Screen(7) }, 1, sheet));
}

TEST_F(Pagination, RemovingMovesLaterEntriesUp)
{
    BuildPages(Screens(1), sheet);
    ASSERT_TRUE(AddWindows(std::vector{ Screen(2), Screen(3) }, 10, sheet));
    Page(0).Entries[1].Order = 9999;
    Page(0).FrontEntry = 1;
    RemoveFrontEntry();
    EXPECT_EQ(Ids(0), WindowIds({ 1, 3 }));
    EXPECT_EQ(Page(0).FrontEntry, 1) << "the highest order of the rest";
    EXPECT_EQ(Page(0).Entries[2].Window, 0);
}

TEST_F(Pagination, EmptyPageIsRemoved)
{
    BuildPages(Screens(3), sheet);
    ThePages().Present = 1;
    RemoveFrontEntry();
    EXPECT_EQ(Counts(), Ints({ 1, 1 }));
    EXPECT_EQ(Ids(1), WindowIds({ 3 }));
    EXPECT_EQ(ThePages().Present, 1);
    RemoveFrontEntry();
    EXPECT_EQ(ThePages().Present, 0) << "the last page is gone";
    RemoveFrontEntry();
    EXPECT_EQ(PagesInUse(), 0);
    EXPECT_EQ(ThePages().Present, 0);
    RemoveFrontEntry();
    EXPECT_EQ(ThePages().Table.size(), static_cast<size_t>(kPages));
}

TEST_F(Pagination, RepairFitsEntriesIntoNewMargins)
{
    BuildPages(Screens(1), sheet);
    Page(0).Entries[0].Rectangle = { 0.5F, 0.5F, 7, 7 };
    Page(0).Margins = { 1, 1, 1, 1 };
    RepairPages(sheet);
    EXPECT_EQ(Page(0).Entries[0].Rectangle, (SheetRect{ 1, 1, 6, 6 }));
    sheet.Offset = { 2, 2 };
    RepairPages(sheet);
    EXPECT_EQ(Page(0).Margins, (PageMargins{ 2, 2, 2, 2 }));
    EXPECT_EQ(Page(0).Entries[0].Rectangle, (SheetRect{ 2, 2, 4, 4 }));
}

TEST_F(Pagination, StoredLayoutIsThatOfTheEntries)
{
    for (PageSlot& slot : Page(0).Layout)
        slot.Type = 2;
    BuildPages(Screens(2), sheet);
    Page(0).Entries[1].Rectangle = { 1, 2, 3, 4 };
    Page(0).Entries[1].Outline = false;
    Page(0).Entries[1].Title = true;
    Page(0).Entries[1].Order = 77;
    StoreLayout(sheet);
    const PageSlot& slot = Page(0).Layout[1];
    EXPECT_EQ(slot.Type, 2);
    EXPECT_EQ(slot.Rectangle.Left, 1);
    EXPECT_EQ(slot.Rectangle.Top, 2);
    EXPECT_EQ(slot.Rectangle.Width, 3);
    EXPECT_EQ(slot.Rectangle.Height, 4);
    EXPECT_FALSE(slot.Outline);
    EXPECT_TRUE(slot.Title);
    EXPECT_EQ(slot.Order, 77);
    for (size_t rest = 2; rest < kWindowsPerPage; ++rest) {
        EXPECT_EQ(Page(0).Layout[rest].Type, 0);
        EXPECT_EQ(Page(0).Layout[rest].Rectangle.Width, -1);
    }
    EXPECT_EQ(Page(1).Layout[0].Type, 0);
}

TEST_F(Pagination, RefilledPageIsStackedAsItWasStored)
{
    for (size_t at = 0; at < 3; ++at)
        Page(0).Layout[at] = ScreenSlot();
    BuildPages(Screens(3), sheet);
    BringToFront(Page(0), 0); // the slots alone would bring the last one to the front
    const auto stacked = DrawingOrder(Page(0));
    StoreLayout(sheet);
    const std::vector<PageRecord> printed = PagesOfPreview(sheet);
    ASSERT_EQ(printed.size(), 1U);
    EXPECT_EQ(DrawingOrder(printed[0]), stacked);
    EXPECT_EQ(printed[0].FrontEntry, 0);
    for (int turn = 0; turn < 1000; ++turn) {
        BuildPages(Screens(3), sheet);
        ASSERT_EQ(DrawingOrder(Page(0)), stacked) << turn;
        StoreLayout(sheet);
    }
}

TEST_F(Pagination, StoredOrdersStayInTheRangeOfTheSettings)
{
    for (size_t at = 0; at < 3; ++at)
        Page(0).Layout[at] = ScreenSlot();
    for (int turn = 0; turn < 1000; ++turn) {
        BuildPages(Screens(3), sheet);
        StoreLayout(sheet);
        for (const PageSlot& slot : Page(0).Layout)
            ASSERT_LE(slot.Order, 32767) << turn;
    }
}

TEST_F(Pagination, DiagramKeepsTheRectangleOfItsSlot)
{
    BuildPages({ { 7, { WindowType::DataSet, { 200, 100 }, 0 } } }, sheet);
    Page(0).Entries[0].Rectangle = { 1, 1, 5, 6 };
    StoreLayout(sheet);
    EXPECT_EQ(PagesOfPreview(sheet)[0].Entries[0].Rectangle, (SheetRect{ 1, 1, 5, 6 }));
}

} // namespace tarvik
