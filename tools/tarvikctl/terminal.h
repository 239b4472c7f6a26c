// tools/tarvikctl/terminal.h: messages and results on a terminal.
#pragma once

#include "app/message/message.h"

#include <QString>

#include <cstdio>

namespace tarvik {

/// Prints messages to standard error as "FILE: NUMBER: TEXT" and answers questions. One line each: line ends inside a
/// text become blanks.
class Terminal final : public MessagePresenter {
public:
    explicit Terminal(bool answerYes)
        : answerYes_(answerYes)
    {
    }

    /// The current file, as the user wrote it.
    void SetFile(const QString& file)
    {
        file_ = file;
    }

    /// Prints the request and answers it: a question with No (Yes with --yes), any other with OK.
    void Present(MessageRequest& request) override;

    /// Prints an error without a message number as "FILE: TEXT". Counts as a message.
    void Refuse(const QString& text);

    /// Notes work not done because of an answer.
    void SetFailed()
    {
        hasFailed_ = true;
    }

    /// Messages shown and errors printed so far.
    int Messages() const
    {
        return messages_;
    }

    /// True once a question was answered with No.
    bool WasAnsweredNo() const
    {
        return wasAnsweredNo_;
    }

    /// Shows progress in a line that the next call replaces; an empty text clears it. Truncated to the width of the
    /// terminal. Does nothing if standard error is no terminal.
    void ShowProgress(const QString& text);

    /// True once a message was shown or work not done.
    bool HasFailed() const
    {
        return hasFailed_;
    }

private:
    QString file_;
    bool answerYes_ = false;
    bool hasFailed_ = false;
    int messages_ = 0;
    bool wasAnsweredNo_ = false;
    bool hasProgress_ = false;
};

/// Writes `text` to `stream` as UTF-8.
void TerminalWrite(std::FILE* stream, const QString& text);

/// `text` with a "?" for each control character.
QString TerminalPrintable(QString text);

} // namespace tarvik
