// The frame as a port: what rooms below ask it. And what is dropped on it.
#include "app/frame/MfMain.h"

#include "app/about/FmAbout.h"
#include "app/forms/form.h"
#include "app/frame/FrameMenus.h"
#include "app/frame/FrameStatusBar.h"
#include "app/frame/FrameToolbar.h"
#include "app/frame/ProgressPicture.h"
#include "app/frame/dropFiles.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
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

/// Runs at each change of what the program can do.
void MfMain::MenuUpdate()
{
    PursueCloseWish();
    const auto outcome = MenuCompute(MenuInputNow(), Program().MenusDisabled);
    if (!outcome)
        return;
    menus_->Apply(*outcome);
    toolbar_->Apply(*outcome);
    statusBar_->ShowLinkState(outcome->LinkUp);
    TheFrameDocuments()->Enable(outcome->MenusEnabled);
}

/// True while the keyboard speaks to the frame, and from the end of a dialog until the window system says who is next:
/// no other program has taken over meanwhile.
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

/// A closed menu stays in sight until the window system has answered.
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
    if (rect != placement_) // the one it began with is told as it was placed until it has stood there
        rect.translate(frameGeometry().topLeft() - geometry().topLeft()); // where the title bar is
    const double twips = TwipsPerPixel(this);
    const int state = isMinimized() ? WinStateMinimised : isMaximized() ? WinStateMaximised : WinStateNormal;
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
