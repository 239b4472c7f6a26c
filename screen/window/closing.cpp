#include "screen/window/closing.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/textId.h"
#include "screen/document/view.h"
#include "screen/window/arrange.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kRecheckMs = 100;

/// The windows of an id with unsaved contents. Data sets are redrawn from their table, so they lose nothing.
QVector<WindowId> UnsavedOf(WindowId id)
{
    QVector<WindowId> ids;
    for (WindowId each = WindowNext(0); each != 0; each = WindowNext(each)) {
        const bool isMeant = id == 0 || each == id;
        if (isMeant && WindowIsModified(each) && WindowTypeOf(each) != WindowType::DataSet)
            ids.append(each);
    }
    return ids;
}

/// Asks whether to save; No without a question after "No All".
MsgResult AskWhetherToSave(WindowId id, bool single)
{
    if (WindowTable().NoQuestions)
        return MsgResult::No;
    const auto text = id == 0 ? TextId::SaveBeforeClosing : TextId::SaveChanges;
    const QString title = ScreenTitle(id);
    if (single || WindowCount() == 1)
        return MsgYesNoCancel1(text, title);
    const MsgResult answer = MsgYesNoAllCancel1(text, title);
    WindowTable().NoQuestions = TheMessage().NoAll;
    return answer;
}

void ForgetNoAll()
{
    WindowTable().NoQuestions = false;
    TheMessage().NoAll = false;
}

bool Save(const QVector<WindowId>& ids)
{
    return std::all_of(ids.begin(), ids.end(), [](WindowId id) { return TheScreenDesktop()->Save(id); });
}

bool CloseEach()
{
    const QScopedValueRollback closing(TheScreenWindows().ClosingAll, true);
    while (WindowCount() > 0) {
        const WindowId active = WindowTable().Active;
        if (!CloseWindow(WindowInUse(active) ? active : WindowNext(0), false))
            return false;
        TheSeams().PumpEvents();
    }
    return true;
}

/// Checks again while the command runs, since its messages process events.
void ShowHintWhenIdle(int milliseconds)
{
    TheSeams().StartTimer(milliseconds, [] {
        if (WindowCount() > 0)
            return;
        if (Program().Idle)
            StatusSetId(TextId::PressF1ForHelp);
        else
            ShowHintWhenIdle(kRecheckMs);
    });
}

/// A running command clears the status line when it ends.
void ShowNoWindowHint()
{
    StatusSetId(TextId::PressF1ForHelp);
    if (!Program().Idle)
        ShowHintWhenIdle(0);
}

} // namespace

bool CloseQuestion(WindowId id, bool single)
{
    const WindowId asked = WindowCount() == 1 ? WindowNext(0) : id;
    const QVector<WindowId> unsaved = UnsavedOf(asked);
    if (unsaved.isEmpty())
        return true;
    switch (AskWhetherToSave(asked, single)) {
    case MsgResult::Yes:
        return Save(unsaved);
    case MsgResult::No:
        for (const WindowId each : unsaved)
            WindowAt(each).Modified = false;
        return true;
    default:
        return false;
    }
}

bool CloseWindow(WindowId id, bool single)
{
    if (!CloseQuestion(id, single))
        return false;
    DropWindow(id);
    return true;
}

bool CloseAllWindows()
{
    ForgetNoAll();
    const bool closed = CloseEach();
    ForgetNoAll();
    RetileIfAutoTile();
    return closed;
}

void DropWindow(WindowId id)
{
    if (!WindowInUse(id))
        return;
    if (ScreenView* view = ViewOf(id))
        view->Unload();
    ScreenUnloaded(id);
}

bool ScreenMayClose(WindowId id)
{
    if (!CanAct())
        return false;
    const BusyScope busy; // saving processes events
    return CloseQuestion(id, true);
}

void ScreenUnloaded(WindowId id)
{
    if (!WindowInUse(id))
        return;
    const bool isChild = WindowTypeOf(id) == WindowType::Screen;
    ViewDrop(id);
    PictureFree(id);
    WindowFreeSlot(id);
    if (TheScreenWindows().Batch)
        return;
    if (isChild) // the frame's windows don't move when a data set closes
        UpdateAfterClosing();
}

void UpdateAfterClosing()
{
    if (WindowCount() == 0)
        ShowNoWindowHint();
    else
        RetileIfAutoTile();
}

} // namespace tarvik
