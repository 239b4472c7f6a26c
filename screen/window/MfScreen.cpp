#include "screen/window/MfScreen.h"

#include "app/forms/Pictures.h"
#include "app/forms/form.h"
#include "app/frame/MfMain.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "screen/document/color.h"
#include "screen/document/screenTable.h"
#include "screen/window/ChildWindowStyle.h"
#include "screen/window/ChildWindows.h"
#include "screen/window/DescriptionBox.h"
#include "screen/window/DocumentControls.h"
#include "screen/window/PictureBox.h"
#include "screen/window/closing.h"
#include "screen/window/screenWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tarvik {

namespace {

/// Escapes the placeholder for "modified" in a window title.
QString TitleOf(QString caption)
{
    return caption.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

constexpr Qt::WindowStates kSizeStates = Qt::WindowMinimized | Qt::WindowMaximized;

} // namespace

MfScreen::MfScreen(WindowId id, MfMain& frame)
    : id_(id)
    , frame_(frame)
{
    setObjectName(QStringLiteral("MfScreen"));
    setProperty(kTagProperty, id);
    setAutoFillBackground(true);
    setMinimumSize(1, 1);
    BuildDocument();
    BuildStatus();
    BuildWindow();
    SetHelp(WindowIsFileImage(id));
}

MfScreen::~MfScreen()
{
    unloaded_ = true;
    dying_ = true;
    if (ViewOf(id_) == this)
        ViewDrop(id_);
}

void MfScreen::BuildDocument()
{
    PbDefGraph = new PictureBox(this, "PbDefGraph", [this](QSize) {
        const ScreenRecord* document = ScreenOf(id_);
        return document == nullptr ? QImage() : document->Master;
    });
    PbDefGraph->hide();
    controls_ = new DocumentControls(this, id_);
    PbGraph = controls_->PbGraph;
    TbDescription = controls_->TbDescription;
    setFocusPolicy(Qt::ClickFocus); // a click outside the picture activates the window too
    setFocusProxy(PbGraph);
    connect(TbDescription, &DescriptionBox::Edited, this, &MfScreen::ShowDescription);
}

/// The panel has no height and is invisible.
void MfScreen::BuildStatus()
{
    for (size_t at = 0; at < TbStatHead.size(); ++at) {
        TbStatHead[at] = new QLabel(this);
        NameControl(TbStatHead[at], QStringLiteral("TbStatHead[%1]").arg(at));
    }
    TbStatus = new QLineEdit(this);
    NameControl(TbStatus, QStringLiteral("TbStatus"));
    TbStatus->setReadOnly(true);
    LnStatus = NewDocumentLine(this, "LnStatus");
    for (QWidget* control : StatusPanel())
        SetControlHelp(control, HelpId::LiveScreenStatus);
    HideStatus();
}

QList<QWidget*> MfScreen::StatusPanel() const
{
    return { TbStatHead[0], TbStatHead[1], TbStatHead[2], TbStatus, LnStatus };
}

void MfScreen::BuildWindow()
{
    child_ = new QMdiSubWindow;
    child_->setAttribute(Qt::WA_DeleteOnClose);
    child_->setStyle(ChildWindowStyle(*frame_.ChildArea()));
    child_->setWidget(this);
    child_->installEventFilter(this);
    frame_.ChildArea()->addSubWindow(child_);
    connect(child_, &QMdiSubWindow::windowStateChanged, this, &MfScreen::StateChanged);
    connect(frame_.ChildArea(), &QMdiArea::subWindowActivated, this, [this](const QMdiSubWindow* active) {
        if (unloaded_)
            return;
        if (active == child_) {
            SetHelp(WindowIsFileImage(id_));
            ScreenActivated(id_, true);
        } else if (WindowTable().Active == id_) {
            ScreenActivated(id_, false);
        }
    });
}

void MfScreen::SetHelp(bool imageFromFile)
{
    const int help = imageFromFile ? HelpId::Image : HelpId::LiveScreen;
    SetControlHelp(this, help);
    SetControlHelp(child_, help);
    SetControlHelp(TbDescription, imageFromFile ? HelpId::ImageDescription : HelpId::LiveScreenDescription);
}

/// At once: a deferred deletion would wait for the end of the running command.
void MfScreen::Release()
{
    unloaded_ = true;
    if (!dying_)
        delete child_;
}

WinState MfScreen::State() const
{
    if (state_.testFlag(Qt::WindowMinimized))
        return WinState::Minimised;
    return state_.testFlag(Qt::WindowMaximized) ? WinState::Maximised : WinState::Normal;
}

bool MfScreen::MayResize() const
{
    return State() == WinState::Normal;
}

void MfScreen::SetNormal()
{
    if (shown_ && !MayResize())
        child_->showNormal();
}

/// A new window opens at its own size even if the previous one was maximised.
void MfScreen::ShowFirst()
{
    if (shown_)
        return;
    shown_ = true;
    QMdiArea& area = *frame_.ChildArea();
    RestoreMaximised(area);
    if (!placed_)
        child_->move(PlaceForNew(area, *child_));
    child_->show();
}

void MfScreen::Show()
{
    ShowFirst();
    frame_.ChildArea()->setActiveSubWindow(child_);
    if (!isAncestorOf(frame_.focusWidget()))
        PbGraph->setFocus();
}

QSize MfScreen::ClientSize() const
{
    return size();
}

void MfScreen::SetClientSize(QSize size)
{
    if (!MayResize())
        return;
    child_->resize(size.grownBy(child_->contentsMargins()));
    if (shown_) {
        child_->layout()->activate(); // apply the new size before the rules continue
    } else {
        sized_ = size;
        resize(size);
    }
}

void MfScreen::MoveTo(QPoint leftTop)
{
    placed_ = true;
    child_->move(leftTop);
}

QSize MfScreen::GraphSize() const
{
    return PbGraph->size();
}

void MfScreen::SetGraphSize(QSize size)
{
    PbGraph->setGeometry(QRect(QPoint(), size));
}

void MfScreen::GraphChanged()
{
    if (const ScreenRecord* document = ScreenOf(id_))
        PbDefGraph->resize(document->Master.size());
    PbGraph->PictureChanged();
    ShowFirst();
}

QString MfScreen::Caption() const
{
    return caption_;
}

void MfScreen::SetCaption(const QString& caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    setWindowTitle(TitleOf(caption));
    child_->setWindowTitle(TitleOf(caption));
    PbGraph->setAccessibleName(caption);
    child_->setAccessibleName(caption);
}

void MfScreen::SetIcon(bool imageFromFile)
{
    if (imageFromFile_ == imageFromFile)
        return;
    imageFromFile_ = imageFromFile;
    child_->setWindowIcon(PictureIcon(imageFromFile ? QStringLiteral("MDI_IMAGE") : QStringLiteral("MDI_SCREEN")));
    SetHelp(imageFromFile);
}

void MfScreen::SetDescription(const QString& text)
{
    TbDescription->SetText(text);
}

void MfScreen::EditDescription()
{
    if (!TbDescription->isVisibleTo(this))
        return;
    TbDescription->setFocus();
    ShowDescription();
}

/// Scrolls so that typing is visible, even below a picture higher than the area.
void MfScreen::ShowDescription()
{
    QMdiArea& area = *frame_.ChildArea();
    ScrollToLowerEdge(area, { TbDescription->mapTo(area.viewport(), QPoint()), TbDescription->size() });
}

void MfScreen::LayOutDescription(const DescriptionLayout& layout)
{
    controls_->LayOutDescription(layout);
}

void MfScreen::SetColours(quint32 paper, quint32 text)
{
    if (!controls_->SetColours(paper, text))
        return;
    for (QWidget* control : std::initializer_list<QWidget*>{ LnStatus, TbStatHead[0], TbStatHead[1], TbStatHead[2] })
        SetDocumentColour(control, QPalette::WindowText, ColorOf(text));
    SetDocumentColour(TbStatus, QPalette::Base, ColorOf(paper));
    SetDocumentColour(TbStatus, QPalette::Text, ColorOf(text));
}

void MfScreen::FillStatus(const QString& date, const QString& text, const QString& time)
{
    const std::array captions{ date, text, time };
    for (size_t at = 0; at < captions.size(); ++at)
        TbStatHead[at]->setText(captions[at]);
}

void MfScreen::HideStatus()
{
    for (QWidget* control : StatusPanel())
        control->hide();
}

void MfScreen::Unload()
{
    if (unloaded_)
        return;
    unloaded_ = true;
    child_->close();
}

/// The picture may have changed while minimised.
void MfScreen::StateChanged(Qt::WindowStates before, Qt::WindowStates now)
{
    if (unloaded_ || (before & kSizeStates) == (now & kSizeStates))
        return;
    if (before.testFlag(Qt::WindowMinimized))
        ScreenResized(id_, false);
    TheFrame()->MenuUpdate();
}

bool MfScreen::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == child_ && event->type() == QEvent::WindowStateChange)
        state_ = child_->windowState();
    return QWidget::eventFilter(watched, event);
}

void MfScreen::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (unloaded_ || !shown_ || std::exchange(sized_, QSize()) == size())
        return;
    ScreenResized(id_, QGuiApplication::mouseButtons().testFlag(Qt::LeftButton));
}

void MfScreen::closeEvent(QCloseEvent* event)
{
    if (!unloaded_ && !ScreenMayClose(id_)) {
        event->ignore();
        return;
    }
    event->accept();
    if (std::exchange(unloaded_, true))
        return;
    dying_ = true;
    ScreenUnloaded(id_);
}

/// Keeps the event from the area, which has its own context menu.
void MfScreen::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void MfScreen::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::RightButton && WindowInUse(id_))
        frame_.Popup(QStringLiteral("ScMn"), event->globalPosition().toPoint());
}

void MfScreen::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard && WindowInUse(id_))
        frame_.Popup(QStringLiteral("ScMn"), event->globalPos());
}

} // namespace tarvik
