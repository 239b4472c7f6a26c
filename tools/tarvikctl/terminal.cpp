#include "tools/tarvikctl/terminal.h"

#include <QRegularExpression>

void Terminal::Present(MessageRequest& request)
{
    static const QRegularExpression lineEnd(QStringLiteral("[\\r\\n]+"));
    const bool question = request.IsQuestion();
    const QString mark = question ? QStringLiteral("?") : QString();
    QString text = request.Text;
    text.replace(lineEnd, QStringLiteral(" "));
    TerminalWrite(stderr, QStringLiteral("%1: %2%3: ").arg(file_).arg(request.HelpNumber).arg(mark) + text + u'\n');
    if (question)
        request.Result = answerYes_ ? MsgResultYes : MsgResultNo;
    else
        request.Result = MsgResultOk;
    hasFailed_ = hasFailed_ || !question;
}

void Terminal::Refuse(const QString& text)
{
    TerminalWrite(stderr, file_ + QStringLiteral(": ") + text + u'\n');
    hasFailed_ = true;
}

void TerminalWrite(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}
