#include "link/connection/FmConnecting.h"

#include "app/forms/Pictures.h"
#include "app/forms/formLayout.h"
#include "app/platform/interval.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"
#include "link/connection/connect.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tarvik {

namespace {

/// How long the outcome stays visible.
constexpr int kReadOutcomeMs = 2000;
constexpr int kReadCancelMs = 1000;

constexpr int kPicturePx = 32;
constexpr int kStatusCharacters = 48;
constexpr int kStatusLines = 3;

} // namespace

FmConnecting::FmConnecting(QWidget* parent)
    : FormBase("FmConnecting", parent)
{
    LngSetForm(this, TextId::ConnectingTitle);
    SetHelpNumber(HelpId::Connecting);
    BuildControls();
    BuildLayout();
}

/// The status is a text box, since the identification of a foreign instrument may be of any length.
void FmConnecting::BuildControls()
{
    ImConnecting = NewLabel(this, "ImConnecting", {});
    ImConnecting->setPixmap(
        PictureIcon(QStringLiteral("connect")).pixmap(QSize(kPicturePx, kPicturePx), devicePixelRatioF()));
    ImConnecting->setAccessibleName(windowTitle());
    TbStatus = new QPlainTextEdit(this);
    NameControl(TbStatus, QStringLiteral("TbStatus"));
    TbStatus->setAccessibleName(windowTitle());
    TbStatus->setReadOnly(true);
    TbStatus->setFocusPolicy(Qt::ClickFocus);
    TbStatus->setFrameShape(QFrame::NoFrame);
    TbStatus->viewport()->setAutoFillBackground(false);
    TbStatus->document()->setDocumentMargin(0);
    const QFontMetrics font = TbStatus->fontMetrics();
    TbStatus->setFixedSize(kStatusCharacters * font.averageCharWidth(), kStatusLines * font.lineSpacing());
    LbDebug = NewLabel(this, "LbDebug", {});
    LbDebug->setTextFormat(Qt::PlainText);
    LbDebug->setAccessibleName(LbDebug->objectName());
    LbDebug->hide();
    BtCancel = NewButton(
        this, "BtCancel", { TextId::ConnectingCancel, TextId::ConnectingCancel, TextId::ConnectingCancelHint });
    BtCancel->setDefault(true);
    connect(BtCancel, &QPushButton::clicked, this, [this] { OnCancel(); });
}

void FmConnecting::BuildLayout()
{
    auto* status = new QHBoxLayout;
    status->setSpacing(kFormMarginPx);
    status->addWidget(ImConnecting, 0, Qt::AlignTop);
    status->addWidget(TbStatus, 1);
    QHBoxLayout* buttons = NewButtonRow({ BtCancel });
    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(status);
    form->addWidget(LbDebug);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmConnecting::OnLoad()
{
    cancelled_ = false;
    canClose_ = false;
    constexpr bool kRemoveClose = true;
    DialogPush(*this, kRemoveClose);
    BtCancel->setFocus();
    return true;
}

bool FmConnecting::QueryUnload()
{
    return canClose_;
}

void FmConnecting::OnActivate()
{
    WaitUntilPainted();
    conHandleConnection([this](const QString& text) { TbStatus->setPlainText(text); },
        [this](const QString& text) { LbDebug->setText(text); });
    TheSeams().PumpEvents();
    if (cancelled_) {
        TbStatus->setPlainText(LngStr(TextId::ConnectionCancelled));
        LbDebug->clear();
    }
    IntervalWait(cancelled_ ? kReadCancelMs : kReadOutcomeMs);
    canClose_ = true;
    if (cancelled_)
        ChannelDisconnect();
    Unload();
}

/// Takes effect once the connect has returned.
void FmConnecting::OnCancel()
{
    cancelled_ = true;
    BtCancel->setEnabled(false);
}

} // namespace tarvik
