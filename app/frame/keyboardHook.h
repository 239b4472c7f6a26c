// app/frame/keyboardHook.h: what the program does with a key before any form sees it: Shift, Escape and F1.
#pragma once

namespace tarvik {

/// A key event of the program's thread. `Key` is a Qt::Key.
struct HookKey {
    int Key = 0;
    bool Released = false;
    bool AutoRepeat = false;
};

/// Handles one key event; true swallows it. Call it once for each event.
[[nodiscard]] bool KeyboardHookKey(const HookKey& key);

} // namespace tarvik
