// tests/support/messageLog.h: records messages, for tests that look at them afterwards.
#pragma once

#include "app/message/message.h"

#include <QList>

namespace tarvik {

class MessageLog final : public MessagePresenter {
public:
    struct Report {
        int Number = 0;
        QStringList Args;
    };

    /// Answers OK, a question No.
    void Present(MessageRequest& request) override
    {
        Reports.append({ request.HelpNumber, request.Args });
        request.Result = request.IsQuestion() ? MsgResult::No : MsgResult::Ok;
    }

    QList<Report> Reports;
};

} // namespace tarvik
