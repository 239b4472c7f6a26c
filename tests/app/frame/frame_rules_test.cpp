#include "app/forms/dialog.h"
#include "app/frame/dropFiles.h"
#include "app/frame/keyboardHook.h"
#include "app/frame/placement.h"
#include "app/frame/tip.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "closed/loader.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fakeFrameDocuments.h"
#include "tests/support/fakeHelp.h"
#include "tests/support/fixture.h"

#include <QMimeData>

#include <cstring>

namespace tarvik {

namespace {

class Tip : public ProgramTest {
protected:
    /// The result of the last of `ticks` ticks over `button`.
    int Ticks(int ticks, int button)
    {
        int shown = kNoButton;
        for (int tick = 0; tick < ticks; ++tick)
            shown = counter.Tick(button);
        return shown;
    }

    TipCounter counter;
};

} // namespace

TEST_F(Tip, ShowsOnTheTenthTickOverAButton)
{
    EXPECT_EQ(Ticks(9, 3), kNoButton);
    EXPECT_EQ(Ticks(1, 3), 3);
    EXPECT_EQ(counter.Count(), 10);
    EXPECT_EQ(Ticks(50, 3), 3);
    EXPECT_EQ(counter.Count(), 10);
}

TEST_F(Tip, HidesOnTheMoveToAnotherButtonAndShowsOneTickLater)
{
    Ticks(10, 3);
    EXPECT_EQ(Ticks(1, 4), kNoButton);
    EXPECT_EQ(counter.Count(), 20);
    EXPECT_EQ(Ticks(1, 4), 4);
}

TEST_F(Tip, ForgetsAtOnceWhenThePointerLeavesAfterAFirstTip)
{
    Ticks(10, 3);
    EXPECT_EQ(Ticks(1, kNoButton), kNoButton);
    EXPECT_EQ(counter.Count(), 0);
    EXPECT_EQ(Ticks(1, 3), kNoButton);
}

TEST_F(Tip, CountsDownTo11ThenForgetsAfterAMove)
{
    Ticks(10, 3);
    Ticks(1, 4);
    Ticks(9, kNoButton);
    EXPECT_EQ(counter.Count(), 11);
    Ticks(1, kNoButton);
    EXPECT_EQ(counter.Count(), 0);
}

TEST_F(Tip, ShowsAtOnceWhenThePointerReturnsSoonAfterAMove)
{
    Ticks(10, 3);
    Ticks(2, 4);
    Ticks(5, kNoButton);
    EXPECT_EQ(Ticks(1, 5), 5);
}

TEST_F(Tip, EndsWithTheShortcutWhenItsTextGivesOne)
{
    EXPECT_EQ(TipText("Open"), "Open");
    TvLng().LngGetStr = [](int32_t, const char*, char* out, int32_t) -> int32_t {
        std::strcpy(out, "(F1)");
        return 4;
    };
    EXPECT_EQ(TipText("Open"), "Open (F1)");
}

TEST_F(Tip, IsUnderTheButtonAndSlightlyLargerThanItsText)
{
    const QRect tip = TipRect(QRect(100, 50, 24, 24), QSize(60, 14), QRect(0, 0, 1280, 800));
    EXPECT_EQ(tip, QRect(98, 61 + 18, 65, 17));
}

TEST_F(Tip, KeepsFourPixelsFromTheRightEdge)
{
    const QRect screen(0, 0, 1280, 800);
    const auto rightGap = [&screen](int buttonLeft) {
        return screen.right() - TipRect(QRect(buttonLeft, 50, 24, 24), QSize(60, 14), screen).right();
    };
    EXPECT_EQ(rightGap(1280 - 63 - 4), 4);
    EXPECT_EQ(rightGap(1280 - 63 - 3), 4);
    EXPECT_EQ(rightGap(1270), 4);
    EXPECT_EQ(rightGap(1280 - 63 - 5), 5);
}

namespace {

class KeyboardHook : public ProgramTest {
protected:
    static bool Press(int key)
    {
        return KeyboardHookKey({ key, false, false });
    }
    static bool Repeat(int key)
    {
        return KeyboardHookKey({ key, false, true });
    }
    static bool Release(int key)
    {
        return KeyboardHookKey({ key, true, false });
    }

    FakeFrame frame;
    FakeHelp help;
};

} // namespace

TEST_F(KeyboardHook, HoldsShiftUntilAnyKeyIsReleased)
{
    EXPECT_FALSE(Press(Qt::Key_Shift));
    EXPECT_TRUE(Program().ShiftDown);
    EXPECT_FALSE(Press(Qt::Key_A));
    EXPECT_TRUE(Program().ShiftDown);
    EXPECT_FALSE(Release(Qt::Key_A));
    EXPECT_FALSE(Program().ShiftDown);
    EXPECT_FALSE(Press(Qt::Key_Shift));
    EXPECT_FALSE(Release(Qt::Key_Shift));
    EXPECT_FALSE(Program().ShiftDown);
}

TEST_F(KeyboardHook, EscapeEndsTheActiveDialogOnPressAndPassesOn)
{
    FakeDialog dialog;
    dialog.Active = true;
    DialogPush(dialog, false);
    EXPECT_FALSE(Press(Qt::Key_Escape));
    EXPECT_TRUE(dialog.WasUnloaded);
    EXPECT_EQ(Program().DialogResult, 1);
}

TEST_F(KeyboardHook, EscapeWorksOnRepeatAndOnReleaseToo)
{
    for (const auto event : { &Repeat, &Release }) {
        FakeDialog dialog;
        dialog.Active = true;
        DialogPush(dialog, false);
        EXPECT_FALSE(event(Qt::Key_Escape));
        EXPECT_TRUE(dialog.WasUnloaded);
    }
}

TEST_F(KeyboardHook, PressAndReleaseOfEscapeEachCloseADialog)
{
    FakeDialog lower;
    FakeDialog upper;
    DialogPush(lower, false);
    DialogPush(upper, false);
    upper.Active = true;
    Press(Qt::Key_Escape);
    EXPECT_TRUE(upper.WasUnloaded);
    EXPECT_FALSE(lower.WasUnloaded);
    upper.Active = false;
    lower.Active = true;
    Release(Qt::Key_Escape);
    EXPECT_TRUE(lower.WasUnloaded);
}

TEST_F(KeyboardHook, F1WithShiftEntersWhatsThisOnceAndIsSwallowed)
{
    Press(Qt::Key_Shift);
    EXPECT_TRUE(Press(Qt::Key_F1));
    EXPECT_EQ(frame.WhatsThis, 1);
    EXPECT_FALSE(Repeat(Qt::Key_F1));
    EXPECT_EQ(frame.WhatsThis, 1);
    EXPECT_TRUE(help.Topics.isEmpty());
}

TEST_F(KeyboardHook, F1ShowsTheTopicOfTheHighlightedMenuEntry)
{
    frame.Highlighted = 11905;
    EXPECT_TRUE(Press(Qt::Key_F1));
    EXPECT_EQ(help.Topics, QList<int>{ 11905 });
    EXPECT_FALSE(Repeat(Qt::Key_F1));
    EXPECT_FALSE(Release(Qt::Key_F1));
    EXPECT_EQ(help.Topics.size(), 1);
}

TEST_F(KeyboardHook, F1OnAnEntryWithoutTopicIsSwallowedAndShowsNothing)
{
    frame.Highlighted = 0;
    EXPECT_TRUE(Press(Qt::Key_F1));
    EXPECT_TRUE(help.Topics.isEmpty());
}

TEST_F(KeyboardHook, F1OutsideMenusIsPassedOn)
{
    EXPECT_FALSE(Press(Qt::Key_F1));
    EXPECT_TRUE(help.Topics.isEmpty());
}

namespace {

class Drop : public ProgramTest {
protected:
    Drop()
    {
        documents.OnOpen = [this](const QString& path) { documents.Opens = !path.endsWith("bad.tvm"); };
    }

    QString File(const QString& name)
    {
        Store(FilePath(name), "x");
        return FilePath(name);
    }

    FakeFrameDocuments documents;
};

} // namespace

TEST_F(Drop, IsAllowedWhenAnyFileIsKnown)
{
    EXPECT_TRUE(DropIsAllowed(QStringList{ "a.exe", "b.tvm" }));
    EXPECT_FALSE(DropIsAllowed(QStringList{ "a.exe" }));
    EXPECT_FALSE(DropIsAllowed(QStringList()));
}

TEST_F(Drop, IsRefusedWhileTheProgramCanNotAct)
{
    BeginBusy();
    EXPECT_FALSE(DropIsAllowed(QStringList{ "b.tvm" }));
}

TEST_F(Drop, TakesOtherDataOnlyWhenItIsRecognised)
{
    QMimeData data;
    EXPECT_FALSE(DropIsAllowed(data));
    documents.TakesData = true;
    EXPECT_TRUE(DropIsAllowed(data));
    BeginBusy();
    EXPECT_FALSE(DropIsAllowed(data));
}

TEST_F(Drop, OpensTheKnownFilesUpToTheFirstFailure)
{
    DropOpenFiles({ File("a.tvm"), File("b.exe"), File("c.tvm"), File("bad.tvm"), File("d.tvm") });
    EXPECT_EQ(documents.Opened, (QStringList{ "a.tvm", "c.tvm", "bad.tvm" }));
}

TEST_F(Drop, OpensNothingWhileTheProgramCanNotAct)
{
    BeginBusy();
    DropOpenFiles({ File("a.tvm") });
    EXPECT_TRUE(documents.Opened.isEmpty());
}

TEST_F(Drop, StopsAtAMissingFile)
{
    DropOpenFiles({ FilePath("gone.tvm"), File("a.tvm") });
    EXPECT_TRUE(documents.Opened.isEmpty());
}

namespace {

const QVector<QRect> kTwoScreens{ QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1024) };

} // namespace

TEST(Placement, KeepsARectangleThatIsOnAScreen)
{
    EXPECT_EQ(PlacementOnScreens(QRect(100, 100, 800, 600), kTwoScreens), QRect(100, 100, 800, 600));
    EXPECT_EQ(PlacementOnScreens(QRect(2000, 50, 800, 600), kTwoScreens), QRect(2000, 50, 800, 600));
    EXPECT_EQ(PlacementOnScreens(QRect(1700, 900, 800, 600), kTwoScreens), QRect(1700, 900, 800, 600));
}

TEST(Placement, MovesAnInvisibleFrameOntoAScreen)
{
    EXPECT_EQ(PlacementOnScreens(QRect(5000, 100, 800, 600), kTwoScreens), QRect(1120, 100, 800, 600));
    EXPECT_EQ(PlacementOnScreens(QRect(-3000, -3000, 800, 600), kTwoScreens), QRect(0, 0, 800, 600));
}

TEST(Placement, KeepsTheTitleBarOnTheScreen)
{
    EXPECT_EQ(PlacementOnScreens(QRect(100, -200, 800, 600), kTwoScreens), QRect(100, 0, 800, 600));
}

TEST(Placement, FitsAFrameThatIsTooLargeOrEmpty)
{
    EXPECT_EQ(PlacementOnScreens(QRect(9000, 9000, 4000, 3000), kTwoScreens), QRect(0, 0, 1920, 1080));
    EXPECT_EQ(PlacementOnScreens(QRect(10, 10, 0, 0), kTwoScreens).size(), kMinVisiblePx);
    EXPECT_EQ(PlacementOnScreens(QRect(1, 2, 3, 4), {}), QRect(1, 2, 3, 4));
}

TEST(Placement, SubtractsTheBordersOfAFrameAsLargeAsAScreen)
{
    const QSize borders(8, 30);
    EXPECT_EQ(PlacedSize(QRect({ 0, 0 }, kTwoScreens.first().size()), kTwoScreens, borders), QSize(1912, 1050));
    EXPECT_EQ(PlacedSize(QRect(0, 0, 1920, 1079), kTwoScreens, borders), QSize(1920, 1079));
    EXPECT_EQ(PlacedSize(QRect(5, 5, 800, 600), kTwoScreens, borders), QSize(800, 600));
}

} // namespace tarvik
