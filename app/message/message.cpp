#include "app/message/message.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "app/values/numberPicture.h"

namespace tarvik {

namespace {

class NoPresenter final : public MessagePresenter {
public:
    void Present(MessageRequest&) override { }
};

constexpr int kStyleOk = MsgStyle(MsgButtons::Ok, MsgIcon::Exclamation);
constexpr int kStyleYesNo = MsgStyle(MsgButtons::YesNo, MsgIcon::Question);
constexpr int kStyleYesNoCancel = MsgStyle(MsgButtons::YesNoCancel, MsgIcon::Question);
constexpr int kStyleYesNoNoAllCancel = MsgStyle(MsgButtons::YesNoNoAllCancel, MsgIcon::Question);
constexpr int kStyleAllChoices = MsgStyle(MsgButtons::AllChoices, MsgIcon::Question);

/// Kept apart from the request until a message that is still showing has been answered.
struct Question {
    int Style = 0;
    QString Text;
    int HelpNumber = 0;
    QStringList Args;
    bool DefaultToNo = false;
    int PreciseText = 0;
};

MsgResult Show(const Question& question)
{
    MessageRequest& request = TheMessage();
    const bool waits = request.Showing;
    if (waits)
        TheSeams().PumpUntil([&request] { return !request.Showing; });
    const MsgResult answerBefore = request.Result;
    request.Style = question.Style;
    request.Text = question.Text;
    request.HelpNumber = question.HelpNumber;
    request.Args = question.Args;
    request.PreciseText = question.PreciseText;
    request.DefaultToNo = question.DefaultToNo;
    request.Result = MsgResult::None;
    TheMessagePresenter()->Present(request);
    request.DefaultToNo = false;
    const MsgResult answer = request.Result;
    if (waits) // the caller of the first message has not read its answer yet
        request.Result = answerBefore;
    return answer;
}

MsgResult Ask(int style, TextNumber<0> id, bool defaultToNo = false)
{
    return Show({ style, LngStr(id), id.Number, {}, defaultToNo });
}

MsgResult Ask1(int style, TextNumber<1> id, const QString& arg, bool defaultToNo = false)
{
    return Show({ style, LngStr1(id, arg), id.Number, { arg }, defaultToNo });
}

} // namespace

MessageRequest& TheMessage()
{
    static ProcessState<MessageRequest> request;
    return request.Get();
}

Port<MessagePresenter>& TheMessagePresenter()
{
    static PortOr<MessagePresenter, NoPresenter> port;
    return port;
}

void MsgOk(TextNumber<0> id)
{
    Ask(kStyleOk, id);
}

void MsgOkPrecise(TopicNumber id, TextNumber<0> text)
{
    Show({ kStyleOk, LngStr(text), id.Number, {}, false, text.Number });
}

void MsgOkPrecise1(TopicNumber id, TextNumber<1> text, const QString& arg)
{
    Show({ kStyleOk, LngStr1(text, arg), id.Number, { arg }, false, text.Number });
}

void MsgOk1(TextNumber<1> id, const QString& arg)
{
    Ask1(kStyleOk, id, arg);
}

void MsgOk2(TextNumber<2> id, const QString& arg1, const QString& arg2)
{
    Show({ kStyleOk, LngStr2(id, arg1, arg2), id.Number, { arg1, arg2 }, false });
}

void MsgOkNum(TextNumber<1> id, double number)
{
    MsgOk1(id, PlainNumberText(number));
}

void MsgOkNum2(TextNumber<2> id, double number1, double number2)
{
    MsgOk2(id, PlainNumberText(number1), PlainNumberText(number2));
}

MsgResult MsgYesNo(TextNumber<0> id)
{
    return Ask(kStyleYesNo, id);
}

MsgResult MsgYesNoDefNo(TextNumber<0> id)
{
    return Ask(kStyleYesNo, id, true);
}

MsgResult MsgYesNoDefNo1(TextNumber<1> id, const QString& arg)
{
    return Ask1(kStyleYesNo, id, arg, true);
}

MsgResult MsgYesNoCancel(TextNumber<0> id)
{
    return Ask(kStyleYesNoCancel, id);
}

MsgResult MsgYesNoCancel1(TextNumber<1> id, const QString& arg)
{
    return Ask1(kStyleYesNoCancel, id, arg);
}

MsgResult MsgYesNoAllCancel1(TextNumber<1> id, const QString& arg)
{
    return Ask1(kStyleYesNoNoAllCancel, id, arg);
}

MsgResult MsgAllChoices1(TextNumber<1> id, const QString& arg)
{
    return Ask1(kStyleAllChoices, id, arg, true);
}

MsgResult MsgAskOnce(TextNumber<0> id)
{
    MessageRequest& request = TheMessage();
    if (request.RememberedAnswer == MsgResult::None)
        request.RememberedAnswer = MsgYesNo(id);
    return request.RememberedAnswer;
}

void MsgAskOnceReset()
{
    TheMessage().RememberedAnswer = MsgResult::None;
}

MsgResult MsgRaw(int style, const QString& text, int helpId)
{
    return Show({ style, text, helpId, {}, false });
}

} // namespace tarvik
