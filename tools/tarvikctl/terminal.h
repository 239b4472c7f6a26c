// tools/tarvikctl/terminal.h: the program's messages and results on a terminal.
#pragma once

#include "app/message/message.h"

#include <QString>

#include <cstdio>

namespace tarvik {

/// Shows messages on standard error as "FILE: NUMBER: TEXT" and answers questions. One line each: a line end inside
/// a text becomes a blank.
class Terminal final : public MessagePresenter {
public:
    explicit Terminal(bool answerYes)
        : answerYes_(answerYes)
    {
    }

    /// The file that is being worked on, as the user wrote it.
    void SetFile(const QString& file)
    {
        file_ = file;
    }

    /// Shows the request and answers it: a question with No (Yes where the user said so), the rest with OK.
    void Present(MessageRequest& request) override;

    /// What no message number stands for, as "FILE: TEXT". Counts as a message.
    void Refuse(const QString& text);

    /// The work was not done, by an answer that the user knows of.
    void SetFailed()
    {
        hasFailed_ = true;
    }

    /// True once a question was answered with No.
    bool WasAnsweredNo() const
    {
        return wasAnsweredNo_;
    }

    /// Tells people what goes on, in one line that the next one replaces and that is gone at the end; an empty text
    /// takes it away. What is too long for the line is left out. Nothing where standard error is no terminal.
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
    bool wasAnsweredNo_ = false;
    bool hasProgress_ = false;
};

/// Writes `text` to `stream` as UTF-8.
void TerminalWrite(std::FILE* stream, const QString& text);

/// What an instrument says or a file is called, with a "?" for each character that a terminal would obey instead of
/// showing it.
QString TerminalPrintable(QString text);

} // namespace tarvik
