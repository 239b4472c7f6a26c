// Sizes of document windows in a real area: dragging, description, window states, arranging.
#include "app/state/project.h"
#include "screen/bitmap/stretch.h"
#include "screen/document/description.h"
#include "screen/document/fit.h"
#include "screen/window/arrange.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/palette.h"
#include "tests/screen/screen_form_fixture.h"

#include <QScrollBar>

namespace tarvik {

namespace {

class ScreenWindowSize : public ScreenForms {
protected:
    QRect Area() const
    {
        return { QPoint(), frame->ChildArea()->viewport()->size() };
    }

    void ExpectTiled(const QVector<WindowId>& ids)
    {
        ExpectApart(ids);
        for (const WindowId id : ids)
            ExpectAspect(Graph(id).size(), Document(id).Master.size());
    }

    void ExpectApart(const QVector<WindowId>& ids)
    {
        for (const WindowId id : ids) {
            EXPECT_TRUE(Area().contains(Child(id).geometry())) << id;
            for (const WindowId other : ids)
                EXPECT_TRUE(other == id || !Child(id).geometry().intersects(Child(other).geometry()));
        }
    }
};

constexpr QSize kDefault(642, 442);

} // namespace

TEST_F(ScreenWindowSize, PictureStaysUntilButtonIsReleased)
{
    const WindowId id = Open();
    const qint64 before = Document(id).Graph.cacheKey();
    Drag(id, QPoint(100, 0));
    EXPECT_EQ(Window(id).width(), 742);
    Tick();
    EXPECT_EQ(Document(id).Graph.cacheKey(), before);
    EXPECT_EQ(Graph(id).size(), kDefault);
    ReleaseButton();
    EXPECT_EQ(Graph(id).size(), kDefault);
    Tick();
    EXPECT_EQ(Graph(id).size(), QSize(742, 511));
    EXPECT_EQ(Window(id).size(), QSize(742, 511));
    EXPECT_EQ(Document(id).Graph.size(), QSize(742, 511));
}

TEST_F(ScreenWindowSize, PictureFollowsAt25thTickOfHeldButton)
{
    const WindowId id = Open();
    Drag(id, QPoint(100, 0));
    for (int tick = 1; tick <= 24; ++tick)
        Tick();
    EXPECT_EQ(Graph(id).size(), kDefault);
    Tick();
    EXPECT_EQ(Graph(id).size(), QSize(742, 511));
    ReleaseButton();
}

TEST_F(ScreenWindowSize, KeepsAspectWhenDragged)
{
    const WindowId id = Open();
    for (const QPoint by : { QPoint(37, 0), QPoint(0, 81), QPoint(-120, 0), QPoint(0, -133), QPoint(45, 44),
             QPoint(-30, 60), QPoint(60, -31), QPoint(1, 0), QPoint(0, 1), QPoint(25, 25) }) {
        DragAndRelease(id, by);
        ExpectAspect(Graph(id).size(), kDefault);
        EXPECT_EQ(Window(id).size(), Graph(id).size());
    }
}

TEST_F(ScreenWindowSize, KeepsUsableTitleBarWhenDragged)
{
    const WindowId id = Open();
    for (const bool withDescription : { false, true }) {
        SetDefaultSize(id);
        DescrSetVisible(withDescription, id);
        QCoreApplication::processEvents();
        DragAndRelease(id, QPoint(0, 5 - Child(id).height()));
        EXPECT_EQ(Graph(id).size(), QSize(100, 69)) << withDescription;
    }
}

TEST_F(ScreenWindowSize, HeightIsPicturePlusDescription)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    DescrSetText(id, "one\r\ntwo");
    const int block = 2 * DescrLineHeight(id) + 1;
    EXPECT_EQ(Window(id).size(), kDefault + QSize(0, block));
    EXPECT_EQ(Graph(id).size(), kDefault);
    DragAndRelease(id, QPoint(100, 0));
    EXPECT_EQ(Window(id).size(), QSize(742, 511 + block));
    EXPECT_EQ(Graph(id).size(), QSize(742, 511));
    DragAndRelease(id, QPoint(0, -120));
    ExpectAspect(Graph(id).size(), kDefault);
    EXPECT_EQ(Window(id).height(), Graph(id).height() + block);
}

TEST_F(ScreenWindowSize, MaximisedPictureFillsAreaWithoutDescription)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    Child(id).showMaximized();
    QCoreApplication::processEvents();
    EXPECT_EQ(Graph(id).size(), Window(id).size());
    EXPECT_EQ(Window(id).size(), Area().size());
    EXPECT_FALSE(Description(id).isVisible());
    EXPECT_FALSE(Item("MnViewDescription").isEnabled());
    Child(id).showNormal();
    QCoreApplication::processEvents();
    EXPECT_TRUE(Description(id).isVisible());
    EXPECT_EQ(Graph(id).size(), kDefault);
}

TEST_F(ScreenWindowSize, MaximisedPictureFollowsAreaOfAnyAspect)
{
    const WindowId id = Open();
    DescrSetVisible(true, id);
    Child(id).showMaximized();
    for (const QSize size : { QSize(1500, 800), QSize(1100, 800), QSize(1100, 1000) }) {
        frame->resize(size);
        QCoreApplication::processEvents();
        EXPECT_EQ(Window(id).size(), Area().size());
        EXPECT_EQ(Graph(id).size(), Area().size());
        EXPECT_FALSE(Description(id).isVisible());
        EXPECT_TRUE(Child(id).isMaximized());
    }
    Child(id).showNormal();
    EXPECT_EQ(Graph(id).size(), kDefault);
    EXPECT_TRUE(Description(id).isVisible());
}

TEST_F(ScreenWindowSize, MinimisedWindowIsUnchanged)
{
    const WindowId id = Open();
    Child(id).showMinimized();
    const QSize icon = Child(id).size();
    EXPECT_TRUE(Item("MnWindowArrangeIcons").isEnabled());
    EXPECT_FALSE(Item("MnWindowCascade").isEnabled());
    ApplySize(id);
    Window(id).SetClientSize(QSize(10, 10));
    EXPECT_EQ(Child(id).size(), icon);
    Child(id).showNormal();
    EXPECT_EQ(Window(id).size(), kDefault);
}

TEST_F(ScreenWindowSize, ChangesWhileMinimisedAreShownAfterwards)
{
    const WindowId id = Open();
    Child(id).showMinimized();
    PaletteStore(PaletteNumber::BlackAndWhite, id);
    Child(id).showNormal();
    QImage expected = Picture();
    ConvertToBlackAndWhite(expected);
    EXPECT_EQ(Document(id).Graph, expected);
}

TEST_F(ScreenWindowSize, CascadeRestoresEveryDefaultSize)
{
    const QVector<WindowId> ids{ Open(), Open(WindowSubtype::File, Picture(QSize(300, 400))), Open() };
    DescrSetVisible(true, ids[2]);
    DragAndRelease(ids[2], QPoint(90, 0));
    Item("MnWindowTileHoriz").trigger();
    Item("MnWindowCascade").trigger();
    EXPECT_EQ(Window(ids[0]).size(), kDefault);
    EXPECT_EQ(Window(ids[1]).size(), QSize(300, 400));
    EXPECT_EQ(Window(ids[2]).size(), kDefault + QSize(0, DescrHeight(ids[2])));
    EXPECT_EQ(Child(ids[0]).pos(), QPoint(0, 0));
    EXPECT_GT(Child(ids[1]).y(), 0);
    EXPECT_GT(Child(ids[2]).y(), Child(ids[1]).y());
}

TEST_F(ScreenWindowSize, CascadeIsTheSameAfterTiling)
{
    QVector<WindowId> ids;
    for (int count = 0; count < 30; ++count)
        ids.append(Open());
    Item("MnWindowCascade").trigger();
    QVector<QRect> places;
    for (const WindowId id : ids)
        places.append(Child(id).geometry());
    EXPECT_TRUE(Area().contains(places.last()));
    Item("MnWindowTileVert").trigger();
    Item("MnWindowCascade").trigger();
    for (int at = 0; at < ids.size(); ++at)
        EXPECT_EQ(Child(ids[at]).geometry(), places[at]) << at;
}

TEST_F(ScreenWindowSize, CascadePutsActiveWindowInFront)
{
    const WindowId first = Open();
    Open();
    const WindowId third = Open();
    frame->ChildArea()->setActiveSubWindow(&Child(first));
    Item("MnWindowCascade").trigger();
    EXPECT_EQ(WindowTable().Active, first);
    EXPECT_GT(Child(first).y(), Child(third).y());
    EXPECT_EQ(frame->ChildArea()->subWindowList(QMdiArea::StackingOrder).last(), &Child(first));
}

TEST_F(ScreenWindowSize, AreaScrollsToHiddenWindowsAndBackWhenTiled)
{
    const QVector<WindowId> ids{ Open(WindowSubtype::File, Picture(QSize(2000, 1500))), Open() };
    QScrollBar* bar = frame->ChildArea()->horizontalScrollBar();
    EXPECT_TRUE(bar->isVisible());
    bar->setValue(bar->maximum());
    EXPECT_LE(Child(ids[0]).geometry().right(), Area().right());
    Item("MnWindowTileVert").trigger();
    QCoreApplication::processEvents();
    EXPECT_FALSE(bar->isVisible());
    ExpectTiled(ids);
}

TEST_F(ScreenWindowSize, TilesStacked)
{
    const QVector<WindowId> ids{ Open(), Open(), Open() };
    Item("MnWindowTileHoriz").trigger();
    ExpectTiled(ids);
    for (const WindowId id : ids)
        EXPECT_EQ(Child(id).x(), 0);
    EXPECT_EQ(TheScreenWindows().Arranging, Arrangement::None);
}

TEST_F(ScreenWindowSize, TilesSideBySide)
{
    const QVector<WindowId> ids{ Open(), Open(), Open() };
    Item("MnWindowTileVert").trigger();
    ExpectTiled(ids);
    for (const WindowId id : ids)
        EXPECT_EQ(Child(id).y(), 0);
}

TEST_F(ScreenWindowSize, TilesWithDescriptions)
{
    const QVector<WindowId> ids{ Open(), Open() };
    for (const WindowId id : ids) {
        DescrSetVisible(true, id);
        DescrSetText(id, "a line");
    }
    const QSize margins = Child(ids[0]).size() - Window(ids[0]).size();
    const QSize cell = QSize(Area().width(), Area().height() / 2) - margins;
    const double needed = cell.width() * 442 / 642.0 + DescrHeight(ids[0]);
    Item("MnWindowTileHoriz").trigger();
    ExpectApart(ids);
    for (const WindowId id : ids) {
        EXPECT_EQ(Window(id).size(), QSize(qRound(cell.width() * cell.height() / needed), cell.height()));
        EXPECT_EQ(Graph(id).size(), Window(id).size() - QSize(0, DescrHeight(id)));
    }
    Item("MnWindowTileVert").trigger();
    ExpectTiled(ids);
    for (const WindowId id : ids)
        EXPECT_EQ(Window(id).height(), Graph(id).height() + DescrHeight(id));
}

TEST_F(ScreenWindowSize, TilingRestoresMaximisedAndKeepsMinimisedWindows)
{
    const QVector<WindowId> ids{ Open(), Open(), Open() };
    Child(ids[2]).showMinimized();
    Child(ids[1]).showMaximized();
    Item("MnWindowTileHoriz").trigger();
    EXPECT_FALSE(Child(ids[1]).isMaximized());
    EXPECT_TRUE(Child(ids[2]).isMinimized());
    ExpectTiled({ ids[0], ids[1] });
    Item("MnWindowArrangeIcons").trigger();
    EXPECT_EQ(Child(ids[2]).geometry().bottomLeft(), Area().bottomLeft());
    for (const WindowId id : { ids[0], ids[1] })
        EXPECT_FALSE(Child(id).geometry().intersects(Child(ids[2]).geometry()));
}

TEST_F(ScreenWindowSize, TilingLeavesRoomForScrollBar)
{
    const QImage wide = Picture(QSize(900, 90));
    const QVector<WindowId> ids{ Open(WindowSubtype::File, wide), Open(WindowSubtype::File, wide), Open() };
    Child(ids[2]).showMinimized();
    Item("MnWindowTileHoriz").trigger();
    QCoreApplication::processEvents();
    EXPECT_TRUE(frame->ChildArea()->horizontalScrollBar()->isVisible());
    EXPECT_FALSE(frame->ChildArea()->verticalScrollBar()->isVisible());
    EXPECT_EQ(Child(ids[2]).geometry().bottom(), frame->ChildArea()->viewport()->rect().bottom());
    for (const WindowId id : { ids[0], ids[1] })
        EXPECT_FALSE(Child(id).geometry().intersects(Child(ids[2]).geometry()));
    Item("MnWindowArrangeIcons").trigger();
    EXPECT_EQ(Child(ids[2]).geometry().bottom(), frame->ChildArea()->viewport()->rect().bottom());
    Child(ids[2]).close();
    Item("MnWindowTileHoriz").trigger();
    QCoreApplication::processEvents();
    EXPECT_FALSE(frame->ChildArea()->verticalScrollBar()->isVisible());
}

TEST_F(ScreenWindowSize, AutoTileNeedsTwoWindows)
{
    Item("MnWindowAutotile").trigger();
    EXPECT_TRUE(Item("MnWindowAutotile").isChecked());
    const WindowId first = Open();
    RetileIfAutoTile();
    EXPECT_EQ(Window(first).size(), kDefault);
    const WindowId second = Open();
    RetileIfAutoTile();
    ExpectTiled({ first, second });
    const WindowId third = Open();
    RetileIfAutoTile();
    ExpectTiled({ first, second, third });
    const int height = Window(first).height();
    EXPECT_TRUE(Child(third).close());
    ExpectTiled({ first, second });
    EXPECT_GT(Window(first).height(), height);
    Item("MnWindowAutotile").trigger();
    EXPECT_FALSE(Item("MnWindowAutotile").isChecked());
}

TEST_F(ScreenWindowSize, ClosingMaximisedWindowTilesOthers)
{
    const QVector<WindowId> ids{ Open(), Open(), Open(), Open() };
    Item("MnWindowAutotile").trigger();
    Child(ids[3]).showMaximized();
    EXPECT_TRUE(Child(ids[3]).close()); // by its own close box
    QCoreApplication::processEvents();
    ExpectTiled({ ids[0], ids[1], ids[2] });
    frame->ChildArea()->activeSubWindow()->showMaximized();
    Item("MnWindowClose").trigger();
    QCoreApplication::processEvents();
    ASSERT_EQ(WindowCount(), 2);
    ExpectTiled(WindowsFor(MaskAll, true));
}

TEST_F(ScreenWindowSize, HidingToolBarRetiles)
{
    Item("MnWindowAutotile").trigger();
    const QVector<WindowId> ids{ Open(), Open() };
    RetileIfAutoTile();
    const int height = Window(ids[0]).height();
    Item("TbMnHide").trigger();
    ExpectTiled(ids);
    EXPECT_GT(Window(ids[0]).height(), height);
}

TEST_F(ScreenWindowSize, DefaultSizeIsEnabledForOtherSizes)
{
    const WindowId id = Open();
    EXPECT_FALSE(Item("MnWindowDefSize").isEnabled());
    DragAndRelease(id, QPoint(100, 0));
    EXPECT_TRUE(Item("MnWindowDefSize").isEnabled());
    Item("MnWindowDefSize").trigger();
    EXPECT_EQ(Window(id).size(), kDefault);
    EXPECT_EQ(Graph(id).size(), kDefault);
    EXPECT_FALSE(Item("MnWindowDefSize").isEnabled());
    Child(id).showMaximized();
    Item("MnWindowDefSize").trigger();
    EXPECT_FALSE(Child(id).isMaximized());
    EXPECT_EQ(Window(id).size(), kDefault);
}

TEST_F(ScreenWindowSize, TilesHundredWindowsWithoutOverlap)
{
    QVector<WindowId> ids;
    for (int count = 0; count < kDocumentsOfType; ++count)
        ids.append(Open(WindowSubtype::File, Picture(QSize(128, 72))));
    Item("MnWindowTileVert").trigger();
    ExpectTiled(ids);
    Item("MnWindowTileHoriz").trigger();
    for (const WindowId id : ids)
        EXPECT_EQ(Graph(id).size(), Document(id).Graph.size());
    Item("MnWindowCascade").trigger();
    for (const WindowId id : ids)
        EXPECT_EQ(Graph(id).size(), QSize(128, 72));
}

TEST_F(ScreenWindowSize, PictureIsSharpAtDoubleScale)
{
    const WindowId id = Open(WindowSubtype::File, Picture(QSize(800, 600)));
    DragAndRelease(id, QPoint(-400, 0));
    EXPECT_EQ(Shown(id), Stretch(Document(id).Master, DevicePixels(id)));
}

} // namespace tarvik
