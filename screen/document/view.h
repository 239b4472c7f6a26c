// screen/document/view.h: the window of a document as the modules see it: the form `MfScreen`, or nothing but its sizes
// where the program has no windows. Whoever decides sizes, texts and colours is a module; the view applies them.
#pragma once

#include "screen/document/window.h"

#include <QRect>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

namespace tarvik {

/// Where the description stands below the picture. Pixels of the client area.
struct DescriptionLayout {
    bool Visible = false;
    QRect Text; ///< `TbDescription`: as wide as its columns, which can be more than the window
    int LineTop = 0; ///< `LnDescr`, over the whole width; the picture ends above it
};

class ScreenView {
public:
    virtual ~ScreenView() = default;

    virtual int State() const = 0; ///< WinState of app/state/project.h
    virtual void SetNormal() = 0;
    virtual void Show() = 0; ///< shows it above the others and gives it the focus

    virtual QSize ClientSize() const = 0;
    virtual void SetClientSize(QSize size) = 0; ///< left and top stay; nothing while maximised
    virtual void MoveTo(QPoint leftTop) = 0;

    virtual QSize GraphSize() const = 0;
    virtual void SetGraphSize(QSize size) = 0; ///< of `PbGraph`, at 0, 0
    virtual void GraphChanged() = 0; ///< the document's `Graph` is another picture: paint it, show it

    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& caption) = 0;
    virtual void SetIcon(bool imageFromFile) = 0;

    /// The text of `TbDescription`, lines parted by "\r\n", without a change event; the caret goes to its end.
    virtual void SetDescription(const QString& text) = 0;
    virtual void LayOutDescription(const DescriptionLayout& layout) = 0;
    virtual void SetColours(quint32 paper, quint32 text) = 0; ///< 0x00BBGGRR
    virtual void FillStatus(const QString& date, const QString& text, const QString& time) = 0;
    virtual void HideStatus() = 0;

    /// Closes without a question. The window is out of sight when this returns; ViewDrop follows.
    virtual void Unload() = 0;
};

/// Holds a view while its document lives. It may be let go of in the middle of the view's own closing: what that does
/// is the maker's business.
using ScreenViewOwner = std::shared_ptr<ScreenView>;

/// What makes the view of a window when it is created. It is visible from then on, behind the others until Show; its
/// sizes, its picture and its texts follow. The default is a view of sizes only, always in normal state.
struct ScreenViewHooks {
    std::function<ScreenViewOwner(WindowId)> Load;
    std::function<bool()> MainFrameIsActive = [] { return false; };
    std::function<void(int code)> Arrange = [](int) {
    }; ///< 0 cascade, 1 and 2 tile, 3 icons: moves and sizes the windows
};
ScreenViewHooks& TheScreenViewHooks();

/// The view of a window, null without one.
ScreenView* ViewOf(WindowId id);

/// The view of a window, which is made if there is none.
ScreenView& ViewLoad(WindowId id);

/// Lets go of the view of a window.
void ViewDrop(WindowId id);

} // namespace tarvik
