// app/message/message.h: every message box, by text number. What shows it is a presenter: a form, a terminal, a test's
// script.
#pragma once

#include "app/platform/port.h"
#include "app/text/textNumber.h"

#include <QString>
#include <QStringList>

namespace tarvik {

/// Result codes. 0 is a message form that was left without an answer, which no caller treats as Yes.
enum MsgResult { MsgNone = 0, MsgResultOk = 1, MsgResultCancel = 2, MsgResultYes = 6, MsgResultNo = 7 };

/// Bits 0 to 2 of a style: the buttons, left to right.
enum MsgButtons {
    MsgButtonsOk = 0, ///< the only set that the system menu may close
    MsgButtonsOkCancel = 1,
    MsgButtonsAllChoices = 2, ///< Yes, Yes All, No, No All, Cancel
    MsgButtonsYesNoCancel = 3,
    MsgButtonsYesNo = 4,
    MsgButtonsOkFixed = 5,
    MsgButtonsYesNoNoAllCancel = 6
};

/// Bits 4 to 6 of a style: the icon; any value but the question shows the exclamation mark.
inline constexpr int kMsgIconQuestion = 32;
inline constexpr int kMsgIconExclamation = 48;

/// The message request, one for the process.
struct MessageRequest {
    bool Showing = false;
    int Style = 0;
    QString Text; ///< finished: arguments filled, macros expanded
    int HelpNumber = 0; ///< the text number, unless MsgRaw was given another
    QStringList Args; ///< what was filled into the text, for presenters that report by number
    int Result = MsgNone;
    bool YesAll = false;
    bool NoAll = false;
    int RememberedAnswer = MsgNone;
    bool DefaultToNo = false;

    int Buttons() const
    {
        return Style & 7;
    }
    bool IsQuestion() const
    {
        return (Style & 112) == kMsgIconQuestion;
    }
};
MessageRequest& TheMessage();

/// Shows a message: a form, a terminal, or a test's script.
class MessagePresenter {
public:
    /// Stores the answer in `Result` (and `YesAll`, `NoAll`) of `request`.
    virtual void Present(MessageRequest& request) = 0;

protected:
    ~MessagePresenter() = default;
};
Port<MessagePresenter>& TheMessagePresenter(); ///< without an implementation the answer is MsgNone

void MsgOk(TextNumber<0> id);
void MsgOk1(TextNumber<1> id, const QString& arg);
void MsgOk2(TextNumber<2> id, const QString& arg1, const QString& arg2);
void MsgOkNum(TextNumber<1> id, double number);
void MsgOkNum2(TextNumber<2> id, double number1, double number2);
int MsgYesNo(TextNumber<0> id);
int MsgYesNoDefNo(TextNumber<0> id);
int MsgYesNoDefNo1(TextNumber<1> id, const QString& arg);
int MsgYesNoCancel(TextNumber<0> id);
int MsgYesNoCancel1(TextNumber<1> id, const QString& arg);
int MsgYesNoAllCancel1(TextNumber<1> id, const QString& arg);
int MsgAllChoices1(TextNumber<1> id, const QString& arg);

/// Asks Yes or No once and keeps the answer until MsgAskOnceReset.
int MsgAskOnce(TextNumber<0> id);
void MsgAskOnceReset();

/// The shared end of all of these. Waits, yielding to the message loop, while another message is showing.
int MsgRaw(int style, const QString& text, int helpId);

} // namespace tarvik
