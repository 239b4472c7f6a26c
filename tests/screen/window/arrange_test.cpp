#include "screen/window/arrange.h"

#include "screen/document/fit.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

class Arranging : public ScreenTest {
protected:
    /// Sizes every window as a frame would, with its resize event.
    void ArrangeTo(QSize client)
    {
        Views.WhenArranged = [this, client](Arrangement arrangement) {
            arrangements_.append(arrangement);
            for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id)) {
                Views[id].Client = client;
                ScreenResized(id, true);
            }
        };
    }

    QVector<Arrangement> arrangements_;
};

} // namespace

TEST_F(Arranging, CascadeRestoresDefaultSizes)
{
    const WindowId first = Open();
    const WindowId second = Open(WindowSubtype::File, Picture({ 100, 50 }));
    ArrangeTo({ 400, 300 });
    ArrangeWindows(Arrangement::Cascade);
    EXPECT_EQ(arrangements_, QVector{ Arrangement::Cascade });
    EXPECT_EQ(Views[first].Client, QSize(642, 442));
    EXPECT_EQ(Views[first].Graph, QSize(642, 442));
    EXPECT_EQ(Views[second].Client, QSize(100, 50));
    EXPECT_TRUE(AtDefaultSize(first) && AtDefaultSize(second));
}

TEST_F(Arranging, CascadeKeepsMinimisedWindows)
{
    const WindowId id = Open();
    Views[id].WindowState = WinState::Minimised;
    ArrangeWindows(Arrangement::Cascade);
    EXPECT_EQ(Views[id].WindowState, WinState::Minimised);
}

TEST_F(Arranging, TilesKeepHeightOrWidth)
{
    const WindowId id = Open();
    ArrangeTo({ 900, 221 });
    ArrangeWindows(Arrangement::TileHorizontally);
    EXPECT_EQ(Views[id].Client, QSize(321, 221));
    EXPECT_EQ(ScreenOf(id)->Graph.size(), QSize(321, 221));
    ArrangeTo({ 321, 900 });
    ArrangeWindows(Arrangement::TileVertically);
    EXPECT_EQ(Views[id].Client, QSize(321, 221));
}

TEST_F(Arranging, ResizesWindowsEvenWhileMouseButtonIsDown)
{
    const WindowId id = Open();
    ArrangeTo({ 900, 221 });
    ArrangeWindows(Arrangement::TileHorizontally);
    EXPECT_FALSE(WindowAt(id).ResizePending);
    EXPECT_EQ(TheScreenWindows().Arranging, Arrangement::None);
}

TEST_F(Arranging, AutoTileTogglesAndTilesAtOnce)
{
    Open();
    Open();
    ArrangeTo({ 900, 221 });
    ToggleAutoTile();
    EXPECT_TRUE(Program().AutoTile);
    EXPECT_EQ(arrangements_, QVector{ Arrangement::TileHorizontally });
    Frame.Log.clear();
    ToggleAutoTile();
    EXPECT_FALSE(Program().AutoTile);
    EXPECT_EQ(arrangements_, QVector{ Arrangement::TileHorizontally });
    EXPECT_TRUE(Frame.Log.contains(QStringLiteral("menu")));
}

TEST_F(Arranging, AutoTileIgnoresSingleWindow)
{
    Open();
    ArrangeTo({ 900, 221 });
    Program().AutoTile = true;
    RetileIfAutoTile();
    EXPECT_TRUE(arrangements_.isEmpty());
    Open();
    RetileIfAutoTile();
    EXPECT_EQ(arrangements_, QVector{ Arrangement::TileHorizontally });
}

TEST_F(Arranging, NothingIsTiledUnlessEnabled)
{
    Open();
    Open();
    ArrangeTo({ 900, 221 });
    RetileIfAutoTile();
    EXPECT_TRUE(arrangements_.isEmpty());
}

TEST_F(Arranging, SingleCandidateIsSelectedWithoutForm)
{
    const WindowId id = OpenLive();
    Open(WindowSubtype::File);
    Views.WhenOffered = [](const QVector<WindowId>& ids) {
        ADD_FAILURE();
        return ids;
    };
    ChooseWindows(MaskScreen, false);
    EXPECT_EQ(TheScreenWindows().Chosen, QVector<WindowId>{ id });
    ChooseWindows(MaskDataSet, false);
    EXPECT_TRUE(TheScreenWindows().Chosen.isEmpty());
}

TEST_F(Arranging, NothingIsSelectedWithoutForm)
{
    TheScreenWindows().Chosen = { OpenLive(), OpenLive() };
    ChooseWindows(MaskAll, false);
    EXPECT_TRUE(TheScreenWindows().Chosen.isEmpty());
}

TEST_F(Arranging, SeveralCandidatesAreOffered)
{
    const WindowId first = OpenLive();
    const WindowId second = OpenLive();
    QVector<WindowId> offered;
    Views.WhenOffered = [&](const QVector<WindowId>& ids) {
        offered = ids;
        return QVector<WindowId>{ ids.last() };
    };
    ChooseWindows(MaskAll, false);
    EXPECT_EQ(offered, (QVector<WindowId>{ second, first }));
    EXPECT_EQ(TheScreenWindows().Chosen, QVector<WindowId>{ first });
}

TEST_F(Arranging, CancelledSelectionIsEmpty)
{
    TheScreenWindows().Chosen = { OpenLive(), OpenLive() };
    Views.WhenOffered = [](const QVector<WindowId>&) { return QVector<WindowId>(); };
    ChooseWindows(MaskAll, false);
    EXPECT_TRUE(TheScreenWindows().Chosen.isEmpty());
}

} // namespace tarvik
