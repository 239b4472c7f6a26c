// app/platform/processState.h: state that lives as long as the program and registers itself, so that one call puts all
// of it back to its start value.
#pragma once

#include <utility>

namespace tarvik {

/// One registered state. It is registered from its construction to its destruction; main thread only.
class RegisteredState {
public:
    RegisteredState(const RegisteredState&) = delete;
    RegisteredState& operator=(const RegisteredState&) = delete;

    virtual void Reset() = 0;

protected:
    RegisteredState();
    ~RegisteredState();
};

/// Puts every registered state back to its start value, the youngest first. A form that a state owns is released by
/// this, so that it must not happen inside one of the form's own events.
void ResetAllState();

/// The one instance of a module's state, a static of the function that returns it:
///
///     ProgramState& Program()
///     {
///         static ProcessState<ProgramState> state;
///         return state.Get();
///     }
///
/// `start` makes the start value; without it that is a default-constructed one.
template <typename State>
class ProcessState final : public RegisteredState {
public:
    using Start = State (*)();

    explicit ProcessState(Start start = [] { return State(); })
        : start_(start)
        , value_(start())
    {
    }

    State& Get()
    {
        return value_;
    }

    /// The old value is released last: what its end does finds the start value.
    void Reset() override
    {
        [[maybe_unused]] const State old = std::exchange(value_, start_());
    }

private:
    Start start_;
    State value_;
};

} // namespace tarvik
