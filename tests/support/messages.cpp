#include "tests/support/messages.h"

#include <gtest/gtest.h>

namespace tarvik {

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
    steps_.push_back({ id, false, {}, answer, {} });
}

void MessageScript::Expect(int id, const QStringList& args, MsgResult answer)
{
    steps_.push_back({ id, true, args, answer, {} });
}

void MessageScript::ExpectWhile(int id, MsgResult answer, std::function<void()> during)
{
    steps_.push_back({ id, false, {}, answer, std::move(during) });
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
