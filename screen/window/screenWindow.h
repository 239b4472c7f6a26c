// screen/window/screenWindow.h: the life of a document window: creation, sizing, drawing, copying. Makes the
// decisions; the window itself is accessed through screen/document/view.h.
#pragma once

#include "app/text/textNumber.h"
#include "screen/document/fit.h"
#include "screen/document/screenTable.h"

#include <QImage>
#include <QString>

#include <optional>

namespace tarvik {

/// Background of every document in the colour palette once it has been drawn, regardless of the settings. 0x00BBGGRR.
inline constexpr quint32 kDocumentBackground = 0xCECFCE;

/// State before a batch of conversions.
struct ScreenBatch {
    WindowId Active = 0;
    PaletteNumber PalNr = PaletteNumber::Colour; ///< of new documents
};

/// State of the module.
struct ScreenWindowState {
    Arrangement Arranging = Arrangement::None; ///< in progress
    bool ResizePending = false;
    int PendingTicks = 0; ///< ticks that a resize has been delayed by a held mouse button
    bool ClosingAll = false; ///< do not retile after each window
    /// During a batch documents open without a window, and the other windows stay as they are.
    std::optional<ScreenBatch> Batch;
    bool StoringDescription = false; ///< the program is setting a description: ignore changes of the control
    QVector<WindowId> Chosen; ///< by the last selection, in list order
};
ScreenWindowState& TheScreenWindows();

/// Number of ticks that a held mouse button delays a resize.
inline constexpr int kPendingTicks = 24;

/// A document to be shown in a window.
struct NewDocument {
    QImage Master; ///< Format_RGB32
    QDateTime Date; ///< invalid means now
    QString Caption; ///< until the first drawing; permanent for a picture from a file
    bool Modified = false;
};

/// Puts a document into an allocated slot: record, view, size, drawing. Brings it to the front if the main frame is
/// active.
void ScreenCreate(const WindowSlot& slot, const NewDocument& document);

// Events of the window, raised by its form. The form does not raise the load event: ScreenCreate sizes a new window.

/// The size has changed, for whatever reason. While the left button is down the change is only recorded.
void ScreenResized(WindowId id, bool leftButtonDown);
void ScreenActivated(WindowId id, bool active);

/// On each tick of the frame's timer.
void CheckPendingResize(bool leftButtonDown);

void SizeNewWindow(WindowId id);
void ApplySize(WindowId id);
void FitWindow(WindowId id);
void DrawScreenWindow(WindowId id); ///< ignored before the graphics are valid

/// The document's picture in its palette for a window that is sharp at this size: the one drawn last if it has that
/// size. Null without a document and if memory runs out.
QImage DrawnPicture(WindowId id, QSize devicePixels);

/// Client size in pixels in which the picture has its default size, description included.
QSize DefaultClientSize(WindowId id);

/// True if the picture has its default size. False while minimised or maximised.
bool AtDefaultSize(WindowId id);
void SetDefaultSize(WindowId id);

/// The window's caption, or its title while it has none.
QString ScreenTitle(WindowId id);

/// Shows the window's title and a text on the status line, or clears it.
void ScreenStatus(WindowId id, TextNumber<0> text);
void ScreenStatusClear();

/// Copies the composed picture to the clipboard; text 12707 on failure.
void CopyGraphics(WindowId id);

} // namespace tarvik
