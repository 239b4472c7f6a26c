// app/closeSignal.h: the system's wish that the program end (logging off, a service manager, Ctrl+C in a terminal).
#pragma once

#include <functional>

/// Calls `close` from the message loop when the first such wish arrives. A second one ends the process at once, since
/// the program may have refused the first. Nothing on systems without signals.
void OnCloseSignal(std::function<void()> close);
