#include "screen/bindScreen.h"

#include "app/frame/MfMain.h"
#include "app/menu/commands.h"
#include "app/menu/frameDocuments.h"
#include "app/state/project.h"
#include "link/control/controlGeneral.h"
#include "link/documents/file.h"
#include "link/documents/fileSave.h"
#include "screen/diagram/FmDatasetViewer.h"
#include "screen/document/description.h"
#include "screen/document/fit.h"
#include "screen/document/screenTable.h"
#include "screen/files/FmScreenShotViewer.h"
#include "screen/files/documentFiles.h"
#include "screen/files/screenShot.h"
#include "screen/window/FmDescription.h"
#include "screen/window/FmPalette.h"
#include "screen/window/FrameDesktop.h"
#include "screen/window/MfScreen.h"
#include "screen/window/arrange.h"
#include "screen/window/closing.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/screenWindow.h"

#include <QApplication>
#include <QMdiArea>

#include <array>
#include <tuple>

namespace tarvik {

namespace {

WindowId ActiveWindow()
{
    return WindowTable().Active;
}

DocumentsState StateOfDocuments()
{
    DocumentsState state;
    for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id)) {
        if (WindowTypeOf(id) != WindowType::Screen)
            continue; // only child windows of the frame are arranged
        const ScreenView* view = ViewOf(id);
        const bool isMinimised = view != nullptr && view->State() == WinState::Minimised;
        (isMinimised ? state.AnyMinimised : state.AnyShown) = true;
    }
    const WindowId active = ActiveWindow();
    state.Active = WindowInUse(active);
    if (!state.Active)
        return state;
    const ScreenView* view = ViewOf(active);
    state.ActiveIsMaximised = view != nullptr && view->State() == WinState::Maximised;
    state.ActiveAtDefaultSize = AtDefaultSize(active);
    state.DescriptionVisible = WindowAt(active).DescriptionVisible;
    return state;
}

class ScreenDocuments final : public FrameDocuments {
public:
    DocumentsState State() const override
    {
        return StateOfDocuments();
    }
    /// Disabled windows ignore the mouse. They are not repainted: a command is short.
    void Enable(bool enabled) override
    {
        if (MfMain* frame = MfMain::Current())
            frame->ChildArea()->viewport()->setAttribute(Qt::WA_TransparentForMouseEvents, !enabled);
    }
    void Retile() override
    {
        RetileIfAutoTile();
    }
    void CheckPendingResize() override
    {
        tarvik::CheckPendingResize(QGuiApplication::mouseButtons().testFlag(Qt::LeftButton));
    }
    void ClearTable() override
    {
        WindowTableClear();
    }
    bool CloseAll() override
    {
        return CloseAllWindows();
    }
    bool Open(const QString& path) override
    {
        return FileOpen(path, true, true);
    }
    bool CanOpen(const QString& path) const override
    {
        return FileCanBeDropped(path);
    }
    bool CanTake(const QMimeData&) const override
    {
        return false;
    }
};

/// Turning it on starts editing.
void ToggleDescription()
{
    const WindowId id = ActiveWindow();
    DescrToggle(id);
    if (ScreenView* view = ViewOf(id))
        view->EditDescription();
}

void DescriptionDialog()
{
    const WindowId id = ActiveWindow();
    if (!WindowInUse(id))
        return;
    FmDescription form(id, QApplication::activeWindow());
    DialogShow(form);
}

void CloseActive()
{
    std::ignore = CloseWindow(ActiveWindow(), true); // prevents auto-close
}

constexpr std::array kCommands{
    CommandBinding{ Command::FileClose, CloseActive },
    CommandBinding{ Command::WindowClose, CloseActive },
    CommandBinding{ Command::FileSaveAs, [] { FileSaveAsDlg(ActiveWindow()); } },
    CommandBinding{ Command::WindowCloseAll, [] { std::ignore = CloseAllWindows(); } },
    CommandBinding{ Command::EditCopyGraph, [] { CopyGraphics(ActiveWindow()); } },
    CommandBinding{ Command::ViewDescription, ToggleDescription },
    CommandBinding{ Command::OptionsDescription, DescriptionDialog },
    CommandBinding{ Command::OptionsColor, ColorDialog },
    CommandBinding{ Command::LiveScreen, CaptureScreen },
    CommandBinding{ Command::Arrange0, [] { ArrangeWindows(Arrangement::Cascade); } },
    CommandBinding{ Command::Arrange1, [] { ArrangeWindows(Arrangement::TileHorizontally); } },
    CommandBinding{ Command::Arrange2, [] { ArrangeWindows(Arrangement::TileVertically); } },
    CommandBinding{ Command::Arrange3, [] { ArrangeWindows(Arrangement::Icons); } },
    CommandBinding{ Command::AutoTile, ToggleAutoTile },
    CommandBinding{ Command::DefaultSize, [] { SetDefaultSize(ActiveWindow()); } },
};

class ViewerForm final : public ScreenShotViewer {
public:
    void Show(const QString& path, int /*row*/) override
    {
        ShowScreenShot(path);
    }
};

} // namespace

void BindScreen()
{
    BindScreenDesktop();
    BindDatasetForms();
    TheFrameDocuments().Implement<ScreenDocuments>();
    BindDocumentFiles();
    CommandsBind(kCommands);
    TheScreenShotViewer().Implement<ViewerForm>();
}

} // namespace tarvik
