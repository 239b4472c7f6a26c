#include "app/frame/FrameToolbar.h"

#include "app/forms/Pictures.h"
#include "app/forms/form.h"
#include "app/frame/FmTip.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QTimer>
#include <QToolButton>

namespace tarvik {

namespace {

constexpr int kPictureTwips = 270;

} // namespace

FrameToolbar::FrameToolbar(QWidget* frame)
    : QToolBar(frame)
{
    setObjectName(QStringLiteral("PbToolbar"));
    setMovable(false);
    setFloatable(false);
    toggleViewAction()->setEnabled(false);
    for (int index = 0; index < kToolButtons; ++index)
        Cm[static_cast<size_t>(index)] = NewToolButton(index);
    TmTips = new QTimer(this);
    TmTips->setObjectName(QStringLiteral("TmTips"));
    TmTips->setInterval(kTipFirstIntervalMs);
    connect(TmTips, &QTimer::timeout, this, &FrameToolbar::Tick);
    tip_ = new FmTip(frame);
}

QToolButton* FrameToolbar::NewToolButton(int index)
{
    const ToolButton& row = ToolBarTable()[static_cast<size_t>(index)];
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("Cm[%1]").arg(index));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(PictureIcon(QString::fromLatin1(row.Picture)));
    button->setEnabled(false);
    button->hide();
    SetControlHelp(button, row.Help);
    SetControlHint(button, row.Hint);
    connect(button, &QToolButton::clicked, this, [this, index, command = row.Run] {
        CloseTip();
        CommandRun(command);
        if (index != kToolButtonWhatsThis)
            Q_EMIT CommandDone();
    });
    return button;
}

void FrameToolbar::LayOut()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(2, 1, 2, 1);
    layout->setSpacing(0);
    const int pitch = PixelsFromTwips(this, kToolButtonPitchTwips);
    const int picture = PixelsFromTwips(this, kPictureTwips);
    QWidget* before = nullptr;
    for (const std::vector<int>& group : ToolBarGroups()) {
        if (layout->count() > 0)
            layout->addSpacing(PixelsFromTwips(this, kToolGroupGapTwips));
        for (const int index : group) {
            QToolButton* button = Cm[static_cast<size_t>(index)];
            button->setFixedSize(pitch, pitch);
            button->setIconSize(QSize(picture, picture));
            layout->addWidget(button);
            button->show();
            if (before != nullptr)
                setTabOrder(before, button);
            before = button;
        }
    }
    layout->addStretch();
    row->setMinimumWidth(row->sizeHint().width());
    addWidget(row);
}

void FrameToolbar::SetTexts()
{
    setAccessibleName(PlainCaption(LngStr(TextId::MenuViewToolbar)));
    for (size_t at = 0; at < Cm.size(); ++at)
        SetButtonTexts(static_cast<int>(at), ToolBarTable()[at].Tip, ToolBarTable()[at].Hint);
    ShowLinkState(linkUp_);
}

void FrameToolbar::ShowLinkState(bool linkUp)
{
    linkUp_ = linkUp;
    const ToolButton& row = ToolBarTable()[kToolButtonConnect];
    SetButtonTexts(
        kToolButtonConnect, linkUp ? TextId::ToolDisconnect : row.Tip, linkUp ? TextId::ToolDisconnectHint : row.Hint);
}

void FrameToolbar::SetButtonTexts(int index, TextNumber<0> tip, TextNumber<0> hint)
{
    QToolButton* button = Cm[static_cast<size_t>(index)];
    button->setAccessibleName(LngStr(tip));
    button->setAccessibleDescription(LngStr(hint));
    SetControlHint(button, hint);
}

void FrameToolbar::Apply(const MenuOutcome& outcome)
{
    QWidget* focus = window()->focusWidget();
    WriteStates(outcome);
    if (focus != nullptr && focus->parentWidget() == Cm.front()->parentWidget() && !focus->isEnabled()) {
        disabledFocus_ = focus;
        focusMeanwhile_ = window()->focusWidget();
    } else if (disabledFocus_ != nullptr && disabledFocus_->isEnabled()) {
        if (focus == focusMeanwhile_) // else the command has moved it
            disabledFocus_->setFocus();
        disabledFocus_ = nullptr;
    }
}

void FrameToolbar::WriteStates(const MenuOutcome& outcome)
{
    for (size_t at = 0; at < Cm.size(); ++at) {
        if (Cm[at]->isEnabled() != outcome.Buttons[at])
            Cm[at]->setEnabled(outcome.Buttons[at]);
    }
    if (outcome.LinkUp != linkUp_)
        ShowLinkState(outcome.LinkUp);
}

void FrameToolbar::FocusFirstButton()
{
    QToolButton* first = Cm.front();
    if (first != nullptr && first->isVisible() && first->isEnabled())
        first->setFocus();
}

void FrameToolbar::StartTips()
{
    TmTips->start();
}

void FrameToolbar::CloseTip()
{
    tip_->hide();
}

void FrameToolbar::Tick()
{
    TmTips->setInterval(kTipIntervalMs);
    const int index = counter_.Tick(ButtonUnderPointer());
    if (index == kNoButton) {
        CloseTip();
    } else {
        const QToolButton* button = Cm[static_cast<size_t>(index)];
        tip_->ShowTip(TipText(button->accessibleName()), QRect(button->mapToGlobal(QPoint()), button->size()));
    }
    Q_EMIT Ticked();
}

int FrameToolbar::ButtonUnderPointer() const
{
    const bool isCovered = QApplication::activePopupWidget() != nullptr; // by a menu or a What's This text
    if (!window()->isActiveWindow() || !Program().Idle || !isVisible() || isCovered)
        return kNoButton;
    const QPoint pointer = QCursor::pos();
    for (size_t at = 0; at < Cm.size(); ++at) {
        if (Cm[at]->isVisible() && Cm[at]->rect().contains(Cm[at]->mapFromGlobal(pointer)))
            return static_cast<int>(at);
    }
    return kNoButton;
}

} // namespace tarvik
