#include "tests/support/messages.h"

#include "app/text/lang.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

QString TextOf(int number, const QStringList& args)
{
    return args.isEmpty() ? LngStr(TextNumber<0>(number)) : LngStr1(TextNumber<1>(number), args.first());
}

} // namespace

MessageScript::MessageScript()
{
    TheMessagePresenter().Set(*this);
}

MessageScript::~MessageScript()
{
    TheMessagePresenter().Reset();
}

void MessageScript::Expect(int id, MsgResult answer)
{
    steps_.push_back({ id, false, {}, answer, {}, 0 });
}

void MessageScript::Expect(int id, const QStringList& args, MsgResult answer)
{
    steps_.push_back({ id, true, args, answer, {}, 0 });
}

void MessageScript::ExpectPrecise(int id, int text, const QStringList& args, MsgResult answer)
{
    steps_.push_back({ id, true, args, answer, {}, text });
}

void MessageScript::ExpectWhile(int id, MsgResult answer, std::function<void()> during)
{
    steps_.push_back({ id, false, {}, answer, std::move(during), 0 });
}

void MessageScript::Verify()
{
    for (const Step& step : steps_)
        ADD_FAILURE() << "message " << step.Id << " did not appear";
    steps_.clear();
}

void MessageScript::Present(MessageRequest& request)
{
    const QString shown = QStringLiteral("%1 (%2)").arg(request.HelpNumber).arg(request.Args.join(u'|'));
    if (steps_.empty()) {
        ADD_FAILURE() << "unexpected message " << shown.toStdString() << ": " << request.Text.toStdString();
        return;
    }
    const Step step = steps_.front();
    steps_.pop_front();
    EXPECT_EQ(step.Id, request.HelpNumber) << request.Text.toStdString();
    EXPECT_EQ(step.PreciseText, request.PreciseText) << request.Text.toStdString();
    if (step.PreciseText != 0) {
        EXPECT_EQ(request.Text, TextOf(step.PreciseText, step.Args));
    }
    if (step.HasArgs) {
        EXPECT_EQ(step.Args, request.Args) << "arguments " << shown.toStdString();
    }
    EXPECT_FALSE(request.Text.isEmpty()) << "no text for message " << step.Id;
    request.Showing = true;
    if (step.During)
        step.During();
    request.Showing = false;
    request.Result = step.Answer;
}

} // namespace tarvik
