#include "app/state/statusBar.h"

#include "app/state/project.h"
#include "app/text/lang.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fixture.h"

namespace tarvik {

class StatusBar : public ProgramTest {
protected:
    FakeFrame frame_;
};

TEST_F(StatusBar, BusyClearsTextAndFourthPanelThenUpdatesTheMenus)
{
    BeginBusy();
    EXPECT_FALSE(Program().Idle);
    EXPECT_FALSE(CanAct());
    EXPECT_EQ(frame_.Log, QStringList({ "status:", "panel4:", "menu" }));
}

TEST_F(StatusBar, SecondBeginBusyHasNoEffect)
{
    BeginBusy();
    frame_.Log.clear();
    BeginBusy();
    EXPECT_TRUE(frame_.Log.isEmpty());
}

TEST_F(StatusBar, EndOfBusyUpdatesTheMenusThenClearsTheLine)
{
    BeginBusy();
    StatusJob("job");
    MousePointerBusy();
    frame_.Log.clear();
    EndBusy();
    EXPECT_TRUE(CanAct());
    EXPECT_FALSE(Program().StatusHold);
    EXPECT_FALSE(frame_.Busy);
    EXPECT_EQ(frame_.Log, QStringList({ "menu", "status:" }));
}

TEST_F(StatusBar, EndOfBusyWithoutBeginHasNoEffect)
{
    StatusJob("job");
    frame_.Log.clear();
    EndBusy();
    EXPECT_TRUE(frame_.Log.isEmpty());
    EXPECT_TRUE(Program().StatusHold);
}

TEST_F(StatusBar, InnerEndOfBusyLeavesTheProgramBusy)
{
    {
        const BusyScope outer;
        StatusJob("job");
        MousePointerBusy();
        frame_.Log.clear();
        {
            const BusyScope inner;
        }
        EXPECT_FALSE(Program().Idle);
        EXPECT_TRUE(Program().StatusHold);
        EXPECT_TRUE(frame_.Busy);
        EXPECT_EQ(frame_.Status, "job");
        EXPECT_TRUE(frame_.Log.isEmpty());
    }
    EXPECT_TRUE(CanAct());
    EXPECT_FALSE(Program().StatusHold);
    EXPECT_FALSE(frame_.Busy);
    EXPECT_EQ(frame_.Log, QStringList({ "menu", "status:" }));
}

TEST_F(StatusBar, ScopeWithinABusyProgramLeavesItBusy)
{
    BeginBusy();
    {
        const BusyScope scope;
    }
    EXPECT_FALSE(Program().Idle);
}

TEST_F(StatusBar, EarlyReturnEndsBusy)
{
    const auto leave = [](bool early) {
        const BusyScope busy;
        if (early)
            return Program().Idle;
        return true;
    };
    EXPECT_FALSE(leave(true));
    EXPECT_TRUE(Program().Idle);
    EXPECT_EQ(frame_.Log, QStringList({ "status:", "panel4:", "menu", "menu", "status:" }));
}

TEST_F(StatusBar, IdleSetReturnsTheFormerValueWithoutSideEffects)
{
    EXPECT_TRUE(IdleSet(false));
    EXPECT_FALSE(IdleSet(true));
    EXPECT_TRUE(frame_.Log.isEmpty());
}

TEST_F(StatusBar, CanActOnlyWithoutDialogAndCommand)
{
    EXPECT_TRUE(CanAct());
    FakeDialog form;
    DialogPush(form, false);
    EXPECT_FALSE(CanAct());
    DialogPop();
    Program().Idle = false;
    EXPECT_FALSE(CanAct());
}

TEST_F(StatusBar, TextNeedsAnActiveWindow)
{
    frame_.Active = false;
    frame_.Status = "old";
    StatusSet("hint");
    EXPECT_EQ(frame_.Status, "old");
    StatusSet("");
    EXPECT_EQ(frame_.Status, "");
    frame_.Active = true;
    StatusSet("hint");
    EXPECT_EQ(frame_.Status, "hint");
}

TEST_F(StatusBar, TextIsShownWhileADialogIsActive)
{
    frame_.Active = false;
    FakeDialog form;
    form.Active = true;
    DialogPush(form, false);
    StatusSet("hint");
    EXPECT_EQ(frame_.Status, "hint");
}

TEST_F(StatusBar, JobHoldsTheLineAgainstEveryOtherText)
{
    frame_.Active = false;
    StatusJob("job");
    EXPECT_EQ(frame_.Status, "job");
    frame_.Active = true;
    StatusSet("hint");
    StatusSet("");
    EXPECT_EQ(frame_.Status, "job");
    StatusClear();
    EXPECT_EQ(frame_.Status, "");
}

TEST_F(StatusBar, TextsByNumber)
{
    StatusSetId(TextNumber<0>(13601));
    EXPECT_EQ(frame_.Status, LngStr(13601));
    for (int index = 0; index < 4; ++index) {
        StatusSetReady(index);
        EXPECT_EQ(frame_.Status, LngStr(10600 + index));
    }
}

TEST_F(StatusBar, BusyPointerShowsOnTheFrameWhileAJobHoldsTheLine)
{
    StatusJob("job");
    MousePointerBusy();
    EXPECT_TRUE(frame_.Busy);
    Program().StatusHold = false;
    MousePointerBusy();
    EXPECT_FALSE(frame_.Busy);
}

TEST_F(StatusBar, BusyPointerShowsOnTheTopDialog)
{
    FakeDialog lower;
    FakeDialog upper;
    DialogPush(lower, false);
    DialogPush(upper, false);
    StatusJob("job");
    MousePointerBusy();
    EXPECT_TRUE(upper.Busy);
    EXPECT_FALSE(lower.Busy);
    EXPECT_FALSE(frame_.Busy);
}

} // namespace tarvik
