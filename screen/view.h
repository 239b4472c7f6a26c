// screen/view.h: the window of a document as the modules see it: the form `MfScreen`, or nothing but its sizes where the
// program has no windows. Whoever decides sizes, texts and colours is a module; the view applies them.
#pragma once

#include "screen/window.h"

#include <QRect>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

/// Where the description stands below the picture. Pixels of the client area.
struct DescriptionLayout {
    bool Visible = false;
    QRect Text; ///< `TbDescription`
    int LineTop = 0; ///< `LnDescr`, over the whole width
};

class ScreenView {
public:
    virtual ~ScreenView() = default;

    virtual int State() const = 0; ///< WinState of app/project.h
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

    virtual void SetDescription(const QString& text) = 0; ///< the text of `TbDescription`, without a change event
    virtual void LayOutDescription(const DescriptionLayout& layout) = 0;
    virtual void SetColours(quint32 paper, quint32 text) = 0; ///< 0x00BBGGRR
    virtual void FillStatus(const QString& date, const QString& text, const QString& time) = 0;

    virtual void Unload() = 0; ///< closes without a question; the view is gone afterwards
};

/// Makes the view of a window when it is created. The default is a view of sizes only, always in normal state.
struct ScreenViewHooks {
    std::function<std::unique_ptr<ScreenView>(WindowId)> Load;
    std::function<bool()> MainFrameIsActive = [] { return false; };
    std::function<void(int code)> Arrange = [](int) {}; ///< 0 cascade, 1 and 2 tile, 3 icons: moves and sizes the windows
};
ScreenViewHooks& TheScreenViewHooks();

/// The view of a window, null without one.
ScreenView* ViewOf(WindowId id);

/// Loads and drops the view of a window. Dropping is for a view that has unloaded, or at the end.
ScreenView* ViewLoad(WindowId id);
void ViewDrop(WindowId id);
void ViewsReset();
