// The picture of a page in the preview: what is composed when, boxes, stacking, black and white.
#include "print/preview/sheetPicture.h"

#include "print/page/printJob.h"
#include "print/preview/pagination.h"
#include "print/preview/sheetEdit.h"
#include "screen/bitmap/stretch.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

class SheetPictures : public ScreenTest {
protected:
    SheetPictures()
    {
        sheet.Paper = { 8, 10 };
        sheet.Offset = { 0, 0 };
    }

    /// Screens of one colour each on one page, in given places.
    void Show(const std::vector<std::pair<QColor, SheetRect>>& shown)
    {
        for (const auto& [colour, place] : shown) {
            PageEntry& entry = Page().Entries[static_cast<size_t>(Page().Count)];
            entry.Window = Open(WindowSubtype::File, Picture({ 200, 100 }, colour));
            entry.Extent = { WindowType::Screen, { 200, 100 }, 0 };
            entry.Rectangle = place;
            entry.Order = Page().Count;
            Page().FrontEntry = Page().Count++;
        }
        edit.SetScale(sheet, { 400, 500 });
    }

    static PageRecord& Page()
    {
        return PresentPage();
    }

    void Draw(double scale = 1)
    {
        picture.Draw({ 400, 500 }, scale);
    }

    QColor At(int x, int y) const
    {
        return picture.Picture().pixelColor(x, y);
    }

    Sheet sheet;
    SheetEdit edit;
    SheetPicture picture;
};

const QColor kNoBox(0xC0, 0xC0, 0xC0);

} // namespace

TEST_F(SheetPictures, EmptyPageIsWhite)
{
    Draw();
    EXPECT_EQ(picture.Picture().size(), QSize(400, 500));
    EXPECT_EQ(At(0, 0), Qt::white);
    EXPECT_EQ(At(399, 499), Qt::white);
}

TEST_F(SheetPictures, WindowsStandAtTheirPixels)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } } });
    Draw();
    EXPECT_EQ(At(49, 75), Qt::white);
    EXPECT_EQ(At(50, 75), kNoBox);
    EXPECT_EQ(At(51, 75), Qt::red);
    EXPECT_EQ(At(148, 75), Qt::red);
    EXPECT_EQ(At(149, 75), kNoBox);
    EXPECT_EQ(At(150, 75), Qt::white);
    EXPECT_EQ(At(100, 49), Qt::white);
    EXPECT_EQ(At(100, 50), kNoBox);
    EXPECT_EQ(At(100, 99), kNoBox);
    EXPECT_EQ(At(100, 100), Qt::white);
}

TEST_F(SheetPictures, BoxIsBlackWithOutline)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } } });
    Page().Entries[0].Outline = true;
    Draw();
    EXPECT_EQ(At(50, 75), Qt::black);
    EXPECT_EQ(At(149, 99), Qt::black);
    EXPECT_EQ(At(51, 75), Qt::red) << "one pixel";
}

TEST_F(SheetPictures, BoxStaysInsideTheSheet)
{
    Show({ { Qt::red, { 4, 8, 4, 2 } } });
    Page().Entries[0].Outline = true;
    Draw();
    EXPECT_EQ(At(300, 498), Qt::black);
    EXPECT_EQ(At(398, 450), Qt::black);
}

TEST_F(SheetPictures, HighestOrderIsInFront)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } }, { Qt::blue, { 2, 1, 2, 1 } } });
    Draw();
    EXPECT_EQ(At(120, 75), Qt::blue);
    BringToFront(Page(), 0);
    Draw();
    EXPECT_EQ(At(120, 75), Qt::red);
    EXPECT_EQ(At(160, 75), Qt::blue);
}

TEST_F(SheetPictures, OnlyMarkedEntriesAreComposedAgain)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } }, { Qt::blue, { 4, 4, 2, 1 } } });
    Draw();
    EXPECT_EQ(picture.Composed(), 2);
    EXPECT_FALSE(Page().Entries[0].Repaint);
    Draw();
    EXPECT_EQ(picture.Composed(), 2);
    edit.Step(Handle::Inside, { 5, 5 });
    Draw();
    EXPECT_EQ(picture.Composed(), 3);
    EXPECT_EQ(At(210, 230), Qt::blue);
    EXPECT_EQ(At(201, 202), Qt::white);
}

TEST_F(SheetPictures, OtherPageHasItsOwnWindows)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } } });
    Draw();
    ThePages().Present = 1;
    Show({ { Qt::blue, { 1, 1, 2, 1 } } });
    Draw();
    EXPECT_EQ(At(100, 75), Qt::blue);
    ThePages().Present = 0;
    Draw();
    EXPECT_EQ(At(100, 75), Qt::red);
}

TEST_F(SheetPictures, TenWindowsFitIntoTheThumbnails)
{
    std::vector<std::pair<QColor, SheetRect>> shown;
    for (int at = 0; at < kWindowsPerPage; ++at)
        shown.push_back({ QColor(20 * at, 0, 0), { 1, static_cast<float>(at), 1, 0.5F } });
    Show(shown);
    Draw();
    Draw();
    EXPECT_EQ(picture.Composed(), kWindowsPerPage);
    for (int at = 0; at < kWindowsPerPage; ++at)
        EXPECT_EQ(At(75, 50 * at + 12), QColor(20 * at, 0, 0)) << at;
}

TEST_F(SheetPictures, SameWindowTwiceIsShownTwice)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } } });
    Page().Entries[1] = Page().Entries[0];
    Page().Entries[1].Rectangle = { 4, 4, 1, 0.5F };
    Page().Count = 2;
    edit.SetScale(sheet, { 400, 500 });
    Draw();
    EXPECT_EQ(At(100, 75), Qt::red);
    EXPECT_EQ(At(225, 210), Qt::red);
}

TEST_F(SheetPictures, BlackAndWhiteIsThatOfThePage)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } } });
    Page().BlackAndWhite = true;
    Draw();
    QImage grey = Picture({ 1, 1 }, Qt::red);
    ConvertToBlackAndWhite(grey);
    EXPECT_EQ(At(100, 75), grey.pixelColor(0, 0));
    EXPECT_NE(At(100, 75), Qt::red);
}

TEST_F(SheetPictures, AreAsSharpAsTheScreen)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } } });
    Draw(2);
    EXPECT_EQ(picture.Picture().size(), QSize(800, 1000));
    EXPECT_EQ(At(99, 150), Qt::white);
    EXPECT_EQ(At(100, 150), kNoBox);
    EXPECT_EQ(At(101, 150), kNoBox);
    EXPECT_EQ(At(102, 150), Qt::red);
}

TEST_F(SheetPictures, ClosedWindowIsBlank)
{
    Show({ { Qt::red, { 1, 1, 2, 1 } } });
    WindowFreeSlot(Page().Entries[0].Window);
    Draw();
    EXPECT_EQ(At(100, 75), Qt::white);
    EXPECT_EQ(At(50, 75), kNoBox);
}

} // namespace tarvik
