#include "screen/bindScreen.h"

#include "app/frame/MfMain.h"
#include "app/frame/commands.h"
#include "app/frame/menu.h"
#include "app/state/project.h"
#include "link/control/controlGeneral.h"
#include "screen/document/description.h"
#include "screen/document/fit.h"
#include "screen/document/screenTable.h"
#include "screen/files/FmScreenShotViewer.h"
#include "screen/files/documentFiles.h"
#include "screen/files/screenShot.h"
#include "screen/window/ChildWindows.h"
#include "screen/window/FmDescription.h"
#include "screen/window/FmPalette.h"
#include "screen/window/FmSelectWindow.h"
#include "screen/window/MfScreen.h"
#include "screen/window/arrange.h"
#include "screen/window/closing.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/screenWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QMdiArea>
#include <QMimeData>
#include <QPointer>

#include <tuple>

namespace tarvik {

namespace {

WindowId ActiveWindow()
{
    return WindowTable().Active;
}

/// The modules keep it as long as its document lives; the frame's area may be destroyed earlier.
ScreenViewOwner LoadView(WindowId id)
{
    MfMain* frame = MfMain::Current();
    if (frame == nullptr)
        return {};
    QPointer<MfScreen> window = new MfScreen(id, *frame);
    return { window.data(), [window](ScreenView*) {
                if (window)
                    window->Release();
            } };
}

void BindViews()
{
    ScreenViewHooks& hooks = TheScreenViewHooks();
    hooks.Load = LoadView;
    hooks.MainFrameIsActive = [] { return MfMain::Current() != nullptr && MfMain::Current()->HasActivation(); };
    hooks.Arrange = [](int code) {
        if (MfMain* frame = MfMain::Current())
            ArrangeChildWindows(*frame->ChildArea(), code);
    };
}

DocumentsState StateOfDocuments()
{
    DocumentsState state;
    for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id)) {
        const ScreenView* view = ViewOf(id);
        const bool isMinimised = view != nullptr && view->State() == WinStateMinimised;
        (isMinimised ? state.AnyMinimised : state.AnyShown) = true;
    }
    const WindowId active = ActiveWindow();
    state.Active = WindowInUse(active);
    if (!state.Active)
        return state;
    const ScreenView* view = ViewOf(active);
    state.ActiveIsMaximised = view != nullptr && view->State() == WinStateMaximised;
    state.ActiveAtDefaultSize = AtDefaultSize(active);
    state.DescriptionVisible = WindowAt(active).DescriptionVisible;
    return state;
}

/// Disabled windows ignore the mouse. They are not repainted: a command is short.
void EnableDocuments(bool enabled)
{
    if (MfMain* frame = MfMain::Current())
        frame->ChildArea()->viewport()->setAttribute(Qt::WA_TransparentForMouseEvents, !enabled);
}

void BindDocuments()
{
    DocumentHooks& hooks = TheDocumentHooks();
    hooks.State = StateOfDocuments;
    hooks.Enable = EnableDocuments;
    hooks.Retile = RetileIfAutoTile;
    hooks.CheckPendingResize = [] { CheckPendingResize(QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)); };
}

bool SetClipboard(const QImage& picture)
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setImage(picture);
    const QMimeData* held = clipboard->mimeData();
    return held != nullptr && held->hasImage();
}

bool SelectWindows(const QVector<WindowId>& offered)
{
    FmSelectWindow form(offered, QApplication::activeWindow());
    DialogShow(form);
    TheScreenWindows().Chosen = form.Chosen();
    return !form.Chosen().isEmpty();
}

/// Turning it on starts editing.
void ToggleDescription()
{
    const WindowId id = ActiveWindow();
    DescrToggle(id);
    if (auto* window = dynamic_cast<MfScreen*>(ViewOf(id)))
        window->EditDescription();
}

void DescriptionDialog()
{
    const WindowId id = ActiveWindow();
    if (!WindowInUse(id))
        return;
    FmDescription form(id, QApplication::activeWindow());
    DialogShow(form);
}

void BindCommands()
{
    CommandHooks& commands = TheCommandHooks();
    for (const Command close : { Command::FileClose, Command::WindowClose })
        commands[close] = [] { std::ignore = CloseWindow(ActiveWindow(), true); }; // prevents auto-close
    commands[Command::WindowCloseAll] = [] { std::ignore = CloseAllWindows(); };
    commands[Command::EditCopyGraph] = [] { CopyGraphics(ActiveWindow()); };
    commands[Command::ViewDescription] = ToggleDescription;
    commands[Command::OptionsDescription] = DescriptionDialog;
    commands[Command::OptionsColor] = ColorDialog;
    commands[Command::LiveScreen] = CaptureScreen;
    commands[Command::Arrange0] = [] { ArrangeWindows(ArrangeCascade); };
    commands[Command::Arrange1] = [] { ArrangeWindows(ArrangeTileHorizontally); };
    commands[Command::Arrange2] = [] { ArrangeWindows(ArrangeTileVertically); };
    commands[Command::Arrange3] = [] { ArrangeWindows(ArrangeIcons); };
    commands[Command::AutoTile] = ToggleAutoTile;
    commands[Command::DefaultSize] = [] { SetDefaultSize(ActiveWindow()); };
}

} // namespace

void BindScreen()
{
    BindViews();
    BindDocuments();
    BindDocumentFiles();
    BindCommands();
    TheScreenWindowHooks().SetClipboard = SetClipboard;
    TheScreenWindowHooks().SelectWindows = SelectWindows;
    TheControlHooks().ShowScreenShot = [](const QString& path, int) { ShowScreenShot(path); };
}

} // namespace tarvik
