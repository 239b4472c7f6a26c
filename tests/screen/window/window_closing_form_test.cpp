// Document windows when they are closed.
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "screen/bitmap/stretch.h"
#include "screen/window/closing.h"
#include "tests/screen/screen_form_fixture.h"

#include <QApplication>
#include <QPointer>

namespace tarvik {

namespace {

class WindowClosing : public ScreenForms {
protected:
    QString Status() const
    {
        return TextOf(*frame, QStringLiteral("Panel[1]"));
    }
};

} // namespace

TEST_F(WindowClosing, ClosesFileWithoutQuestionAndShowsHint)
{
    const WindowId id = Open();
    EXPECT_TRUE(Child(id).close());
    EXPECT_FALSE(WindowInUse(id));
    EXPECT_EQ(ViewOf(id), nullptr);
    EXPECT_EQ(Status(), LngStr(11801));
    QCoreApplication::processEvents();
    EXPECT_TRUE(frame->ChildArea()->subWindowList().isEmpty());
    EXPECT_FALSE(Item("MnFileClose").isEnabled());
}

TEST_F(WindowClosing, EachClosingCommandShowsHintAfterLastOne)
{
    for (const char* name : { "MnFileClose", "MnWindowClose", "MnWindowCloseAll" }) {
        Open();
        Item(name).trigger();
        QCoreApplication::processEvents();
        EXPECT_EQ(Status(), LngStr(11801)) << name;
    }
}

TEST_F(WindowClosing, ClosedDialogLeavesFrameActive)
{
    const WindowId first = Open();
    QApplication::setActiveWindow(nullptr); // as between the end of a dialog and the next activation
    const WindowId second = Open();
    EXPECT_EQ(frame->ChildArea()->activeSubWindow(), &Child(second));
    EXPECT_TRUE(CloseWindow(second, true));
    EXPECT_TRUE(CloseWindow(first, true));
    EXPECT_EQ(Status(), LngStr(11801));
}

TEST_F(WindowClosing, CloseBoxAsksForLiveScreen)
{
    const WindowId id = Open(WindowSubtype::Live);
    Answers().Expect(12714, Cancel);
    EXPECT_FALSE(Child(id).close());
    EXPECT_TRUE(WindowInUse(id));
    EXPECT_TRUE(Window(id).isVisible());
    Answers().Expect(12714, No);
    EXPECT_TRUE(Child(id).close());
    EXPECT_FALSE(WindowInUse(id));
}

TEST_F(WindowClosing, SlotOfClosedWindowIsReusableAtOnce)
{
    const WindowId first = Open();
    const WindowSlot slot = [first] {
        DropWindow(first);
        return WindowAllocate(WindowType::Screen, WindowSubtype::File);
    }();
    ASSERT_EQ(slot.Id, first);
    NewDocument document;
    document.Master = Picture();
    ScreenCreate(slot, document);
    EXPECT_EQ(WindowTable().Active, first);
    EXPECT_TRUE(Window(first).isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(WindowTable().Active, first);
    EXPECT_EQ(frame->ChildArea()->subWindowList().size(), 1);
    EXPECT_EQ(Shown(first), Stretch(Picture(), DevicePixels(first)));
}

TEST_F(WindowClosing, RefusesToCloseWhileCommandRuns)
{
    const WindowId id = Open();
    BeginBusy();
    EXPECT_FALSE(Child(id).close());
    EndBusy();
    EXPECT_TRUE(WindowInUse(id));
}

TEST_F(WindowClosing, CommandClosesActiveOne)
{
    const WindowId first = Open();
    const WindowId second = Open(WindowSubtype::Live);
    Answers().Expect(12714, No);
    Item("MnWindowClose").trigger();
    EXPECT_FALSE(WindowInUse(second));
    EXPECT_EQ(WindowTable().Active, first);
    Item("MnFileClose").trigger();
    EXPECT_EQ(WindowCount(), 0);
    QCoreApplication::processEvents();
    EXPECT_TRUE(frame->ChildArea()->subWindowList().isEmpty());
}

TEST_F(WindowClosing, ClosingActivatesPreviouslyActiveOne)
{
    Open();
    const WindowId before = Open();
    const WindowId other = Open();
    frame->ChildArea()->setActiveSubWindow(&Child(before));
    const WindowId last = Open();
    EXPECT_TRUE(CloseWindow(last, true));
    QCoreApplication::processEvents();
    EXPECT_EQ(WindowTable().Active, before);
    EXPECT_TRUE(CloseWindow(before, true));
    QCoreApplication::processEvents();
    EXPECT_EQ(WindowTable().Active, other);
}

TEST_F(WindowClosing, CloseAllStopsAtFirstThatStays)
{
    const WindowId live = Open(WindowSubtype::Live);
    Open();
    Answers().Expect(12714, Cancel);
    Item("MnWindowCloseAll").trigger();
    EXPECT_EQ(WindowCount(), 1);
    EXPECT_TRUE(WindowInUse(live));
    Answers().Expect(12714, No);
    Item("MnWindowCloseAll").trigger();
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(WindowClosing, ProgramAsksForWindowsBeforeExit)
{
    Open(WindowSubtype::Live);
    Answers().Expect(12714, Cancel);
    EXPECT_FALSE(frame->close());
    EXPECT_EQ(WindowCount(), 1);
    Answers().Expect(12714, No);
    EXPECT_TRUE(frame->close());
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(WindowClosing, OldestOfHundredIsReplacedInPlace)
{
    QVector<WindowId> ids;
    for (int count = 0; count < kDocumentsOfType; ++count) {
        TheSeams().Now = [count] { return QDateTime(QDate(2026, 1, 1), QTime(0, 0)).addSecs(count); };
        ids.append(Open(WindowSubtype::File, Picture(QSize(64, 48))));
    }
    QMdiSubWindow* oldest = &Child(ids[0]);
    oldest->showMaximized();
    TheSeams().Now = [] { return QDateTime(QDate(2026, 1, 2), QTime(0, 0)); };
    Answers().Expect(12713, Yes);
    const WindowId id = Open(WindowSubtype::Live, Picture(QSize(400, 300)));
    EXPECT_EQ(id, ids[0]);
    EXPECT_EQ(&Child(id), oldest);
    EXPECT_FALSE(oldest->isMaximized());
    EXPECT_EQ(Window(id).size(), QSize(400, 300));
    EXPECT_EQ(HelpNumberOf(&Graph(id)), 14502);
    EXPECT_EQ(frame->ChildArea()->subWindowList().size(), kDocumentsOfType);
}

TEST_F(WindowClosing, NewWindowHasOwnSizeNextToMaximisedOne)
{
    const WindowId first = Open();
    Child(first).showMaximized();
    const WindowId second = Open();
    EXPECT_EQ(Window(second).size(), QSize(642, 442));
    EXPECT_FALSE(Child(first).isMaximized());
    EXPECT_EQ(Window(first).size(), QSize(642, 442));
}

TEST_F(WindowClosing, FrameMayCloseWithWindowsOpen)
{
    Open();
    const WindowId id = Open();
    frame.reset();
    EXPECT_EQ(ViewOf(id), nullptr);
}

TEST_F(WindowClosing, IsDeletedWhenClosedByCommand)
{
    const WindowId id = Open();
    const QPointer<QMdiSubWindow> child = &Child(id);
    const QPointer<MfScreen> window = &Window(id);
    const BusyScope busy;
    DropWindow(id);
    EXPECT_TRUE(child.isNull());
    EXPECT_TRUE(window.isNull());
}

TEST_F(WindowClosing, IsDeletedAfterItsOwnCloseEvent)
{
    const WindowId id = Open();
    const QPointer<QMdiSubWindow> child = &Child(id);
    child->close();
    EXPECT_FALSE(WindowInUse(id));
    EXPECT_FALSE(child.isNull()) << "in its own event";
    QCoreApplication::sendPostedEvents(child, QEvent::DeferredDelete);
    EXPECT_TRUE(child.isNull());
}

} // namespace tarvik
