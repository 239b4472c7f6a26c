// screen/window/closing.h: closes document windows, with the questions whether to save unsaved contents.
#pragma once

#include "screen/document/window.h"

namespace tarvik {

/// Asks about a window with unsaved contents; with id 0 about all of them. `single`: one window is closed on its own,
/// without a choice for all. False keeps the window: the user cancelled, or saving failed.
[[nodiscard]] bool CloseQuestion(WindowId id, bool single);
[[nodiscard]] bool CloseWindow(WindowId id, bool single);

/// Starts with the active window. Stops at the first one that stays open.
[[nodiscard]] bool CloseAllWindows();

/// Closes a window without a question, unsaved or not.
void DropWindow(WindowId id);

/// After windows have closed: retiles the others, or shows the hint that there are none.
void UpdateAfterClosing();

// Events of the window, raised by its form.

/// The user closes a window directly; true allows it. Never while a command runs.
[[nodiscard]] bool ScreenMayClose(WindowId id);

/// The window is closing: frees document, slot and view (which is deleted here); text 11801 after the last one.
/// Ignored for a window that is already gone.
void ScreenUnloaded(WindowId id);

} // namespace tarvik
