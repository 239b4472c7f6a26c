// app/frame/keyboardHook.h: what the program does with a key before any form sees it: Shift, Escape and F1.
#pragma once

#include <functional>
#include <optional>

namespace tarvik {

/// A key event of the program's thread. `Key` is a Qt::Key.
struct HookKey {
    int Key = 0;
    bool Released = false;
    bool AutoRepeat = false;
};

/// The menu tracker: the help number of the highlighted menu entry, 0 for one without a topic, empty while no menu
/// shows. Bound by the frame.
std::function<std::optional<int>()>& TheMenuTracker();

/// Handles one key event; true swallows it. Call it once for each event.
[[nodiscard]] bool KeyboardHookKey(const HookKey& key);

} // namespace tarvik
