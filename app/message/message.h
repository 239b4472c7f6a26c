// app/message/message.h: message boxes by text number. A presenter shows them: a form, a terminal, a test's script.
#pragma once

#include "app/platform/port.h"
#include "app/text/textNumber.h"

#include <QString>
#include <QStringList>

namespace tarvik {

/// Answer to a message. None means that the form closed without an answer, which no caller treats as Yes.
enum class MsgResult { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// Bits 0 to 2 of a style: the buttons, left to right.
enum class MsgButtons {
    Ok = 0, ///< the only set that the system menu may close
    OkCancel = 1,
    AllChoices = 2, ///< Yes, Yes All, No, No All, Cancel
    YesNoCancel = 3,
    YesNo = 4,
    OkFixed = 5,
    YesNoNoAllCancel = 6
};

/// Bits 4 to 6 of a style: the icon. Any value but Question shows the exclamation mark.
enum class MsgIcon { Question = 32, Exclamation = 48 };

constexpr int MsgStyle(MsgButtons buttons, MsgIcon icon)
{
    return static_cast<int>(buttons) | static_cast<int>(icon);
}

/// The message request, one for the process.
struct MessageRequest {
    bool Showing = false;
    int Style = 0;
    QString Text; ///< arguments filled in, macros expanded
    int HelpNumber = 0; ///< the text number, unless MsgRaw was given another
    QStringList Args; ///< the arguments in the text, for presenters that report by number
    int PreciseText = 0; ///< number of the text if it is another one than `HelpNumber`, for the same presenters; else 0
    MsgResult Result = MsgResult::None;
    bool YesAll = false;
    bool NoAll = false;
    MsgResult RememberedAnswer = MsgResult::None;
    bool DefaultToNo = false;

    /// May be a value without a name: a style is any number.
    MsgButtons Buttons() const
    {
        return static_cast<MsgButtons>(Style & 7);
    }
    bool IsQuestion() const
    {
        return static_cast<MsgIcon>(Style & 112) == MsgIcon::Question;
    }
};
MessageRequest& TheMessage();

class MessagePresenter {
public:
    /// Stores the answer in `Result` (and `YesAll`, `NoAll`) of `request`.
    virtual void Present(MessageRequest& request) = 0;

protected:
    ~MessagePresenter() = default;
};
Port<MessagePresenter>& TheMessagePresenter(); ///< without an implementation the answer is MsgResult::None

void MsgOk(TextNumber<0> id);
void MsgOk1(TextNumber<1> id, const QString& arg);
void MsgOk2(TextNumber<2> id, const QString& arg1, const QString& arg2);
void MsgOkNum(TextNumber<1> id, double number);
void MsgOkNum2(TextNumber<2> id, double number1, double number2);
MsgResult MsgYesNo(TextNumber<0> id);
MsgResult MsgYesNoDefNo(TextNumber<0> id);
MsgResult MsgYesNoDefNo1(TextNumber<1> id, const QString& arg);
MsgResult MsgYesNoCancel(TextNumber<0> id);
MsgResult MsgYesNoCancel1(TextNumber<1> id, const QString& arg);
MsgResult MsgYesNoAllCancel1(TextNumber<1> id, const QString& arg);
MsgResult MsgAllChoices1(TextNumber<1> id, const QString& arg);

/// Asks Yes or No once and keeps the answer until MsgAskOnceReset.
MsgResult MsgAskOnce(TextNumber<0> id);
void MsgAskOnceReset();

/// Shows `text`, which is more precise than text `id`, under that number.
void MsgOkPrecise(TopicNumber id, TextNumber<0> text);
void MsgOkPrecise1(TopicNumber id, TextNumber<1> text, const QString& arg);

/// What all of the above call. Waits, yielding to the message loop, while another message is showing.
MsgResult MsgRaw(int style, const QString& text, int helpId);

} // namespace tarvik
