// The frame's side of the hooks: what modules below ask of it, its own commands, its place in the settings, and what
// is dropped on it.
#include "app/frame/MfMain.h"

#include "app/forms/form.h"
#include "app/frame/FrameMenus.h"
#include "app/frame/FrameStatusBar.h"
#include "app/frame/FrameToolbar.h"
#include "app/frame/ProgressPicture.h"
#include "app/frame/dropFiles.h"
#include "app/frame/keyboardHook.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
#include "app/settings/settings.h"
#include "app/state/frameHooks.h"
#include "app/state/progressBar.h"
#include "app/state/project.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QScreen>
#include <QTimer>

namespace tarvik {

namespace {

constexpr int kHelpContents = 11971;
constexpr int kHelpIndex = 11973;
constexpr int kHelpSearch = 11975;
constexpr int kHelpSupport = 11979;
constexpr int kHelpAbout = 11901;

QStringList LocalFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

bool DropIsAllowedFor(const QMimeData& data)
{
    return data.hasUrls() ? DropIsAllowed(LocalFiles(data)) : DropIsAllowed(data);
}

void Accept(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

} // namespace

void MfMain::BindHooks()
{
    FrameHooks& hooks = TheFrameHooks();
    hooks.MenuUpdate = [this] { MenuUpdate(); };
    hooks.SetStatusText = [this](const QString& text) {
        statusBar_->SetPanelText(1, text);
        if (Program().StatusHold)
            statusBar_->repaint(); // no events run while the job works
    };
    hooks.StatusText = [this] { return statusBar_->PanelText(1); };
    hooks.SetPanelText = [this](int panel, const QString& text) { statusBar_->SetPanelText(panel, text); };
    hooks.HasActivation = [this] { return HasActivation(); };
    hooks.ShowBusyPointer = [this](bool busy) { busy ? setCursor(Qt::WaitCursor) : unsetCursor(); };
    // A closed menu stays in sight until the window system has answered.
    hooks.FinishPainting = [] { QGuiApplication::sync(); };
    hooks.CloseTip = [this] { toolbar_->CloseTip(); };
    hooks.EnableStatusBar = [this](bool on) { statusBar_->EnablePanels(on); };
    toolbar_->OnTick = [] { TheDocumentHooks().CheckPendingResize(); };
    TheMenuTracker() = [this] { return menus_->HighlightedHelp(); };
    TheHelpHooks().EnterWhatsThis = EnterWhatsThisMode;
    BindProgress();
}

void MfMain::BindProgress()
{
    auto* timer = new QTimer(this);
    timer->setObjectName(QStringLiteral("TmProgress"));
    timer->setInterval(kProgressTimerMs);
    connect(timer, &QTimer::timeout, this, [] { ProgressRefresh(); });
    ProgressHooks& hooks = TheProgressHooks();
    hooks.Show = [this](int percent, const QString& text) { statusBar_->Progress()->ShowPercent(percent, text); };
    hooks.Clear = [this] { statusBar_->Progress()->Clear(); };
    hooks.EnableTimer = [timer](bool on) { on ? timer->start() : timer->stop(); };
}

/// The hooks outlive the frame, and what they call does not.
void MfMain::UnbindHooks()
{
    FrameHooksReset();
    CommandHooksReset();
    TheFramePlacement() = {};
    TheProgressHooks() = {};
    TheMenuTracker() = {};
    TheHelpHooks().EnterWhatsThis = {};
}

void MfMain::BindCommands()
{
    CommandHooks& run = TheCommandHooks();
    run[Command::FileExit] = [this] { close(); };
    run[Command::ViewToolbar] = [this] {
        Program().ToolbarOn = !Program().ToolbarOn;
        ApplyBars();
    };
    run[Command::ViewStatusBar] = [this] {
        Program().StatusBarOn = !Program().StatusBarOn;
        ApplyBars();
    };
    run[Command::HelpContents] = [] { HelpCommand(kHelpContents); };
    run[Command::HelpIndex] = [] { HelpCommand(kHelpIndex); };
    run[Command::HelpSearch] = [] { HelpCommand(kHelpSearch); };
    run[Command::HelpSupport] = [] { HelpCommand(kHelpSupport); };
    run[Command::HelpAbout] = [] { HelpCommand(kHelpAbout); };
    run[Command::HelpWhatsThis] = [] {
        if (TheHelpHooks().EnterWhatsThis)
            TheHelpHooks().EnterWhatsThis();
    };
}

void MfMain::BindPlacement()
{
    const auto pixels = [this](double twips) { return PixelsFromTwips(this, twips); };
    FramePlacementHooks& hooks = TheFramePlacement();
    hooks.ScreenSizeTwips = [this] { return QSizeF(screen()->availableSize()) * TwipsPerPixel(this); };
    hooks.SetState = [](int state) { Program().MainWindowState = state; };
    hooks.SetWidthTwips = [this, pixels](double twips) { placement_.setWidth(pixels(twips)); };
    hooks.SetHeightTwips = [this, pixels](double twips) { placement_.setHeight(pixels(twips)); };
    hooks.SetLeftTwips = [this, pixels](double twips) { placement_.moveLeft(pixels(twips)); };
    hooks.SetTopTwips = [this, pixels](double twips) { placement_.moveTop(pixels(twips)); };
    hooks.SizeTwips = [this] { return QSizeF(placement_.size()) * TwipsPerPixel(this); };
    hooks.State = [this] {
        return isMinimized() ? WinStateMinimised : isMaximized() ? WinStateMaximised : WinStateNormal;
    };
    hooks.NormalRectTwips = [this] {
        QRect rect = isMaximized() || isMinimized() ? normalGeometry() : geometry();
        if (rect != placement_) // the one it began with is told as it was placed until it has stood there
            rect.translate(frameGeometry().topLeft() - geometry().topLeft()); // where the title bar stands
        const double twips = TwipsPerPixel(this);
        return QRectF(QPointF(rect.topLeft()) * twips, QSizeF(rect.size()) * twips);
    };
}

void MfMain::dragEnterEvent(QDragEnterEvent* event)
{
    if (DropIsAllowedFor(*event->mimeData()))
        Accept(event);
    else
        event->ignore();
}

void MfMain::dragMoveEvent(QDragMoveEvent* event)
{
    if (DropIsAllowedFor(*event->mimeData()))
        Accept(event);
    else
        event->ignore();
}

/// The files open once the drag is over: the program that they come from waits for the end of this event, and an
/// editor would keep it waiting until it is closed.
void MfMain::dropEvent(QDropEvent* event)
{
    if (!DropIsAllowedFor(*event->mimeData())) {
        event->ignore();
        return;
    }
    Accept(event);
    QTimer::singleShot(0, this, [files = LocalFiles(*event->mimeData())] { DropOpenFiles(files); });
}

} // namespace tarvik
