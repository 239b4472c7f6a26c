// screen/window/closing.h: closing document windows, one or all, with the questions whether to save what is nowhere
// else.
#pragma once

#include "screen/document/window.h"

namespace tarvik {

/// Asks for a window that holds what is not saved; with id 0 for all of them. `single`: one window is closed by itself,
/// so that there is no choice for all. False keeps the window: the user cancelled, or it could not be saved.
[[nodiscard]] bool CloseQuestion(WindowId id, bool single);
[[nodiscard]] bool CloseWindow(WindowId id, bool single);

/// The active window first. Stops at the first one that stays.
[[nodiscard]] bool CloseAllWindows();

/// Closes a window without a question, whatever it holds.
void DropWindow(WindowId id);

// Events of the window, raised by its form.

/// The user wants to close a window by its own means; true lets it close. Never while a command runs.
[[nodiscard]] bool ScreenMayClose(WindowId id);

/// The window is closing: frees document, slot and view (which is deleted here); text 11801 when it was the last one.
/// Nothing for a window that is gone already.
void ScreenUnloaded(WindowId id);

} // namespace tarvik
