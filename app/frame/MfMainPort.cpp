// The frame as the implementation of its port; drag and drop.
#include "app/frame/MfMain.h"

#include "app/about/FmAbout.h"
#include "app/forms/form.h"
#include "app/frame/FrameStatusBar.h"
#include "app/frame/FrameToolbar.h"
#include "app/frame/ProgressPicture.h"
#include "app/frame/dropFiles.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
#include "app/menu/FrameMenus.h"
#include "app/state/project.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QScreen>
#include <QTimer>

namespace tarvik {

namespace {

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

/// Called at each change of what the program can do.
void MfMain::MenuUpdate()
{
    TryPendingClose();
    const auto outcome = MenuCompute(MenuInputNow(), Program().MenusDisabled);
    if (!outcome)
        return;
    menus_->Apply(*outcome);
    toolbar_->Apply(*outcome);
    statusBar_->ShowLinkState(outcome->LinkUp);
    TheFrameDocuments()->Enable(outcome->MenusEnabled);
}

/// Also true after a dialog until the window system activates the next window, as long as no other program is active.
bool MfMain::HasActivation() const
{
    const bool nobodyHas = QApplication::activeWindow() == nullptr;
    return isActiveWindow() || (nobodyHas && QGuiApplication::applicationState() == Qt::ApplicationActive);
}

void MfMain::ShowBusyPointer(bool busy)
{
    busy ? setCursor(Qt::WaitCursor) : unsetCursor();
}

void MfMain::CloseTip()
{
    toolbar_->CloseTip();
}

/// A closed menu stays visible until the window system has processed its requests.
void MfMain::FinishPainting()
{
    QGuiApplication::sync();
}

QString MfMain::StatusText() const
{
    return statusBar_->PanelText(1);
}

void MfMain::SetStatusText(const QString& text)
{
    statusBar_->SetPanelText(1, text);
    if (Program().StatusHold)
        statusBar_->repaint(); // no events run while the job works
}

void MfMain::SetPanelText(int panel, const QString& text)
{
    statusBar_->SetPanelText(panel, text);
}

void MfMain::EnableStatusBar(bool on)
{
    statusBar_->EnablePanels(on);
}

void MfMain::ShowProgress(int percent, const QString& text)
{
    statusBar_->Progress()->ShowPercent(percent, text);
}

void MfMain::ClearProgress()
{
    statusBar_->Progress()->Clear();
}

void MfMain::EnableProgressTimer(bool on)
{
    on ? TmProgress->start() : TmProgress->stop();
}

std::optional<int> MfMain::HighlightedHelp() const
{
    return menus_->HighlightedHelp();
}

void MfMain::EnterWhatsThis()
{
    EnterWhatsThisMode();
}

void MfMain::ShowAbout()
{
    FmAbout about(QApplication::activeWindow());
    DialogShow(about);
}

QSizeF MfMain::ScreenTwips() const
{
    return QSizeF(screen()->availableSize()) * TwipsPerPixel(this);
}

QSizeF MfMain::ResizeTwips(QSizeF size)
{
    placement_.setSize({ PixelsFromTwips(this, size.width()), PixelsFromTwips(this, size.height()) });
    return QSizeF(placement_.size()) * TwipsPerPixel(this);
}

void MfMain::MoveTwips(QPointF leftTop)
{
    placement_.moveTo(PixelsFromTwips(this, leftTop.x()), PixelsFromTwips(this, leftTop.y()));
}

std::optional<FramePlacement> MfMain::Placement() const
{
    QRect rect = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    if (rect != placement_) // else it has never moved from its stored position
        rect.translate(frameGeometry().topLeft() - geometry().topLeft()); // where the title bar is
    const double twips = TwipsPerPixel(this);
    const WinState state = isMinimized() ? WinState::Minimised : isMaximized() ? WinState::Maximised : WinState::Normal;
    return FramePlacement{ state, { QPointF(rect.topLeft()) * twips, QSizeF(rect.size()) * twips } };
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

/// Opens the files after the event: the program that they come from waits for it, and an editor would block until it is
/// closed.
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
