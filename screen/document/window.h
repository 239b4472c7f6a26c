// screen/document/window.h: the table of document windows: slots, order and captions.
#pragma once

#include <QDateTime>
#include <QSize>
#include <QString>
#include <QVector>

#include <array>

namespace tarvik {

/// Id of a window: 1 to kWindowSlots; 0 means none or, where a call accepts it, all windows.
using WindowId = qint16;

inline constexpr int kWindowSlots = 200;
inline constexpr int kDocumentsOfType = 100;

enum class WindowType : qint16 { Free = 0, DataSet = 1, Screen = 2 };
enum class WindowSubtype : qint16 { Live = 0, DataSet = 1, File = 4 };

/// Left and top of a window that the window system places.
inline constexpr qint32 kPlacedBySystem = 32767;

/// Pixels. A width and height of 0 mean the default of the window type.
struct WindowPlacement {
    qint32 Left = kPlacedBySystem;
    qint32 Top = kPlacedBySystem;
    qint32 Reserved[2] = {};
    qint32 ClientWidth = 0; ///< overrides the default client size unless both are 0
    qint32 ClientHeight = 0;
    qint32 RequestedWidth = 0; ///< of the picture
    qint32 RequestedHeight = 0;
};

inline constexpr int kTitleTemplateLength = 56;
inline constexpr int kDescriptionLength = 1120;

struct WindowRecord {
    WindowType Type = WindowType::Free;
    qint16 DocumentIndex = 0; ///< 1-based: index of the screen document or data set window
    bool GraphicsValid = false; ///< the picture exists; redraws are ignored before
    bool InResize = false; ///< resized by the program: resize events are ignored
    QDateTime Created; ///< age of the slot, for eviction and order
    WindowPlacement Placement;
    qint32 DefaultWidth = 0; ///< default client size, pixels
    qint32 DefaultHeight = 0;
    QString TitleTemplate; ///< at most kTitleTemplateLength characters
    bool Modified = false;
    bool ResizePending = false; ///< resized while the left mouse button was down
    WindowSubtype Subtype = WindowSubtype::Live;
    bool DescriptionVisible = false;
    QString Description; ///< at most kDescriptionLength characters, lines separated by "\r\n", no trailing blanks
    qint16 DescriptionColumns = 0;
    qint16 OwnerTag = 0; ///< `InstrumentAccepted` when the window was created
};

struct WindowState {
    std::array<WindowRecord, kWindowSlots + 1> Table; ///< element 0 is unused
    WindowId Active = 0;
    bool NoQuestions = false; ///< questions on closing count as answered No
    bool FillingStatus = false; ///< the status panel is being filled
};

/// `WindowTable` and related state.
WindowState& WindowTable();

/// Frees all slots; no active window.
void WindowTableClear();

bool WindowIsValid(WindowId id);
bool WindowInUse(WindowId id);

/// The record of a window in use; any other id is a programming error.
WindowRecord& WindowAt(WindowId id);

/// The queries below return Free, Live, 0, false or empty for an id that is not in use.
WindowType WindowTypeOf(WindowId id);
qint16 WindowDocumentIndex(WindowId id);
WindowSubtype WindowSubtypeOf(WindowId id);
bool WindowIsFileImage(WindowId id); ///< a screen window of a picture from a file
bool WindowIsModified(WindowId id); ///< with id 0: any window
WindowId WindowNext(WindowId id); ///< the next window in use; start with 0, ends with 0
int WindowCount(); ///< of all types
int WindowCount(WindowType type);

/// Activates a window in use; any other id is ignored.
void WindowSetActive(WindowId id);

/// Slot for a new window. `Id` is 0 if there is none.
struct WindowSlot {
    WindowId Id = 0;
    WindowSubtype Subtype = WindowSubtype::Live;
    bool Reused = false; ///< the oldest window is replaced
};

/// Finds a slot for a new window: text 12711 if all are in use, question 12713 if the type has no document index
/// left. The question is asked once for all files chosen together; other callers call MsgAskOnceReset first. Type and
/// index of a fresh slot are set. A window to be replaced keeps its index and stays as it is until WindowInitialise.
WindowSlot WindowAllocate(WindowType type, WindowSubtype subtype);

/// Fills the record of an allocated slot and activates it. A reused window keeps its title template and description.
void WindowInitialise(const WindowSlot& slot, const WindowPlacement& placement, qint16 ownerTag);

/// Marks the slot as free.
void WindowFreeSlot(WindowId id);

/// Default client size of a type, pixels; `formSize` if the type has none.
QSize WindowDefaultSize(WindowType type, QSize formSize);

/// Description columns of a new window.
qint16 WindowDefaultColumns(WindowType type);

/// Caption of a window from its template, the type's name and the date and time of its document (empty texts for the
/// null date).
QString WindowTitle(WindowId id, const QDateTime& documentDate);

/// Which windows a selection offers: one bit for each WindowType, by its value.
enum WindowTypeMask { MaskDataSet = 1, MaskScreen = 2, MaskAll = 3 };

/// Windows whose type matches the mask, newest first. Pictures from files are included with MaskAll or `withImages`.
QVector<WindowId> WindowsFor(int mask, bool withImages);

} // namespace tarvik
