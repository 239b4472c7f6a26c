// The grid that shows the windows of a page largest.
#include "print/preview/autoArrange.h"

#include "print/page/pageLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tarvik {

namespace {

constexpr float kNear = 1e-4F;

class Arrange : public testing::Test {
protected:
    Arrange()
    {
        sheet.Paper = { 8, 12 };
        sheet.Offset = { 0.25F, 0.25F };
    }

    void Add(WindowId id, QSize picture, const SheetRect& rectangle = {})
    {
        PageEntry& entry = page.Entries[static_cast<size_t>(page.Count++)];
        entry.Window = id;
        entry.Extent = { WindowType::Screen, picture, 0 };
        entry.Shares = SharesOf(entry.Extent, false);
        entry.Rectangle = rectangle;
        page.FrontEntry = 0;
    }

    void Expect(size_t index, const SheetRect& expected)
    {
        const SheetRect& actual = page.Entries[index].Rectangle;
        EXPECT_NEAR(actual.Left, expected.Left, kNear) << index;
        EXPECT_NEAR(actual.Top, expected.Top, kNear) << index;
        EXPECT_NEAR(actual.Width, expected.Width, kNear) << index;
        EXPECT_NEAR(actual.Height, expected.Height, kNear) << index;
    }

    std::vector<WindowId> Ids() const
    {
        std::vector<WindowId> ids;
        for (const PageEntry& entry : page.InUse())
            ids.push_back(entry.Window);
        return ids;
    }

    PageRecord page;
    Sheet sheet;
};

using WindowIds = std::vector<WindowId>;

} // namespace

/// Margin 0.8; with 2 columns and 2 rows the gap is the smaller of 0.32 and 0.48.
TEST_F(Arrange, GridFillsDownwardsFirst)
{
    for (WindowId id = 1; id <= 3; ++id)
        Add(id, { 100, 100 });
    ArrangeInGrid(page, 2, sheet);
    const float width = (8 - 1.6F - 0.32F) / 2;
    const float height = (12 - 1.6F - 0.32F) / 2;
    Expect(0, { 0.8F, 0.8F, width, width });
    Expect(1, { 0.8F, 0.8F + height + 0.32F, width, width });
    Expect(2, { 0.8F + width + 0.32F, 0.8F, width, width });
}

TEST_F(Arrange, CellLimitsTheHeight)
{
    Add(1, { 100, 400 });
    Add(2, { 100, 400 });
    ArrangeInGrid(page, 2, sheet);
    const float height = (12 - 1.6F - 0.32F) / 2; // one column: the gap counts as for two
    Expect(0, { 0.8F, 0.8F, height / 4, height });
    Expect(1, { 0.8F, 0.8F + height + 0.32F, height / 4, height });
}

/// Three and four rows both make two columns, of which four leave the smaller gap: 3.12 inches wide instead of 3.08.
TEST_F(Arrange, SixLandscapePicturesOnAPortraitSheetTakeFourRows)
{
    for (WindowId id = 1; id <= 6; ++id)
        Add(id, { 400, 300 });
    AutoArrange(page, sheet);
    const float gap = 0.04F * 12 / 3; // of 4 rows; that of 2 columns is 0.32
    const float width = (8 - 1.6F - gap) / 2;
    const float height = (12 - 1.6F - 3 * gap) / 4;
    ASSERT_LT(width * 3 / 4, height);
    Expect(0, { 0.8F, 0.8F, width, width * 3 / 4 });
    Expect(3, { 0.8F, 0.8F + 3 * (height + gap), width, width * 3 / 4 });
    Expect(5, { 0.8F + width + gap, 0.8F + height + gap, width, width * 3 / 4 });
    EXPECT_EQ(Ids(), WindowIds({ 1, 2, 3, 4, 5, 6 }));
}

/// On a square sheet one row and two rows of square pictures are alike.
TEST_F(Arrange, EqualAreasTakeFewerRows)
{
    sheet.Paper = { 10, 10 };
    Add(1, { 100, 100 }, { 1, 1, 1, 1 });
    Add(2, { 100, 100 }, { 1, 5, 1, 1 });
    AutoArrange(page, sheet);
    Expect(0, { 1, 1, 3.8F, 3.8F });
    Expect(1, { 5.2F, 1, 3.8F, 3.8F });
}

TEST_F(Arrange, OneWindowTakesTheWholePage)
{
    Add(1, { 200, 100 }, { 3, 3, 1, 1 });
    AutoArrange(page, sheet);
    Expect(0, { 0.8F, 0.8F, 6.4F, 3.2F });
}

TEST_F(Arrange, EmptyPageStaysEmpty)
{
    AutoArrange(page, sheet);
    EXPECT_EQ(page.Count, 0);
}

TEST_F(Arrange, ColumnIsSortedFromTopToBottom)
{
    Add(1, { 100, 100 }, { 1, 7, 1, 1 });
    Add(2, { 100, 100 }, { 1, 4, 1, 1 });
    Add(3, { 100, 100 }, { 1, 1, 1, 1 });
    SortForGrid(page, 3);
    EXPECT_EQ(Ids(), WindowIds({ 3, 2, 1 }));
    EXPECT_EQ(page.FrontEntry, 2);
}

TEST_F(Arrange, RowIsSortedFromLeftToRight)
{
    Add(1, { 100, 100 }, { 5, 1, 1, 1 });
    Add(2, { 100, 100 }, { 1, 4, 1, 1 });
    Add(3, { 100, 100 }, { 3, 9, 1, 1 });
    page.FrontEntry = 1;
    SortForGrid(page, 1);
    EXPECT_EQ(Ids(), WindowIds({ 2, 3, 1 }));
    EXPECT_EQ(page.FrontEntry, 0);
}

TEST_F(Arrange, EqualPositionsKeepTheirOrder)
{
    for (WindowId id = 1; id <= 4; ++id)
        Add(id, { 100, 100 }, { 1, 1, 1, 1 });
    SortForGrid(page, 2);
    EXPECT_EQ(Ids(), WindowIds({ 1, 2, 3, 4 }));
}

TEST_F(Arrange, GridInWrongOrderIsSorted)
{
    Add(1, { 100, 100 }, { 1, 1, 1, 1 });
    Add(2, { 100, 100 }, { 4, 1, 1, 1 });
    Add(3, { 100, 100 }, { 1, 5, 1, 1 });
    Add(4, { 100, 100 }, { 4, 5, 1, 1 });
    SortForGrid(page, 2);
    EXPECT_EQ(Ids(), WindowIds({ 1, 3, 2, 4 }));
}

TEST_F(Arrange, AnyPositionsEnd)
{
    for (int seed = 0; seed < 500; ++seed) {
        page = {};
        for (WindowId id = 1; id <= 10; ++id)
            Add(id, { 100, 100 },
                { static_cast<float>((seed * 7 + id * id * 13) % 11), static_cast<float>((seed * 5 + id * 17) % 13), 1,
                    1 });
        for (int rows = 1; rows <= 10; ++rows)
            SortForGrid(page, rows);
        WindowIds ids = Ids();
        std::sort(ids.begin(), ids.end());
        EXPECT_EQ(ids, WindowIds({ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 }));
    }
}

} // namespace tarvik
