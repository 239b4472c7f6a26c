// app/state/frameHooks.h: what modules below the main frame ask of it. Without a frame each does nothing.
#pragma once

#include <QString>

#include <functional>

namespace tarvik {

/// Panels of the status bar, left to right. The first one shows the status text.
inline constexpr int kStatusPanels = 4;

struct FrameHooks {
    std::function<void()> MenuUpdate = [] {};
    std::function<void(const QString&)> SetStatusText = [](const QString&) {};
    std::function<QString()> StatusText = [] { return QString(); };
    std::function<void(int panel, const QString&)> SetPanelText = [](int, const QString&) {}; ///< panel 1 to 4
    std::function<bool()> HasActivation = [] { return false; };
    std::function<void(bool)> ShowBusyPointer = [](bool) {};

    /// Before a command stops the thread: the menu that started it goes from the screen, the rest is painted.
    std::function<void()> FinishPainting = [] {};
    std::function<void()> CloseTip = [] {};
    std::function<void(bool)> EnableStatusBar = [](bool) {}; ///< off while an editor is open
};
FrameHooks& TheFrameHooks();

void FrameHooksReset();

} // namespace tarvik
