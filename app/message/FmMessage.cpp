#include "app/message/FmMessage.h"

#include "app/forms/Pictures.h"
#include "app/state/project.h"
#include "app/text/textId.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

namespace tarvik {

namespace {

/// A key that types a character. Enter belongs to the button.
bool IsCharacterKey(const QKeyEvent& event)
{
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isCommand = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !isEnter && !isCommand && !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

FmMessage::FmMessage(MessageRequest& request, QWidget* parent)
    : FormBase("FmMessage", parent)
    , request_(request)
{
    ImQuest = NewPicture("ImQuest", QStringLiteral("question"), HelpId::MessageQuestion);
    ImExcl = NewPicture("ImExcl", QStringLiteral("exclamation"), HelpId::MessageExclamation);
    LbText = NewLabel(this, "LbText", {});
    LbText->setAccessibleName(request.Text);
    LbText->setTextFormat(Qt::PlainText);
    BuildButtons();
    BuildLayout();
}

QLabel* FmMessage::NewPicture(const char* name, const QString& picture, int help)
{
    QLabel* label = NewLabel(this, name, { {}, help });
    label->setPixmap(PicturePixmap(picture, devicePixelRatioF()));
    label->setAccessibleName(QString::fromLatin1(name));
    return label;
}

void FmMessage::BuildButtons()
{
    for (int at = 0; at < kMsgButtonCount; ++at) {
        const auto button = static_cast<MsgButton>(at);
        const MsgButtonInfo info = MsgButtonInfoOf(button);
        QPushButton* control = NewButton(this, info.Name, { info.Text }); // F1 explains the message
        control->setAutoDefault(true);
        connect(control, &QPushButton::clicked, this, [this, button] { Press(button); });
        buttons_[static_cast<size_t>(at)] = control;
    }
    Button(MsgButton::Ok)->installEventFilter(this);
}

/// The rows of buttons and of text are each centred.
void FmMessage::BuildLayout()
{
    auto* text = new QHBoxLayout;
    text->setSpacing(kMsgGapPx);
    text->addStretch();
    text->addWidget(ImQuest, 0, Qt::AlignTop);
    text->addWidget(ImExcl, 0, Qt::AlignTop);
    text->addWidget(LbText, 0, Qt::AlignVCenter);
    text->addStretch();

    auto* row = new QHBoxLayout;
    row->setSpacing(kMsgGapPx);
    row->addStretch();
    for (const MsgButton button :
        { MsgButton::Ok, MsgButton::Yes, MsgButton::YesAll, MsgButton::No, MsgButton::NoAll, MsgButton::Cancel })
        row->addWidget(Button(button));
    row->addStretch();

    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(kMsgGapPx, kMsgGapPx, kMsgGapPx, kMsgGapPx);
    form->setSpacing(kMsgGapPx);
    form->addLayout(text);
    form->addLayout(row);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmMessage::OnLoad()
{
    request_.Showing = true;
    SetHelpNumber(request_.HelpNumber);
    SetControlHelp(LbText, request_.HelpNumber);
    setWindowTitle(Program().ProgramTitle);
    ImQuest->setVisible(request_.IsQuestion());
    ImExcl->setVisible(!request_.IsQuestion());
    ShowText();
    ShowButtons();
    DialogPush(*this, !MsgMayClose(request_.Buttons()));
    return true;
}

void FmMessage::ShowText()
{
    const QSize room = screen() == nullptr ? size() : screen()->size();
    const QFontMetrics metrics = LbText->fontMetrics();
    const int wrap = MsgWrapWidthPx(room.width());
    const QStringList lines = MsgLines(request_.Text, LbText->font(), wrap);
    LbText->setText(MsgElidedText(lines, metrics, wrap, MsgTextHeightPx(room.height())));
    setAccessibleDescription(request_.Text);
}

void FmMessage::ShowButtons()
{
    const std::vector<MsgButton> set = MsgButtonSet(request_.Buttons());
    for (QPushButton* button : buttons_)
        button->setVisible(false);
    for (const MsgButton button : set)
        Button(button)->setVisible(true);
    Button(set.front())->setDefault(true);
    Button(set.front())->setFocus();
}

void FmMessage::OnActivate()
{
    QPushButton* no = Button(MsgButton::No);
    if (request_.DefaultToNo && no->isVisible() && no->isEnabled())
        no->setFocus();
    request_.DefaultToNo = false;
}

void FmMessage::OnUnload()
{
    request_.Showing = false;
}

void FmMessage::closeEvent(QCloseEvent* event)
{
    if (MsgMayClose(request_.Buttons()))
        FormBase::closeEvent(event);
    else
        event->ignore();
}

bool FmMessage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && IsCharacterKey(*static_cast<QKeyEvent*>(event))) {
        request_.Result = kMsgResultOfCharacter;
        DialogEnd(*this, static_cast<int>(kMsgResultOfCharacter));
        return true;
    }
    return FormBase::eventFilter(watched, event);
}

bool FmMessage::CanCloseUnasked() const
{
    return MsgButtonSet(request_.Buttons()).size() == 1;
}

void FmMessage::Press(MsgButton button)
{
    MsgAnswer(request_, button);
    DialogEnd(*this, static_cast<int>(request_.Result));
}

QPushButton* FmMessage::Button(MsgButton button) const
{
    return buttons_[static_cast<size_t>(button)];
}

namespace {

class MessageForms final : public MessagePresenter {
public:
    void Present(MessageRequest& request) override
    {
        FmMessage form(request, QApplication::activeWindow());
        DialogShow(form);
    }
};

} // namespace

void BindMessageForm()
{
    TheMessagePresenter().Implement<MessageForms>();
}

} // namespace tarvik
