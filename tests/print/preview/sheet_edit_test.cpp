// Moving and sizing windows on the preview's sheet.
#include "print/preview/sheetEdit.h"

#include "print/page/pageLayout.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

/// A sheet of 8 by 10 inches with margins of half an inch, shown at 50 pixels to an inch.
class SheetEdits : public ProgramTest {
protected:
    SheetEdits()
    {
        sheet.Paper = { 8, 10 };
        sheet.Offset = { 0.25F, 0.25F };
        Page().Margins = { 0.5F, 0.5F, 0.5F, 0.5F };
        Add(WindowType::Screen, { 1, 1, 2, 1 }); // 50, 50, 100 x 50
        Add(WindowType::DataSet, { 4, 4, 2, 1 }); // 200, 200, 100 x 50
        edit.SetScale(sheet, { 400, 500 });
    }

    static PageRecord& Page()
    {
        return PresentPage();
    }

    static PageEntry& Entry(size_t at)
    {
        return Page().Entries[at];
    }

    static void Add(WindowType type, const SheetRect& place)
    {
        PageEntry& entry = Entry(static_cast<size_t>(Page().Count));
        entry.Window = static_cast<WindowId>(Page().Count + 1);
        entry.Extent = { type, { 200, 100 }, 0 };
        entry.Rectangle = place;
        entry.Order = Page().Count;
        Page().FrontEntry = Page().Count++;
    }

    void Drag(QPoint from, QPoint to)
    {
        edit.Press(from);
        edit.DragTo(to);
        edit.Release();
    }

    Sheet sheet;
    SheetEdit edit;
};

constexpr QPoint kScreenMiddle(100, 75);
constexpr QPoint kDataSetMiddle(250, 225);

} // namespace

TEST_F(SheetEdits, ScaleGivesPixelsOfEveryPage)
{
    EXPECT_EQ(Entry(0).Pixels, QRect(50, 50, 100, 50));
    EXPECT_EQ(Entry(1).Pixels, QRect(200, 200, 100, 50));
    ThePages().Table[499].Count = 1;
    ThePages().Table[499].Entries[0].Rectangle = { 1, 1, 1, 1 };
    edit.SetScale(sheet, { 800, 1000 });
    EXPECT_EQ(ThePages().Table[499].Entries[0].Pixels, QRect(100, 100, 100, 100));
    EXPECT_TRUE(ThePages().Table[499].Entries[0].Repaint);
    EXPECT_EQ(edit.Scale(), 100);
}

TEST_F(SheetEdits, PressSelectsTheWindowAndBringsItToTheFront)
{
    EXPECT_EQ(Page().FrontEntry, 1);
    EXPECT_EQ(edit.Press(kScreenMiddle), SheetChange::Frame) << "nothing lies over it";
    EXPECT_EQ(Page().FrontEntry, 0);
    EXPECT_EQ(HighestEntry(Page()), 0);
    EXPECT_TRUE(edit.IsDragging());
    EXPECT_EQ(edit.SelectedPixels(), QRect(50, 50, 100, 50));
}

TEST_F(SheetEdits, SelectionOfAnOverlappedWindowRedrawsThePage)
{
    Add(WindowType::Screen, { 1.5F, 1.5F, 2, 1 });
    edit.PlacePresentPage();
    EXPECT_EQ(edit.Press({ 60, 60 }), SheetChange::Page);
    EXPECT_EQ(DrawingOrder(Page())[2], 0);
    EXPECT_EQ(DrawingOrder(Page())[1], 2) << "the one that was selected is next";
    EXPECT_EQ(DrawingOrder(Page())[0], 1);
}

TEST_F(SheetEdits, PressBesideTheWindowsSelectsNothing)
{
    EXPECT_EQ(edit.Press({ 390, 490 }), SheetChange::None);
    EXPECT_FALSE(edit.IsDragging());
    EXPECT_EQ(Page().FrontEntry, 1);
    EXPECT_EQ(edit.DragTo({ 300, 300 }), SheetChange::None);
    EXPECT_EQ(edit.Release(), SheetChange::None);
}

TEST_F(SheetEdits, ClickWithoutMovementLeavesTheExactPlace)
{
    Entry(0).Rectangle = { 1.007F, 1.013F, 2.001F, 1.0005F };
    edit.PlacePresentPage();
    const SheetRect before = Entry(0).Rectangle;
    edit.Press(kScreenMiddle);
    EXPECT_EQ(edit.DragTo(kScreenMiddle), SheetChange::None);
    EXPECT_EQ(edit.Release(), SheetChange::Frame);
    EXPECT_EQ(Entry(0).Rectangle, before);
    EXPECT_FALSE(edit.IsDragging());
}

TEST_F(SheetEdits, DragMovesTheFrameAndReleaseTheWindow)
{
    edit.Press(kScreenMiddle);
    EXPECT_EQ(edit.DragTo(kScreenMiddle + QPoint(10, 20)), SheetChange::Frame);
    EXPECT_EQ(edit.SelectedPixels(), QRect(60, 70, 100, 50));
    EXPECT_EQ(Entry(0).Pixels, QRect(50, 50, 100, 50)) << "not yet";
    EXPECT_EQ(Entry(0).Rectangle.Left, 1);
    Entry(0).Repaint = false;
    EXPECT_EQ(edit.Release(), SheetChange::Page);
    EXPECT_EQ(Entry(0).Pixels, QRect(60, 70, 100, 50));
    EXPECT_FLOAT_EQ(Entry(0).Rectangle.Left, 1.2F);
    EXPECT_FLOAT_EQ(Entry(0).Rectangle.Top, 1.4F);
    EXPECT_TRUE(Entry(0).Repaint);
}

TEST_F(SheetEdits, EscapeLeavesTheWindowWhereItWas)
{
    edit.Press(kScreenMiddle);
    edit.DragTo(kScreenMiddle + QPoint(10, 20));
    EXPECT_EQ(edit.Abandon(), SheetChange::Frame);
    EXPECT_FALSE(edit.IsDragging());
    EXPECT_EQ(edit.SelectedPixels(), QRect(50, 50, 100, 50));
    EXPECT_EQ(Entry(0).Rectangle, (SheetRect{ 1, 1, 2, 1 }));
    EXPECT_EQ(edit.Release(), SheetChange::None);
    EXPECT_EQ(edit.Abandon(), SheetChange::None);
}

TEST_F(SheetEdits, StepOutOfTheMarginsIsRefused)
{
    edit.Press(kScreenMiddle);
    EXPECT_EQ(edit.DragTo(kScreenMiddle - QPoint(25, 0)), SheetChange::Frame);
    EXPECT_EQ(edit.SelectedPixels().left(), 25) << "the margin";
    EXPECT_EQ(edit.DragTo(kScreenMiddle - QPoint(26, 0)), SheetChange::None);
    EXPECT_EQ(edit.SelectedPixels().left(), 25);
    EXPECT_EQ(edit.DragTo(kScreenMiddle - QPoint(20, 0)), SheetChange::Frame);
    EXPECT_EQ(edit.SelectedPixels().left(), 31) << "from where the refused step ended";
}

TEST_F(SheetEdits, CornerOfAScreenKeepsItsAspect)
{
    Drag({ 149, 99 }, { 189, 109 }); // width leads
    EXPECT_EQ(Entry(0).Pixels, QRect(50, 50, 140, 70));
    Drag({ 189, 119 }, { 189, 99 }); // height leads
    EXPECT_EQ(Entry(0).Pixels, QRect(50, 50, 100, 50));
}

TEST_F(SheetEdits, CornerOfADataSetDoesNot)
{
    Drag({ 299, 249 }, { 339, 259 });
    EXPECT_EQ(Entry(1).Pixels, QRect(200, 200, 140, 60));
    EXPECT_FLOAT_EQ(Entry(1).Rectangle.Width, 2.8F);
    EXPECT_FLOAT_EQ(Entry(1).Rectangle.Height, 1.2F);
}

TEST_F(SheetEdits, StepsOfTheKeyboardMoveAndSize)
{
    EXPECT_EQ(edit.Step(Handle::Inside, { 0, 1 }), SheetChange::Page);
    EXPECT_EQ(Entry(1).Pixels, QRect(200, 201, 100, 50));
    for (int turn = 0; turn < 49; ++turn)
        edit.Step(Handle::Inside, { 0, 1 });
    EXPECT_EQ(Entry(1).Pixels, QRect(200, 250, 100, 50)) << "every step counts";
    edit.Step(Handle::Right, { 1, 0 });
    edit.Step(Handle::Bottom, { 0, -1 });
    EXPECT_EQ(Entry(1).Pixels, QRect(200, 250, 101, 49));
}

TEST_F(SheetEdits, StepsStopAtTheMargin)
{
    for (int turn = 0; turn < 300; ++turn)
        edit.Step(Handle::Inside, { 1, 0 });
    EXPECT_EQ(Entry(1).Pixels.right(), 374);
    EXPECT_EQ(edit.Step(Handle::Inside, { 1, 0 }), SheetChange::None);
}

TEST_F(SheetEdits, KeysSelectOneWindowAfterTheOther)
{
    EXPECT_NE(edit.SelectNext(1), SheetChange::None);
    EXPECT_EQ(Page().FrontEntry, 0);
    edit.SelectNext(1);
    EXPECT_EQ(Page().FrontEntry, 1);
    edit.SelectNext(-1);
    EXPECT_EQ(Page().FrontEntry, 0);
    Page().Count = 1;
    EXPECT_EQ(edit.SelectNext(1), SheetChange::None);
}

TEST_F(SheetEdits, NothingHappensOnAnEmptyPage)
{
    ClearPage(Page());
    EXPECT_EQ(edit.Press(kScreenMiddle), SheetChange::None);
    EXPECT_EQ(edit.Step(Handle::Inside, { 1, 1 }), SheetChange::None);
    EXPECT_EQ(edit.SelectNext(1), SheetChange::None);
    EXPECT_EQ(edit.SetTitle(true), SheetChange::None);
    EXPECT_EQ(edit.SetOutline(true), SheetChange::None);
    EXPECT_EQ(edit.SelectedPixels(), QRect());
    EXPECT_EQ(PositionTexts(), (std::array<QString, 4>{}));
}

TEST_F(SheetEdits, TitleChangesSharesAndProportions)
{
    edit.Press(kScreenMiddle);
    edit.Release();
    EXPECT_EQ(edit.SetTitle(true), SheetChange::Page);
    EXPECT_TRUE(Entry(0).Title);
    EXPECT_FLOAT_EQ(Entry(0).Shares.Title, 9.0F / 109);
    EXPECT_FLOAT_EQ(Entry(0).Rectangle.Width, 2);
    EXPECT_FLOAT_EQ(Entry(0).Rectangle.Height, 2 * 109.0F / 200);
    EXPECT_EQ(Entry(0).Pixels, QRect(50, 50, 100, 54));
    edit.SetTitle(false);
    EXPECT_FLOAT_EQ(Entry(0).Rectangle.Height, 1);
    EXPECT_EQ(Entry(0).Shares.Title, 0);
}

TEST_F(SheetEdits, TitleOfADiagramLeavesItsRectangle)
{
    edit.SetTitle(true);
    EXPECT_EQ(Entry(1).Rectangle, (SheetRect{ 4, 4, 2, 1 }));
    EXPECT_FLOAT_EQ(Entry(1).Shares.Title, 18.0F / 118);
}

TEST_F(SheetEdits, OutlineIsThatOfTheSelectedWindow)
{
    EXPECT_EQ(edit.SetOutline(true), SheetChange::Page);
    EXPECT_TRUE(Entry(1).Outline);
    EXPECT_FALSE(Entry(0).Outline);
}

TEST_F(SheetEdits, PositionIsInTheMeasureOfTheUser)
{
    Entry(1).Rectangle = { 1, 0.5F, 2, 1.25F };
    SetRegion(QLocale("en_US"));
    EXPECT_EQ(PositionTexts(), (std::array<QString, 4>{ "1.000 in", "0.500 in", "3.000 in", "1.750 in" }));
    SetRegion(QLocale("de_DE"));
    EXPECT_EQ(PositionTexts(), (std::array<QString, 4>{ "25,40 mm", "12,70 mm", "76,20 mm", "44,45 mm" }));
}

TEST_F(SheetEdits, NewPlaceOfAScreenIsFittedIntoTheMargins)
{
    Entry(0).Rectangle = { 0.5F, 0.5F, 7, 3.5F };
    edit.PlacePresentPage();
    Drag({ 374, 199 }, { 374, 189 });
    EXPECT_EQ(Entry(0).Pixels, QRect(25, 25, 330, 165));
}

} // namespace tarvik
