// screen/document/view.h: interface of a document's window for the modules: a form, or an object that only has sizes
// where the program has no windows. Modules decide sizes, texts and colours; the view applies them.
#pragma once

#include "app/platform/port.h"
#include "app/state/project.h"
#include "screen/document/fit.h"
#include "screen/document/window.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>

#include <memory>

namespace tarvik {

/// Position of the description below the picture. Pixels of the client area.
struct DescriptionLayout {
    bool Visible = false;
    QRect Text; ///< `TbDescription`: as wide as its columns, possibly wider than the window
    int LineTop = 0; ///< `LnDescr`, over the full width; the picture ends above it
};

class ScreenView {
public:
    virtual ~ScreenView() = default;

    virtual WinState State() const = 0;
    virtual void SetNormal() = 0;
    virtual void Show() = 0; ///< raises the window and gives it the focus

    virtual QSize ClientSize() const = 0;
    virtual void SetClientSize(QSize size) = 0; ///< keeps the position; ignored while maximised
    virtual void MoveTo(QPoint leftTop) = 0;

    virtual QSize GraphSize() const = 0;
    virtual void SetGraphSize(QSize size) = 0; ///< of `PbGraph`, at 0, 0
    virtual void GraphChanged() = 0; ///< the document's `Graph` has been replaced: repaint

    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& caption) = 0;
    virtual void SetIcon(bool imageFromFile) = 0;

    /// Sets the text of `TbDescription`, lines separated by "\r\n", without a change event; the caret moves to its
    /// end.
    virtual void SetDescription(const QString& text) = 0;

    /// Moves the caret into `TbDescription` if that is visible.
    virtual void EditDescription() { }
    virtual void LayOutDescription(const DescriptionLayout& layout) = 0;
    virtual void SetColours(quint32 paper, quint32 text) = 0; ///< 0x00BBGGRR
    virtual void FillStatus(const QString& date, const QString& text, const QString& time) = 0;
    virtual void HideStatus() = 0;

    /// Closes without a question. The window is hidden on return; ViewDrop follows.
    virtual void Unload() = 0;
};

/// Keeps the view alive; may be released from the view's own close event.
using ScreenViewOwner = std::shared_ptr<ScreenView>;

/// Where the windows of documents lie: the frame's area, and the desktop around it.
class ScreenDesktop {
public:
    /// Creates the view of a new screen window, never null. It is visible at once, below the other windows until Show;
    /// sizes, picture and texts follow.
    virtual ScreenViewOwner Load(WindowId id) = 0;

    virtual bool MainFrameIsActive() = 0;

    /// Moves and sizes the windows.
    virtual void Arrange(Arrangement arrangement) = 0;

    /// False when the clipboard does not take the picture.
    virtual bool SetClipboard(const QImage& picture) = 0;

    /// The save command of a document; true when it was saved.
    virtual bool Save(WindowId id) = 0;

    /// Which of several windows the user chooses, in the order of the choice; empty when cancelled. `marked` is
    /// selected at first.
    virtual QVector<WindowId> SelectWindows(const QVector<WindowId>& offered, WindowId marked) = 0;

protected:
    ~ScreenDesktop() = default;
};

/// Without an implementation a view is one of sizes only, always in normal state, and there is nothing else.
Port<ScreenDesktop>& TheScreenDesktop();

/// A view of sizes only.
ScreenViewOwner LoadSizesView();

/// The view of a window; null if it has none.
ScreenView* ViewOf(WindowId id);

/// The view of a window, created on demand.
ScreenView& ViewLoad(WindowId id);

/// Gives a window the view that shows it.
void ViewSet(WindowId id, ScreenViewOwner view);

/// Releases the view of a window.
void ViewDrop(WindowId id);

} // namespace tarvik
