#include "app/state/progressBar.h"

#include "app/platform/seams.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fixture.h"

namespace tarvik {

class ProgressBar : public ProgramTest {
protected:
    ProgressBar()
    {
        TheSeams().PumpEvents = [this] { ++Pumped; };
    }

    FakeFrame frame_;
    QStringList& Log = frame_.Progress;
    int Pumped = 0;
};

TEST_F(ProgressBar, StartShowsZeroThenStartsTheTimer)
{
    ProgressStart(50);
    EXPECT_EQ(Log, QStringList({ "0%", "timer on" }));
    EXPECT_TRUE(Progress().Active);
    EXPECT_EQ(Progress().PercentPerStep, 2);
}

TEST_F(ProgressBar, TextIsThePercent)
{
    ProgressStart(50);
    ProgressAdd(3);
    EXPECT_EQ(frame_.Percents, QList<int>({ 0, 6 }));
    EXPECT_EQ(Log, QStringList({ "0%", "timer on", "6%" }));
}

TEST_F(ProgressBar, AddsStepsAndShowsWholePercents)
{
    ProgressStart(300);
    Log.clear();
    ProgressAdd(2);
    EXPECT_TRUE(Log.isEmpty());
    ProgressAdd(1);
    EXPECT_EQ(Log, QStringList("1%"));
    EXPECT_EQ(Progress().WorkCounter, 3);
}

TEST_F(ProgressBar, RedrawsOnlyWhenThePercentChanges)
{
    ProgressStart(1000);
    Log.clear();
    for (int step = 0; step < 20; ++step)
        ProgressAdd(1);
    EXPECT_EQ(Log, QStringList({ "1%", "2%" }));
}

TEST_F(ProgressBar, ProcessesEventsAfterEachRedraw)
{
    ProgressStart(100);
    ProgressAdd(1);
    ProgressRefresh();
    EXPECT_EQ(Pumped, 2);
}

TEST_F(ProgressBar, StaysBetweenZeroAndHundred)
{
    ProgressStart(10);
    Log.clear();
    ProgressAdd(25);
    EXPECT_EQ(Log, QStringList("100%"));
    ProgressAdd(-90);
    EXPECT_EQ(Log, QStringList({ "100%", "0%" }));
    ProgressAdd(INT32_MAX);
    ProgressAdd(INT32_MAX);
    EXPECT_EQ(Progress().WorkCounter, INT32_MAX);
}

TEST_F(ProgressBar, TotalBelowOneShowsZero)
{
    ProgressStart(0);
    ProgressAdd(5);
    ProgressStart(-5);
    ProgressAdd(5);
    EXPECT_EQ(Log, QStringList({ "0%", "timer on", "0%", "timer on" }));
}

TEST_F(ProgressBar, TimerShowsStepsThatADecoderAdded)
{
    ProgressStart(10);
    Log.clear();
    Progress().WorkCounter += 5;
    ProgressRefresh();
    EXPECT_EQ(Log, QStringList("50%"));
}

TEST_F(ProgressBar, EndStopsTheTimerShowsTheLastPercentAndClears)
{
    ProgressStart(10);
    Progress().WorkCounter = 10;
    Log.clear();
    ProgressEnd();
    EXPECT_EQ(Log, QStringList({ "timer off", "100%", "clear" }));
    EXPECT_FALSE(Progress().Active);
}

TEST_F(ProgressBar, HasNoEffectWithoutAJob)
{
    ProgressAdd(5);
    ProgressRefresh();
    ProgressEnd();
    EXPECT_TRUE(Log.isEmpty());
    EXPECT_EQ(Progress().WorkCounter, 0);
}

TEST_F(ProgressBar, StartBeginsANewJob)
{
    ProgressStart(10);
    ProgressAdd(5);
    ProgressStart(4);
    EXPECT_EQ(Progress().WorkCounter, 0);
    EXPECT_EQ(Log.last(2), QStringList({ "0%", "timer on" }));
}

TEST_F(ProgressBar, BarWidthIsRoundedDown)
{
    EXPECT_EQ(ProgressBarWidth(139, 50), 69);
    EXPECT_EQ(ProgressBarWidth(139, 0), 0);
    EXPECT_EQ(ProgressBarWidth(139, 100), 139);
}

TEST_F(ProgressBar, CharactersAreWhiteWhileTheyBeginOnTheBar)
{
    const auto characters =
        ProgressCharacters("50%", 100, 50, [](QChar character) { return character == u'%' ? 12 : 10; });
    ASSERT_EQ(characters.size(), 3U);
    EXPECT_EQ(characters[0].Character, u'5');
    EXPECT_EQ(characters[0].Left, 34);
    EXPECT_EQ(characters[1].Left, 44);
    EXPECT_EQ(characters[2].Left, 54);
    EXPECT_TRUE(characters[0].IsWhite);
    EXPECT_TRUE(characters[1].IsWhite);
    EXPECT_FALSE(characters[2].IsWhite);
}

TEST_F(ProgressBar, CharacterAtTheEndOfTheBarIsBlack)
{
    const auto characters = ProgressCharacters("x", 100, 45, [](QChar) { return 10; });
    EXPECT_EQ(characters[0].Left, 45);
    EXPECT_FALSE(characters[0].IsWhite);
}

} // namespace tarvik
