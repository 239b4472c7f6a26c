// app/platform/closeSignal.h: the system's wish that the program end (logging off, a service manager, Ctrl+C in a
// terminal).
#pragma once

#include <functional>

namespace tarvik {

/// Calls `close` from the message loop when the first such wish arrives. The same one again ends the process at once,
/// since a dialog may keep the first waiting. A signal that the process was started to ignore stays ignored. Nothing on
/// systems without signals.
void OnCloseSignal(std::function<void()> close);

} // namespace tarvik
