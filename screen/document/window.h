// screen/document/window.h: the table of document windows: their slots, their order, their captions.
#pragma once

#include <QDateTime>
#include <QSize>
#include <QString>
#include <QVector>

#include <array>

namespace tarvik {

/// Number of a window: 1 to kWindowSlots; 0 means none or, where a call accepts it, all windows.
using WindowId = qint16;

inline constexpr int kWindowSlots = 200;
inline constexpr int kDocumentsOfType = 100;

enum WindowType : qint16 { WindowFree = 0, WindowDataSet = 1, WindowScreen = 2 };
enum WindowSubtype : qint16 { SubtypeLive = 0, SubtypeDataSet = 1, SubtypeFile = 4 };

/// Left and top of a window that the system places.
inline constexpr qint32 kPlacedBySystem = 32767;

/// Pixels. A width and height of 0 stand for the default of the window type.
struct WindowPlacement {
    qint32 Left = kPlacedBySystem;
    qint32 Top = kPlacedBySystem;
    qint32 Reserved[2] = {};
    qint32 ClientWidth = 0; ///< overrides the default client size when not both are 0
    qint32 ClientHeight = 0;
    qint32 RequestedWidth = 0; ///< of the picture
    qint32 RequestedHeight = 0;
};

inline constexpr int kTitleTemplateLength = 56;
inline constexpr int kDescriptionLength = 1120;

struct WindowRecord {
    qint16 Type = WindowFree;
    qint16 DocumentIndex = 0; ///< 1-based: of the screen documents, or of the data set windows
    bool GraphicsValid = false; ///< the picture exists; a redraw before does nothing
    bool InResize = false; ///< resized by program: resize events are ignored
    QDateTime Created; ///< age of the slot, for eviction and order
    WindowPlacement Placement;
    qint32 DefaultWidth = 0; ///< default client size, pixels
    qint32 DefaultHeight = 0;
    QString TitleTemplate; ///< at most kTitleTemplateLength characters
    bool Modified = false;
    bool ResizePending = false; ///< a resize came while the left mouse button was down
    qint16 Subtype = 0;
    bool DescriptionVisible = false;
    QString Description; ///< at most kDescriptionLength characters, lines parted by "\r\n", no trailing blanks
    qint16 DescriptionColumns = 0;
    qint16 OwnerTag = 0; ///< `InstrumentAccepted` when the window was made
};

struct WindowState {
    std::array<WindowRecord, kWindowSlots + 1> Table; ///< element 0 is not used
    WindowId Active = 0;
    bool NoQuestions = false; ///< questions of closing count as answered No
    bool FillingStatus = false; ///< the status of a window is being filled
};

/// `WindowTable` with what goes along with it.
WindowState& WindowTable();

/// All slots free, no active window.
void WindowTableClear();

bool WindowIsValid(WindowId id);
bool WindowInUse(WindowId id);

/// The record of a window in use; another id is a mistake of the caller.
WindowRecord& WindowAt(WindowId id);

/// The queries below answer 0, false or empty for an id that is not in use.
qint16 WindowTypeOf(WindowId id);
qint16 WindowDocumentIndex(WindowId id);
qint16 WindowSubtypeOf(WindowId id);
bool WindowIsFileImage(WindowId id); ///< a screen window of an image from a file
bool WindowIsModified(WindowId id); ///< with id 0: any window
WindowId WindowNext(WindowId id); ///< the next one in use; 0 starts, 0 ends
int WindowCount(int type); ///< 0 counts all types

/// Makes a window in use the active one; any other id does nothing.
void WindowSetActive(WindowId id);

/// What a new window asked for. `Id` is 0 when there is none to be had.
struct WindowSlot {
    WindowId Id = 0;
    qint16 Subtype = 0;
    bool Reused = false; ///< the oldest window gives way
};

/// A slot for a new window: text 12711 when all are in use, question 12713 when the type has no document index left. It
/// is asked once for all files that are chosen together: who makes windows in another way calls MsgAskOnceReset before.
/// A fresh slot has its type and index from here on. A window that is to give way keeps its index, and is otherwise
/// left as it is until WindowInitialise.
WindowSlot WindowAllocate(qint16 type, qint16 subtype);

/// Fills the record of an allocated slot and makes it the active one. What a reused window has as title template and
/// description stays.
void WindowInitialise(const WindowSlot& slot, const WindowPlacement& placement, qint16 ownerTag);

/// The slot is free again.
void WindowFreeSlot(WindowId id);

/// Default client size of a type, pixels; `formSize` for a type that has none.
QSize WindowDefaultSize(qint16 type, QSize formSize);

/// Columns of the description of a fresh window.
qint16 WindowDefaultColumns(qint16 type);

/// Caption of a window from its template, with the type's name and the date and time of its document (the null date
/// gives empty texts).
QString WindowTitle(WindowId id, const QDateTime& documentDate);

/// Which windows a selection offers.
enum WindowTypeMask { MaskDataSet = 1, MaskScreen = 2, MaskAll = 3 };

/// Windows whose type meets the mask, the newest first. Images from files count with MaskAll, or if `withImages`.
QVector<WindowId> WindowsFor(int mask, bool withImages);

} // namespace tarvik
