#include "screen/document/screenStatus.h"

#include "app/text/lang.h"
#include "screen/document/color.h"
#include "screen/window/descriptionEdit.h"
#include "tests/support/screens.h"

namespace tarvik {

using StatusPanel = ScreenTest;

TEST_F(StatusPanel, HoldsDateAndTimeOfDocument)
{
    const WindowId id = Open();
    ScreenOf(id)->Date = QDateTime(QDate(2024, 2, 29), QTime(13, 4, 5));
    StatusFill(id);
    EXPECT_EQ(
        Views[id].Status, (QStringList{ QStringLiteral("2/29/24"), LngStr(14501), QStringLiteral("1:04:05 PM") }));
}

TEST_F(StatusPanel, HasNoHeightAndNoLinesAndAddsNothing)
{
    const WindowId id = Open();
    EXPECT_EQ(StatusHeight(id), 0);
    EXPECT_EQ(StatusLines(id), -1);
    QImage target = Picture({ 3, 3 });
    const QImage before = target;
    EXPECT_EQ(StatusCompose(id, target, 0xFFFFFF), 0);
    EXPECT_EQ(target, before);
}

TEST_F(StatusPanel, FillHidesVisiblePanel)
{
    const WindowId id = Open();
    Views[id].StatusIsHidden = false;
    StatusFill(id);
    EXPECT_TRUE(Views[id].StatusIsHidden);
}

TEST_F(StatusPanel, FillDoesNotRecurse)
{
    const WindowId id = Open();
    int fills = 0;
    Views[id].OnFilled = [&] {
        ASSERT_LT(++fills, 3);
        StatusFill(id);
    };
    StatusFill(id);
    EXPECT_EQ(fills, 1);
    StatusFill(id);
    EXPECT_EQ(fills, 2);
}

TEST_F(StatusPanel, FillLaysOutDescription)
{
    const WindowId id = Open();
    WindowAt(id).DescriptionVisible = true;
    StatusFill(id);
    EXPECT_TRUE(Views[id].Layout.Visible);
}

TEST_F(StatusPanel, UsesPaperAndTextColourOfDocument)
{
    const WindowId id = Open();
    ColorStore(0x010203, id, ColourBackground);
    ColorStore(0x040506, id, ColourText);
    StatusColours(id);
    EXPECT_EQ(Views[id].Paper, 0x010203u);
    EXPECT_EQ(Views[id].Ink, 0x040506u);
    PaletteStore(PaletteNumber::BlackAndWhite, id);
    StatusColours(id);
    EXPECT_EQ(Views[id].Paper, 0xFFFFFFu);
}

TEST_F(StatusPanel, WindowIsPictureAndDescriptionForAnyDocument)
{
    for (const QSize size : { QSize(642, 442), QSize(3, 500), QSize(500, 3), QSize(1, 1) }) {
        const WindowId id = Open(WindowSubtype::File, Picture(size));
        EXPECT_EQ(Views[id].Client.height(), Views[id].Graph.height());
        DescrSetVisible(true, id);
        EXPECT_EQ(Views[id].Client.height(), Views[id].Graph.height() + DescrHeight(id));
        ApplySize(id);
        EXPECT_EQ(Views[id].Client.height(), Views[id].Graph.height() + DescrHeight(id));
    }
}

TEST_F(StatusPanel, DoesNothingWithoutWindow)
{
    StatusFill(0);
    StatusColours(100);
    EXPECT_EQ(Views.Loaded, 0);
}

} // namespace tarvik
