#include "app/platform/interval.h"

#include "app/platform/seams.h"
#include "tests/support/fixture.h"

#include <utility>
#include <vector>

namespace tarvik {

/// Timers that expire as soon as the program waits.
class Interval : public ProgramTest {
protected:
    Interval()
    {
        TheSeams().StartTimer = [this](int milliseconds, std::function<void()> tick) {
            Started.push_back(milliseconds);
            pending_ = std::move(tick);
        };
        TheSeams().PumpUntil = [this](const std::function<bool()>& done) {
            if (WhileWaiting)
                std::exchange(WhileWaiting, {})();
            if (pending_)
                std::exchange(pending_, {})();
            EXPECT_TRUE(done());
        };
    }

    std::vector<int> Started;
    std::function<void()> WhileWaiting;

private:
    std::function<void()> pending_;
};

TEST_F(Interval, ZeroReturnsAtOnce)
{
    IntervalWait(0);
    EXPECT_TRUE(Started.empty());
}

TEST_F(Interval, NegativeReturnsAtOnce)
{
    IntervalWait(-1);
    EXPECT_TRUE(Started.empty());
}

TEST_F(Interval, TakesOneTimerUpToAMinute)
{
    IntervalWait(60000);
    EXPECT_EQ(Started, std::vector<int>({ 60000 }));
}

TEST_F(Interval, SplitsALongerWaitIntoMinutes)
{
    IntervalWait(130001);
    EXPECT_EQ(Started, std::vector<int>({ 60000, 60000, 10001 }));
}

TEST_F(Interval, NestedWaitDoesNotRestartTheTimer)
{
    WhileWaiting = [] { IntervalWait(500); };
    IntervalWait(2000);
    EXPECT_EQ(Started, std::vector<int>({ 2000 }));
}

} // namespace tarvik
