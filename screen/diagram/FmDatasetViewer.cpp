#include "screen/diagram/FmDatasetViewer.h"

#include "app/forms/Pictures.h"
#include "app/frame/MfMain.h"
#include "app/menu/commands.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "screen/diagram/datasetViewer.h"
#include "screen/window/DescriptionBox.h"
#include "screen/window/DocumentControls.h"
#include "screen/window/PictureBox.h"
#include "screen/window/closing.h"
#include "screen/window/screenWindow.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace tarvik {

namespace {

constexpr QSize kMinGraphPx(320, 200);
const QString kNonModalCaption = QStringLiteral("Dummy");

class ViewerForms final : public DatasetForms {
public:
    bool ShowModal(WindowId id, const QString& name) override
    {
        FmDatasetViewer form(id, name, QApplication::activeWindow());
        DialogShow(form);
        return true;
    }
};

} // namespace

FmDatasetViewer::FmDatasetViewer(WindowId id, const QString& name, QWidget* parent)
    : FormBase("FmDatasetViewer", parent)
    , id_(id)
    , name_(name)
{
    SetHelpNumber(TextId::Diagram);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowIcon(PictureIcon(QStringLiteral("MDI_DIAGRAM")));
    setAutoFillBackground(true);
    setMinimumSize(kMinGraphPx);
    controls_ = new DocumentControls(this, id);
    SetControlHelp(controls_->TbDescription, HelpId::DiagramDescription);
    ViewSet(id, { static_cast<ScreenView*>(this), [](ScreenView*) {} });
}

FmDatasetViewer::~FmDatasetViewer()
{
    if (ViewOf(id_) == this)
        ScreenUnloaded(id_);
}

bool FmDatasetViewer::OnLoad()
{
    SetCaption(Program().NonModalDialogs ? kNonModalCaption : name_.isEmpty() ? WindowTitle(id_, {}) : name_);
    DialogPush(*this, false);
    SizeNewWindow(id_);
    const QRect area = screen()->availableGeometry();
    const QSize free = area.size() - size() - Decoration();
    move(area.topLeft() + QPoint(free.width(), free.height()) / 2);
    controls_->PbGraph->setFocus();
    return true;
}

bool FmDatasetViewer::QueryUnload()
{
    return CanActOnDialog(); // not during a command on the document
}

void FmDatasetViewer::OnUnload()
{
    ScreenUnloaded(id_);
}

void FmDatasetViewer::Unload()
{
    FormBase::Unload();
}

WinState FmDatasetViewer::State() const
{
    return isMinimized() ? WinState::Minimised : isMaximized() ? WinState::Maximised : WinState::Normal;
}

void FmDatasetViewer::SetNormal()
{
    if (State() != WinState::Normal)
        showNormal();
}

void FmDatasetViewer::Show()
{
    raise();
    activateWindow();
    controls_->PbGraph->setFocus();
}

QSize FmDatasetViewer::ClientSize() const
{
    return size();
}

void FmDatasetViewer::SetClientSize(QSize size)
{
    if (State() != WinState::Normal)
        return;
    resize(size.boundedTo(screen()->availableSize() - Decoration()));
    KeepOnScreen();
}

/// What the window manager adds around the window; a guess until it has done so.
QSize FmDatasetViewer::Decoration() const
{
    const QSize added = frameGeometry().size() - size();
    const int border = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return added.height() > 0 ? added : QSize(2 * border, title + border);
}

/// The description makes the window higher.
void FmDatasetViewer::KeepOnScreen()
{
    const QRect area = screen()->availableGeometry();
    const int below = frameGeometry().bottom() - area.bottom();
    if (isVisible() && below > 0)
        move(pos() - QPoint(0, std::min(below, std::max(pos().y() - area.top(), 0))));
}

void FmDatasetViewer::MoveTo(QPoint leftTop)
{
    move(leftTop);
}

QSize FmDatasetViewer::GraphSize() const
{
    return controls_->PbGraph->size();
}

void FmDatasetViewer::SetGraphSize(QSize size)
{
    controls_->PbGraph->setGeometry(QRect(QPoint(), size));
    drawnFor_ = this->size();
}

void FmDatasetViewer::GraphChanged()
{
    controls_->PbGraph->PictureChanged();
}

QString FmDatasetViewer::Caption() const
{
    return caption_;
}

void FmDatasetViewer::SetCaption(const QString& caption)
{
    caption_ = caption;
    setWindowTitle(QString(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
    controls_->PbGraph->setAccessibleName(caption);
}

void FmDatasetViewer::SetIcon(bool /*imageFromFile*/) { }

void FmDatasetViewer::SetDescription(const QString& text)
{
    controls_->TbDescription->SetText(text);
}

void FmDatasetViewer::EditDescription()
{
    if (controls_->TbDescription->isVisibleTo(this))
        controls_->TbDescription->setFocus();
}

/// The picture keeps its smallest size over the description.
void FmDatasetViewer::LayOutDescription(const DescriptionLayout& layout)
{
    controls_->LayOutDescription(layout);
    setMinimumHeight(kMinGraphPx.height() + (layout.Visible ? height() - layout.LineTop : 0));
}

void FmDatasetViewer::SetColours(quint32 paper, quint32 text)
{
    controls_->SetColours(paper, text);
}

void FmDatasetViewer::FillStatus(const QString& /*date*/, const QString& /*text*/, const QString& /*time*/) { }

void FmDatasetViewer::HideStatus() { }

/// Only a window that is not maximised shows its description.
void FmDatasetViewer::changeEvent(QEvent* event)
{
    FormBase::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && IsLoaded())
        ScreenResized(id_, false);
}

void FmDatasetViewer::resizeEvent(QResizeEvent* event)
{
    FormBase::resizeEvent(event);
    if (IsLoaded() && drawnFor_ != size())
        ScreenResized(id_, QGuiApplication::mouseButtons().testFlag(Qt::LeftButton));
}

void FmDatasetViewer::keyPressEvent(QKeyEvent* event)
{
    MfMain* frame = MfMain::Current();
    if (frame == nullptr || !frame->DialogKeyDown(*event))
        FormBase::keyPressEvent(event);
}

void FmDatasetViewer::Popup(QPoint at)
{
    if (MfMain* frame = MfMain::Current())
        frame->Popup(QStringLiteral("SwMn"), at);
}

void FmDatasetViewer::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::RightButton)
        Popup(event->globalPosition().toPoint());
}

void FmDatasetViewer::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        Popup(event->globalPos());
}

void BindDatasetForms()
{
    TheDatasetForms().Implement<ViewerForms>();
}

} // namespace tarvik
