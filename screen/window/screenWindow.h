// screen/window/screenWindow.h: what happens to a document window: it comes to be, is sized, drawn, closed, copied.
// Decides; the window itself is reached through screen/document/view.h.
#pragma once

#include "screen/document/screenTable.h"

#include <QImage>
#include <QString>

#include <functional>

namespace tarvik {

/// What surrounds every picture in colour once it has been drawn, whatever the settings held. 0x00BBGGRR.
inline constexpr quint32 kDocumentBackground = 0xCECFCE;

/// State of the module.
struct ScreenWindowState {
    int Arranging = 65535; ///< Arrangement in progress
    bool ResizePending = false;
    int PendingTicks = 0; ///< that a held mouse button has let go by
    bool ClosingAll = false; ///< the windows that are left are not tiled after each one
    bool StoringDescription = false; ///< a control takes a description over: its changes are not the user's
    QVector<WindowId> Chosen; ///< by the last selection, in its order
};
ScreenWindowState& TheScreenWindows();

/// Number of ticks that a held mouse button delays a resize.
inline constexpr int kPendingTicks = 24;

/// A document on its way into a window.
struct NewDocument {
    QImage Master; ///< Format_RGB32
    QDateTime Date; ///< invalid for the present moment
    QString Caption; ///< until the first drawing, which a picture from a file keeps
    bool Modified = false;
};

/// Puts a document into an allocated slot: record, view, size, drawing. It is in front afterwards if the main frame is
/// the active window.
void ScreenCreate(const WindowSlot& slot, const NewDocument& document);

// Events of the window, raised by its form. The form does not raise the load event: ScreenCreate sizes a new window.

/// Another size, whoever set it. While the left button is down it is only noted.
void ScreenResized(WindowId id, bool leftButtonDown);
void ScreenActivated(WindowId id, bool active);

/// On each tick of the frame's timer.
void CheckPendingResize(bool leftButtonDown);

void SizeNewWindow(WindowId id);
void ApplySize(WindowId id);
void FitWindow(WindowId id);
void DrawScreenWindow(WindowId id); ///< nothing before the graphics are valid

/// The document's picture in its palette, stretched to a size; null when there is no memory for it.
QImage ScreenPicture(WindowId id, QSize size);

/// The same for the window: its picture as it was drawn last, if that has the size.
QImage DrawnPicture(WindowId id, QSize devicePixels);

/// Client size of the window in which the picture is as large as in a new one, pixels: with the description below it.
QSize DefaultClientSize(WindowId id);

/// The picture is as large as in a new window. False while minimised or maximised.
bool AtDefaultSize(WindowId id);
void SetDefaultSize(WindowId id);

/// What the window is called: its caption, or its title while it has none.
QString ScreenTitle(WindowId id);

/// Shows the window's title and a text as status; empties the status line.
void ScreenStatus(WindowId id, int textId);
void ScreenStatusClear();

/// Copies the composed picture to the clipboard; text 12707 when that fails.
void CopyGraphics(WindowId id);

/// What these need of the desktop and of other folders; bound by the composition.
struct ScreenWindowHooks {
    std::function<bool(const QImage&)> SetClipboard = [](const QImage&) { return false; };
    std::function<bool(WindowId)> Save; ///< the save command of a document; true when it was saved
    std::function<bool(const QVector<WindowId>& offered)> SelectWindows; ///< FmSelectWindow; fills Chosen
};
ScreenWindowHooks& TheScreenWindowHooks();

} // namespace tarvik
