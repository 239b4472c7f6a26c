#include "screen/window/screenWindow.h"

#include "app/message/message.h"
#include "app/platform/debug.h"
#include "app/platform/processState.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/connection/connect.h"
#include "screen/document/color.h"
#include "screen/document/compose.h"
#include "screen/document/description.h"
#include "screen/document/fit.h"
#include "screen/document/screenStatus.h"

#include <QScopedValueRollback>

namespace tarvik {

namespace {

constexpr quint32 kInk = 0x000000;

bool IsMinimised(WindowId id)
{
    const ScreenView* view = ViewOf(id);
    return view != nullptr && view->State() == WinState::Minimised;
}

QSize DefaultGraph(WindowId id)
{
    const WindowRecord& record = WindowAt(id);
    return { record.DefaultWidth, record.DefaultHeight };
}

QSize RequestedSize(WindowId id, const ScreenView& view)
{
    const WindowPlacement& placement = WindowAt(id).Placement;
    if (placement.RequestedWidth == 0 && placement.RequestedHeight == 0)
        return WindowDefaultSize(WindowTypeOf(id), view.ClientSize());
    return { placement.RequestedWidth, placement.RequestedHeight };
}

QSize OwnSize(WindowId id)
{
    const DocumentPicture* picture = PictureOf(id);
    return picture == nullptr ? QSize() : picture->OwnSize();
}

/// The background and the text of a screen have these colours regardless of the settings, and they become the defaults.
void ForceColours(WindowId id)
{
    if (ScreenOf(id) == nullptr)
        return;
    ColorStore(kDocumentBackground, id, ColourBackground);
    ColorStore(kInk, id, ColourText);
    ColorStore(kInk, id, ColourForeground);
}

/// Draws what is around the picture. Pictures from files and data sets keep their names as captions.
void DrawRest(WindowId id, ScreenView& view)
{
    const ScreenRecord* screen = ScreenOf(id);
    if (screen != nullptr && !WindowIsFileImage(id))
        view.SetCaption(WindowTitle(id, screen->Date));
    view.SetIcon(WindowIsFileImage(id));
    StatusFill(id);
    StatusColours(id);
}

} // namespace

ScreenWindowState& TheScreenWindows()
{
    static ProcessState<ScreenWindowState> state;
    return state.Get();
}

void ScreenCreate(const WindowSlot& slot, const NewDocument& document)
{
    WindowPlacement placement;
    placement.RequestedWidth = document.Master.width();
    placement.RequestedHeight = document.Master.height();
    WindowInitialise(slot, placement, static_cast<qint16>(Connection().InstrumentAccepted));
    WindowAt(slot.Id).Modified = document.Modified;
    ScreenRecord& record = ScreenInitialise(slot.Id);
    record.Master = document.Master;
    if (document.Date.isValid())
        record.Date = document.Date;

    ScreenView& view = ViewLoad(slot.Id);
    view.SetNormal();
    SizeNewWindow(slot.Id);
    view.SetCaption(document.Caption);
    WindowAt(slot.Id).GraphicsValid = true;
    DrawScreenWindow(slot.Id);
    if (TheScreenDesktop()->MainFrameIsActive())
        view.Show();
}

void ScreenResized(WindowId id, bool leftButtonDown)
{
    if (!WindowInUse(id) || WindowAt(id).InResize)
        return;
    WindowRecord& record = WindowAt(id);
    ScreenWindowState& state = TheScreenWindows();
    if (record.GraphicsValid && state.Arranging == Arrangement::None && leftButtonDown) {
        record.ResizePending = true;
        state.ResizePending = true;
        return;
    }
    ApplySize(id);
}

void ScreenActivated(WindowId id, bool active)
{
    if (active)
        WindowSetActive(id);
    else
        WindowTable().Active = 0;
    TheFrame()->MenuUpdate();
}

void CheckPendingResize(bool leftButtonDown)
{
    ScreenWindowState& state = TheScreenWindows();
    if (!state.ResizePending)
        return;
    if (leftButtonDown && ++state.PendingTicks <= kPendingTicks)
        return;
    state.ResizePending = false;
    state.PendingTicks = 0;
    for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id)) {
        if (!WindowAt(id).ResizePending)
            continue;
        ApplySize(id);
        state.ResizePending = state.ResizePending || WindowAt(id).ResizePending;
    }
}

void SizeNewWindow(WindowId id)
{
    ScreenView* view = ViewOf(id);
    if (!WindowInUse(id) || view == nullptr)
        return;
    WindowRecord& record = WindowAt(id);
    const QSize size = RequestedSize(id, *view);
    record.DefaultWidth = size.width();
    record.DefaultHeight = size.height();
    const WindowPlacement& placement = record.Placement;
    const bool isPlaced = placement.Left != kPlacedBySystem || placement.Top != kPlacedBySystem;
    const QSize placed(placement.ClientWidth, placement.ClientHeight);
    {
        const QScopedValueRollback resizing(WindowAt(id).InResize, true);
        if (isPlaced && view->State() != WinState::Maximised)
            view->MoveTo({ placement.Left, placement.Top });
        view->SetClientSize(placed == QSize(0, 0) ? size : placed);
    }
    ApplySize(id);
}

void ApplySize(WindowId id)
{
    if (!WindowInUse(id))
        return;
    WindowAt(id).ResizePending = false;
    if (IsMinimised(id))
        return;
    {
        const QScopedValueRollback resizing(WindowAt(id).InResize, true);
        FitWindow(id);
    }
    TheFrame()->MenuUpdate();
}

void FitWindow(WindowId id)
{
    ScreenView* view = ViewOf(id);
    if (view == nullptr || IsMinimised(id))
        return;
    if (view->State() == WinState::Normal) {
        const QSize client = view->ClientSize();
        const QSize fitted = FitClient({ OwnSize(id), client, view->GraphSize(), DescrHeight(id), StatusHeight(id),
            TheScreenWindows().Arranging });
        if (fitted != client)
            view->SetClientSize(fitted);
    }
    const DescriptionLayout layout = DescrLayout(id, view->ClientSize());
    view->LayOutDescription(layout);
    view->SetGraphSize(GraphFor(view->ClientSize(), layout.Visible, layout.LineTop));
    DrawScreenWindow(id);
}

QImage DrawnPicture(WindowId id, QSize devicePixels)
{
    const DocumentPicture* picture = PictureOf(id);
    if (picture == nullptr)
        return {};
    if (picture->Graph.size() == devicePixels)
        return picture->Graph;
    const ScreenView* view = ViewOf(id);
    const int width = view == nullptr ? 0 : view->GraphSize().width();
    return picture->Draw(devicePixels, width == 0 ? 1.0 : static_cast<double>(devicePixels.width()) / width);
}

void DrawScreenWindow(WindowId id)
{
    DocumentPicture* picture = PictureOf(id);
    ScreenView* view = ViewOf(id);
    if (picture == nullptr || view == nullptr || !WindowAt(id).GraphicsValid)
        return;
    ScreenStatus(id, TextId::StatusDrawingPicture);
    ForceColours(id);
    QImage graph = picture->Draw(view->GraphSize(), 1);
    if (graph.isNull()) {
        DebugReport("DrawScreenWindow");
    } else {
        picture->Graph = std::move(graph);
        view->GraphChanged();
        DrawRest(id, *view);
    }
    ScreenStatusClear();
}

bool AtDefaultSize(WindowId id)
{
    const ScreenView* view = ViewOf(id);
    return WindowInUse(id) && view != nullptr && view->State() == WinState::Normal
        && view->GraphSize() == DefaultGraph(id);
}

QSize DefaultClientSize(WindowId id)
{
    return DefaultGraph(id) + QSize(0, DescrHeight(id) + StatusHeight(id));
}

void SetDefaultSize(WindowId id)
{
    ScreenView* view = ViewOf(id);
    if (!WindowInUse(id) || view == nullptr)
        return;
    view->SetNormal();
    {
        const QScopedValueRollback resizing(WindowAt(id).InResize, true);
        view->SetClientSize(DefaultClientSize(id));
    }
    if (view->GraphSize() != DefaultGraph(id))
        ApplySize(id);
}

QString ScreenTitle(WindowId id)
{
    const ScreenView* view = ViewOf(id);
    QString caption = view == nullptr ? QString() : view->Caption();
    if (!caption.isEmpty())
        return caption;
    const ScreenRecord* record = ScreenOf(id);
    return WindowTitle(id, record == nullptr ? QDateTime() : record->Date);
}

void ScreenStatus(WindowId id, TextNumber<0> text)
{
    if (!TheScreenWindows().Batch) // its form shows the file
        StatusSet(ScreenTitle(id) + LngStr(TextId::WindowTitleSeparator) + LngStr(text));
}

void ScreenStatusClear()
{
    StatusSet({});
}

void CopyGraphics(WindowId id)
{
    if (!WindowInUse(id))
        return;
    ScreenStatus(id, TextId::StatusCopyingPicture);
    const QImage picture = ComposeWindow(id);
    if (picture.isNull() || !TheScreenDesktop()->SetClipboard(picture))
        MsgOk(TextId::PictureNotCopied);
    ScreenStatusClear();
}

} // namespace tarvik
