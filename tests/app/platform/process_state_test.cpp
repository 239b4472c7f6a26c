#include "app/platform/port.h"
#include "app/platform/processState.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tarvik {

namespace {

struct Counter {
    int Count = 3;
    std::vector<int> Numbers;
};

struct Greeter {
    virtual ~Greeter() = default;
    virtual std::string Greet() = 0;
};

struct NoGreeter final : Greeter {
    std::string Greet() override
    {
        return "nobody";
    }
};

struct LoudGreeter final : Greeter {
    std::string Greet() override
    {
        return "HELLO";
    }
};

/// The value of a state at the time when its old value is destroyed.
std::vector<int>& CountsAtEnd()
{
    static std::vector<int> counts;
    return counts;
}

struct Owner {
    std::shared_ptr<void> Held;
};

} // namespace

TEST(ProcessState, ResetMakesTheDefaultValue)
{
    ProcessState<Counter> state;
    state.Get() = { 8, { 1, 2 } };
    ResetAllState();
    EXPECT_EQ(state.Get().Count, 3);
    EXPECT_TRUE(state.Get().Numbers.empty());
}

TEST(ProcessState, ResetMakesTheStartValue)
{
    ProcessState<int> state([] { return 7; });
    EXPECT_EQ(state.Get(), 7);
    state.Get() = 1;
    ResetAllState();
    EXPECT_EQ(state.Get(), 7);
}

TEST(ProcessState, ResetsTheNewestFirst)
{
    CountsAtEnd().clear();
    static int* older = nullptr;
    ProcessState<int> first([] { return 1; });
    ProcessState<Owner> second;
    older = &first.Get();
    first.Get() = 5;
    second.Get().Held.reset(older, [](int* count) { CountsAtEnd().push_back(*count); });
    ResetAllState();
    EXPECT_EQ(CountsAtEnd(), std::vector<int>{ 5 });
    EXPECT_EQ(first.Get(), 1);
}

TEST(ProcessState, DestroysTheOldValueAfterSettingTheStartValue)
{
    static ProcessState<Owner>* state = nullptr;
    static bool wasEmpty = false;
    ProcessState<Owner> local;
    state = &local;
    local.Get().Held.reset(state, [](ProcessState<Owner>* at) { wasEmpty = at->Get().Held == nullptr; });
    ResetAllState();
    EXPECT_TRUE(wasEmpty);
}

TEST(ProcessState, IsNotResetAfterDestruction)
{
    static int starts = 0;
    {
        const ProcessState<int> state([] { return ++starts; });
    }
    ASSERT_EQ(starts, 1);
    ResetAllState();
    EXPECT_EQ(starts, 1);
}

TEST(Port, UsesTheAbsentImplementationUntilSet)
{
    PortOr<Greeter, NoGreeter> owner;
    Port<Greeter>& port = owner;
    EXPECT_EQ(port->Greet(), "nobody");
    LoudGreeter loud;
    port.Set(loud);
    EXPECT_EQ(port->Greet(), "HELLO");
    EXPECT_EQ(&*port, &loud);
}

TEST(Port, TakesAnImplementationWithoutData)
{
    PortOr<Greeter, NoGreeter> port;
    port.Implement<LoudGreeter>();
    EXPECT_EQ(port->Greet(), "HELLO");
}

TEST(Port, ScopesNestAndRestoreTheFormerImplementation)
{
    PortOr<Greeter, NoGreeter> port;
    LoudGreeter outer;
    LoudGreeter inner;
    {
        const PortScope<Greeter> first(port, outer);
        {
            const PortScope<Greeter> second(port, inner);
            EXPECT_EQ(&*port, &inner);
        }
        EXPECT_EQ(&*port, &outer);
    }
    EXPECT_EQ(port->Greet(), "nobody");
}

TEST(Port, IsResetWithAllState)
{
    PortOr<Greeter, NoGreeter> port;
    LoudGreeter loud;
    port.Set(loud);
    ResetAllState();
    EXPECT_EQ(port->Greet(), "nobody");
}

} // namespace tarvik
