// app/platform/processState.h: state that lives as long as the program and registers itself, so that one call resets
// all of it.
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

/// Resets every registered state to its start value, newest first. Deletes forms that a state owns, so it must not be
/// called from an event of such a form.
void ResetAllState();

/// The one instance of a module's state, a static of the function that returns it:
///
///     ProgramState& Program()
///     {
///         static ProcessState<ProgramState> state;
///         return state.Get();
///     }
///
/// `start` makes the start value, a default-constructed one unless given.
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

    /// Destroys the old value last, so that its destructor finds the start value.
    void Reset() override
    {
        [[maybe_unused]] const State old = std::exchange(value_, start_());
    }

private:
    Start start_;
    State value_;
};

} // namespace tarvik
