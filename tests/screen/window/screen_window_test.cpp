#include "screen/window/screenWindow.h"

#include "app/text/lang.h"
#include "link/connection/connect.h"
#include "screen/document/color.h"
#include "screen/document/fit.h"
#include "screen/window/descriptionEdit.h"
#include "tests/support/screens.h"

namespace tarvik {

using ScreenWindows = ScreenTest;

TEST_F(ScreenWindows, NewOneHasSizeOfItsPicture)
{
    const WindowId id = Open(WindowSubtype::File, Picture({ 900, 300 }));
    EXPECT_EQ(Views[id].Client, QSize(900, 300));
    EXPECT_EQ(Views[id].Graph, QSize(900, 300));
    EXPECT_EQ(WindowAt(id).DefaultWidth, 900);
    EXPECT_EQ(WindowAt(id).DefaultHeight, 300);
    EXPECT_EQ(Views[id].Place, QPoint(-1, -1)) << "the system places it";
    EXPECT_EQ(ScreenOf(id)->Graph, Picture({ 900, 300 }));
}

TEST_F(ScreenWindows, WithoutRequestHasSizeOfItsType)
{
    const WindowId id = Open();
    WindowAt(id).Placement = {};
    SizeNewWindow(id);
    EXPECT_EQ(WindowAt(id).DefaultWidth, 642);
    EXPECT_EQ(WindowAt(id).DefaultHeight, 442);
}

TEST_F(ScreenWindows, DefaultSizeIsThatOfNormalWindow)
{
    const WindowId id = Open();
    EXPECT_TRUE(AtDefaultSize(id));
    for (const WinState state : { WinState::Minimised, WinState::Maximised }) {
        Views[id].WindowState = state;
        EXPECT_FALSE(AtDefaultSize(id)) << static_cast<int>(state);
    }
}

TEST_F(ScreenWindows, PlacementIsIgnoredWhileMaximised)
{
    const WindowId id = Open();
    WindowAt(id).Placement.Left = 40;
    Views[id].WindowState = WinState::Maximised;
    SizeNewWindow(id);
    EXPECT_EQ(Views[id].Place, QPoint(-1, -1));
}

TEST_F(ScreenWindows, PlacementMovesAndResizes)
{
    const WindowId id = Open();
    WindowPlacement& placement = WindowAt(id).Placement;
    placement.Left = 40;
    placement.Top = 32767;
    placement.ClientWidth = 321;
    placement.ClientHeight = 221;
    SizeNewWindow(id);
    EXPECT_EQ(Views[id].Place, QPoint(40, 32767));
    EXPECT_EQ(Views[id].Client, QSize(321, 221));
    EXPECT_EQ(WindowAt(id).DefaultWidth, 642) << "the default stays the picture's";
}

TEST_F(ScreenWindows, NewOneIsNormalAmongMaximisedOnes)
{
    Views.FirstState = WinState::Maximised;
    const WindowId id = Open();
    EXPECT_EQ(Views[id].WindowState, WinState::Normal);
    EXPECT_EQ(Views[id].Client, QSize(642, 442));
}

TEST_F(ScreenWindows, NewOneIsShownWhileFrameIsActive)
{
    EXPECT_EQ(Views[Open()].Shown, 0);
    Views.FrameIsActive = true;
    EXPECT_EQ(Views[Open()].Shown, 1);
}

TEST_F(ScreenWindows, NewOneIsActiveAndHasOwnerTag)
{
    Connection().InstrumentAccepted = 1;
    Open();
    const WindowId id = Open();
    EXPECT_EQ(WindowTable().Active, id);
    EXPECT_EQ(WindowAt(id).OwnerTag, 1);
}

TEST_F(ScreenWindows, ReusedOneGetsNewSize)
{
    const WindowId id = Open();
    Views[id].WindowState = WinState::Maximised;
    WindowAt(id).TitleTemplate = QStringLiteral("mine");
    ScreenCreate({ id, WindowSubtype::Live, true }, { Picture({ 100, 50 }), QDateTime(), QStringLiteral("x"), true });
    EXPECT_EQ(Views.Loaded, 1);
    EXPECT_EQ(Views[id].WindowState, WinState::Normal);
    EXPECT_EQ(Views[id].Client, QSize(100, 50));
    EXPECT_EQ(Views[id].Graph, QSize(100, 50));
    EXPECT_EQ(Views[id].Title, QStringLiteral("mine"));
    EXPECT_TRUE(WindowIsModified(id));
}

TEST_F(ScreenWindows, ReusedOneOfSameSizeGetsNewAspect)
{
    const WindowId id = Open(WindowSubtype::File, Picture({ 200, 100 }));
    Views[id].Client = { 300, 150 };
    ApplySize(id);
    ScreenCreate({ id, WindowSubtype::File, true }, { Picture({ 300, 150 }), QDateTime(), QString(), false });
    EXPECT_EQ(Views[id].Client, QSize(300, 150));
    EXPECT_EQ(ScreenOf(id)->Graph, Picture({ 300, 150 }));
}

TEST_F(ScreenWindows, DateIsThatOfFileOrNow)
{
    const QDateTime date(QDate(2020, 1, 2), QTime(3, 4, 5));
    const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::File);
    ScreenCreate(slot, { Picture(), date, QString(), false });
    EXPECT_EQ(ScreenOf(slot.Id)->Date, date);
    EXPECT_EQ(ScreenOf(Open())->Date, moment_);
}

TEST_F(ScreenWindows, LiveOneShowsTitleAndFileShowsName)
{
    const WindowId live = OpenLive();
    EXPECT_EQ(Views[live].Title, WindowTitle(live, ScreenOf(live)->Date));
    EXPECT_FALSE(Views[live].IconOfFile);
    const WindowId file = Open();
    EXPECT_EQ(Views[file].Title, QStringLiteral("file.png"));
    EXPECT_TRUE(Views[file].IconOfFile);
    EXPECT_EQ(ScreenTitle(file), QStringLiteral("file.png"));
}

TEST_F(ScreenWindows, DrawingForcesColours)
{
    TheColorDefaults() = { 1, 2, 3, 4, PaletteNumber::Colour };
    const WindowId id = Open();
    EXPECT_EQ(ColorGet(id, ColourBackground), 0xCECFCEu);
    EXPECT_EQ(ColorGet(id, ColourForeground), 0u);
    EXPECT_EQ(ColorGet(id, ColourText), 0u);
    EXPECT_EQ(ColorGet(id, ColourMarker), 3u);
    EXPECT_EQ(TheColorDefaults().Background, 0xCECFCEu);
    EXPECT_EQ(TheColorDefaults().Foreground, 0u);
    EXPECT_EQ(TheColorDefaults().Text, 0u);
    EXPECT_EQ(TheColorDefaults().Marker, 3u);
    EXPECT_EQ(Views[id].Paper, 0xCECFCEu);
}

TEST_F(ScreenWindows, DrawingBeforePictureExistsDoesNothing)
{
    const WindowId id = Open();
    WindowAt(id).GraphicsValid = false;
    const int drawings = Views[id].Drawings;
    DrawScreenWindow(id);
    EXPECT_EQ(Views[id].Drawings, drawings);
    DrawScreenWindow(0);
    DrawScreenWindow(100);
}

TEST_F(ScreenWindows, DrawingShowsAndClearsStatusLine)
{
    const WindowId id = Open();
    Frame.Log.clear();
    DrawScreenWindow(id);
    const QString text = QStringLiteral("status:file.png") + LngStr(14301) + LngStr(10106);
    EXPECT_EQ(Frame.Log.value(0), text);
    EXPECT_EQ(Frame.Status, QString());
}

TEST_F(ScreenWindows, DrawingLeavesStatusLineToRunningJob)
{
    const WindowId id = Open();
    Program().StatusHold = true;
    Frame.Status = QStringLiteral("busy");
    DrawScreenWindow(id);
    EXPECT_EQ(Frame.Status, QStringLiteral("busy"));
}

TEST_F(ScreenWindows, FailedDrawingKeepsWindow)
{
    const WindowId id = Open();
    const int drawings = Views[id].Drawings;
    Views[id].Graph = { 0, 0 }; // too small for a picture
    Views[id].Title = QStringLiteral("mine");
    DrawScreenWindow(id);
    EXPECT_EQ(ScreenOf(id)->Graph, Picture());
    EXPECT_EQ(Views[id].Drawings, drawings);
    EXPECT_EQ(Frame.Status, QString());
}

TEST_F(ScreenWindows, WidthSetsHeight)
{
    const WindowId id = Open();
    Views[id].Client = { 321, 442 };
    ScreenResized(id, false);
    EXPECT_EQ(Views[id].Client, QSize(321, 221));
    EXPECT_EQ(Views[id].Graph, QSize(321, 221));
    EXPECT_EQ(ScreenOf(id)->Graph.size(), QSize(321, 221));
    EXPECT_EQ(ScreenOf(id)->Master.size(), QSize(642, 442));
}

TEST_F(ScreenWindows, WidthSetsHeightWithDescription)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    Views[id].Client.setWidth(321);
    ScreenResized(id, false);
    EXPECT_EQ(Views[id].Client, QSize(321, 221 + DescrHeight(id)));
    EXPECT_EQ(Views[id].Graph, QSize(321, 221));
}

TEST_F(ScreenWindows, OwnResizeIsIgnored)
{
    const WindowId id = Open();
    int events = 0;
    Views[id].OnSized = [&] {
        ++events;
        ScreenResized(id, false);
    };
    Views[id].Client = { 321, 442 };
    const int drawings = Views[id].Drawings;
    ScreenResized(id, false);
    EXPECT_EQ(events, 1);
    EXPECT_EQ(Views[id].Drawings, drawings + 1);
    EXPECT_FALSE(WindowAt(id).InResize);
}

TEST_F(ScreenWindows, MaximisedOneFillsItsWindow)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    Views[id].WindowState = WinState::Maximised;
    Views[id].Client = { 1000, 500 };
    ScreenResized(id, false);
    EXPECT_EQ(Views[id].Client, QSize(1000, 500));
    EXPECT_EQ(Views[id].Graph, QSize(1000, 500));
    EXPECT_FALSE(Views[id].Layout.Visible);
}

TEST_F(ScreenWindows, MinimisedOneIsUnchanged)
{
    const WindowId id = Open();
    const int drawings = Views[id].Drawings;
    Views[id].WindowState = WinState::Minimised;
    Views[id].Client = { 160, 20 };
    WindowAt(id).ResizePending = true;
    ScreenResized(id, false);
    EXPECT_EQ(Views[id].Drawings, drawings);
    EXPECT_EQ(Views[id].Client, QSize(160, 20));
    EXPECT_FALSE(WindowAt(id).ResizePending);
}

TEST_F(ScreenWindows, ResizeRefreshesCommands)
{
    const WindowId id = Open();
    Frame.Log.clear();
    ScreenResized(id, false);
    EXPECT_TRUE(Frame.Log.contains(QStringLiteral("menu")));
}

TEST_F(ScreenWindows, DragIsDrawnWhenButtonIsReleased)
{
    const WindowId id = Open();
    const int drawings = Views[id].Drawings;
    Views[id].Client = { 321, 442 };
    ScreenResized(id, true);
    EXPECT_EQ(Views[id].Graph, QSize(642, 442));
    CheckPendingResize(true);
    EXPECT_EQ(Views[id].Drawings, drawings);
    CheckPendingResize(false);
    EXPECT_EQ(Views[id].Graph, QSize(321, 221));
    EXPECT_EQ(Views[id].Drawings, drawings + 1);
    CheckPendingResize(false);
    EXPECT_EQ(Views[id].Drawings, drawings + 1);
}

TEST_F(ScreenWindows, DragIsDrawnAt25thTick)
{
    const WindowId id = Open();
    Views[id].Client = { 321, 442 };
    ScreenResized(id, true);
    for (int tick = 1; tick <= 24; ++tick)
        CheckPendingResize(true);
    EXPECT_EQ(Views[id].Graph, QSize(642, 442));
    CheckPendingResize(true);
    EXPECT_EQ(Views[id].Graph, QSize(321, 221));
    Views[id].Client = { 500, 221 };
    ScreenResized(id, true);
    CheckPendingResize(true);
    EXPECT_EQ(Views[id].Graph, QSize(321, 221)) << "the count begins again";
}

TEST_F(ScreenWindows, EveryPendingOneIsResizedAtOnce)
{
    const WindowId first = Open();
    const WindowId second = Open();
    Open();
    for (const WindowId id : { first, second }) {
        Views[id].Client = { 321, 442 };
        ScreenResized(id, true);
    }
    CheckPendingResize(false);
    EXPECT_EQ(Views[first].Graph, QSize(321, 221));
    EXPECT_EQ(Views[second].Graph, QSize(321, 221));
    EXPECT_FALSE(TheScreenWindows().ResizePending);
}

TEST_F(ScreenWindows, WindowWithoutPictureIsResizedWhileButtonIsHeld)
{
    const WindowId id = Open();
    WindowAt(id).GraphicsValid = false;
    Views[id].Client = { 321, 442 };
    ScreenResized(id, true);
    EXPECT_FALSE(WindowAt(id).ResizePending);
    EXPECT_EQ(Views[id].Client, QSize(321, 221));
}

TEST_F(ScreenWindows, WindowShowsDrawnPicture)
{
    const WindowId id = Open();
    Views[id].Client = { 321, 442 };
    ScreenResized(id, false);
    EXPECT_EQ(DrawnPicture(id, { 321, 221 }).constBits(), ScreenOf(id)->Graph.constBits());
    EXPECT_EQ(DrawnPicture(id, { 642, 442 }), Picture()) << "a screen of twice the scale";
    EXPECT_TRUE(DrawnPicture(0, { 321, 221 }).isNull());
}

TEST_F(ScreenWindows, ActivationFollowsWindow)
{
    const WindowId first = Open();
    const WindowId second = Open();
    Frame.Log.clear();
    ScreenActivated(first, true);
    EXPECT_EQ(WindowTable().Active, first);
    EXPECT_EQ(Frame.Log, QStringList{ QStringLiteral("menu") });
    ScreenActivated(first, false);
    EXPECT_EQ(WindowTable().Active, 0);
    ScreenActivated(second, true);
    EXPECT_EQ(WindowTable().Active, second);
}

TEST_F(ScreenWindows, DefaultSizeIsThatOfPicture)
{
    const WindowId id = Open();
    EXPECT_TRUE(AtDefaultSize(id));
    DescrSetVisible(true, id);
    EXPECT_TRUE(AtDefaultSize(id));
    Views[id].Client.setWidth(321);
    ScreenResized(id, false);
    EXPECT_FALSE(AtDefaultSize(id));
    SetDefaultSize(id);
    EXPECT_TRUE(AtDefaultSize(id));
    EXPECT_EQ(Views[id].Client, QSize(642, 442 + DescrHeight(id)));
    EXPECT_EQ(ScreenOf(id)->Graph.size(), QSize(642, 442));
}

TEST_F(ScreenWindows, DefaultSizeRestoresMaximisedWindow)
{
    const WindowId id = Open();
    Views[id].WindowState = WinState::Maximised;
    Views[id].Client = { 1000, 500 };
    ScreenResized(id, false);
    EXPECT_FALSE(AtDefaultSize(id));
    SetDefaultSize(id);
    EXPECT_EQ(Views[id].WindowState, WinState::Normal);
    EXPECT_EQ(Views[id].Graph, QSize(642, 442));
}

TEST_F(ScreenWindows, DefaultSizeWithoutWindowDoesNothing)
{
    EXPECT_FALSE(AtDefaultSize(0));
    SetDefaultSize(0);
    EXPECT_EQ(Views.Loaded, 0);
}

TEST_F(ScreenWindows, CopyPutsComposedPictureOnClipboard)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    Views.TakesCopies = true;
    Frame.Log.clear();
    CopyGraphics(id);
    EXPECT_EQ(Views.Copied.size(), QSize(642, 442 + DescrHeight(id)));
    EXPECT_EQ(Frame.Log.value(0), QStringLiteral("status:file.png") + LngStr(14301) + LngStr(10107));
    EXPECT_EQ(Frame.Status, QString());
}

TEST_F(ScreenWindows, FailedCopyIsReported)
{
    const WindowId id = Open();
    Answers().Expect(12707, {}, Ok);
    Views.TakesCopies = false;
    CopyGraphics(id);
}

TEST_F(ScreenWindows, CopyWithoutWindowDoesNothing)
{
    CopyGraphics(0);
    EXPECT_EQ(Frame.Log, QStringList());
}

TEST_F(ScreenWindows, WithoutFormsHaveSizeOfTheirPictures)
{
    TheScreenDesktop().Reset();
    const WindowId id = Open(WindowSubtype::File, Picture({ 33, 44 }));
    EXPECT_EQ(ViewOf(id)->ClientSize(), QSize(33, 44));
    EXPECT_EQ(ViewOf(id)->GraphSize(), QSize(33, 44));
    EXPECT_EQ(ViewOf(id)->State(), WinState::Normal);
    EXPECT_EQ(ViewOf(id)->Caption(), QStringLiteral("file.png"));
    DescrSetVisible(true, id);
    EXPECT_EQ(ViewOf(id)->ClientSize(), QSize(33, 44 + DescrHeight(id)));
}

} // namespace tarvik
