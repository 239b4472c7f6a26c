// screen/screenWindow.h: what happens to a document window: sizing, drawing, arranging, closing, copying. Decides; the
// window itself is reached through screen/view.h.
#pragma once

#include "screen/window.h"

#include <QImage>
#include <QString>

#include <functional>

/// State of the module.
struct ScreenWindowState {
    int Arranging = 65535; ///< Arrangement in progress
    bool ResizePending = false;
    int PendingTicks = 0;
    QVector<WindowId> Chosen; ///< by the last selection, in its order
};
ScreenWindowState& TheScreenWindows();
void ScreenWindowsReset();

/// Number of ticks that a held mouse button delays a resize.
inline constexpr int kPendingTicks = 24;

// Events of the window.
void ScreenLoaded(WindowId id); ///< Sizing a new window
void ScreenResized(WindowId id, bool leftButtonDown);
void ScreenActivated(WindowId id, bool active);
[[nodiscard]] bool ScreenMayClose(WindowId id); ///< the question; true lets it close
void ScreenUnloaded(WindowId id); ///< frees the slot; text 11801 when it was the last one

/// On each tick of the frame's timer.
void CheckPendingResize(bool leftButtonDown);

void SizeNewWindow(WindowId id);
void ApplySize(WindowId id);
void FitWindow(WindowId id);
void DrawScreenWindow(WindowId id); ///< nothing before the graphics are valid

bool AtDefaultSize(WindowId id);
void SetDefaultSize(WindowId id);

void ArrangeWindows(int code);
void ToggleAutoTile();
void RetileIfWished(); ///< the number of windows, or their room, has changed

/// Closing with its question. `single`: one window is closed by itself. False keeps the window.
[[nodiscard]] bool CloseQuestion(WindowId id, bool single);
bool CloseWindow(WindowId id, bool single);
bool CloseAllWindows();

/// Shows the composed picture on the clipboard; text 12707 when that fails.
void CopyGraphics(WindowId id);

/// What these need of the desktop and of other folders; bound by the composition.
struct ScreenWindowHooks {
    std::function<bool(const QImage&)> SetClipboard = [](const QImage&) { return false; };
    std::function<bool(WindowId)> Save; ///< the save command of a document; true when it was saved
    std::function<bool(const QVector<WindowId>& offered)> SelectWindows; ///< FmSelectWindow; fills Chosen
};
ScreenWindowHooks& TheScreenWindowHooks();

/// Offers windows and leaves the chosen ones in `Chosen`; a single candidate is chosen without a form.
void ChooseWindows(int mask, bool withImages);
