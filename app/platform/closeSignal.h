// app/platform/closeSignal.h: requests of the system to end the program: log-off, service manager, Ctrl+C.
#pragma once

#include <functional>

namespace tarvik {

/// What a signal does that arrives again.
enum class RepeatedSignal {
    Requests, ///< as the first one
    Kills ///< ends the process at once
};

/// Calls `close` from the message loop on every request; those that arrive before it runs count as one. A signal that
/// the process ignored from its start stays ignored. No effect on systems without signals.
void OnCloseSignal(std::function<void()> close, RepeatedSignal repeated);

} // namespace tarvik
