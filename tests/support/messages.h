// tests/support/messages.h: a script of the messages that a test expects, with the answer to each.
#pragma once

#include "app/message/message.h"

#include <QStringList>

#include <deque>
#include <functional>

namespace tarvik {

/// Stands in for the message form. A message that is not the next expected one fails the test, and so does an
/// expected one that never came (checked at the end of the test by the fixture).
class MessageScript final : private MessagePresenter {
public:
    MessageScript();
    ~MessageScript();

    /// Expects message `id` next and answers it. `args`, where given, must equal the arguments of the message.
    void Expect(int id, MsgResult answer);
    void Expect(int id, const QStringList& args, MsgResult answer);

    /// Expects message `id` with the more precise text `text` and its arguments. The others expect the text of `id`.
    void ExpectPrecise(int id, int text, const QStringList& args, MsgResult answer);

    /// The same; `during` runs while the message is showing.
    void ExpectWhile(int id, MsgResult answer, std::function<void()> during);

    /// Fails the test for each message that is still expected.
    void Verify();

private:
    struct Step {
        int Id = 0;
        bool HasArgs = false;
        QStringList Args;
        MsgResult Answer = MsgResult::None;
        std::function<void()> During;
        int PreciseText = 0;
    };
    void Present(MessageRequest& request) override;

    std::deque<Step> steps_;
};

inline constexpr MsgResult Ok = MsgResult::Ok;
inline constexpr MsgResult Cancel = MsgResult::Cancel;
inline constexpr MsgResult Yes = MsgResult::Yes;
inline constexpr MsgResult No = MsgResult::No;

} // namespace tarvik
