// app/platform/closeSignal.h: requests of the system to end the program: log-off, service manager, Ctrl+C.
#pragma once

#include <functional>

namespace tarvik {

/// Calls `close` from the message loop on the first request. The same signal again ends the process at once, since a
/// dialog may delay the first. A signal that the process ignored from its start stays ignored. No effect on systems
/// without signals.
void OnCloseSignal(std::function<void()> close);

} // namespace tarvik
