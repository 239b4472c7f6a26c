#include "tools/tarvikctl/terminal.h"

#include <QRegularExpression>

#include <algorithm>

#if defined(Q_OS_WIN)
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace tarvik {

namespace {

bool ErrorIsTerminal()
{
#if defined(Q_OS_WIN)
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) == 1;
#endif
}

/// Width of the terminal on standard error, in characters.
int TerminalColumns()
{
    constexpr int kUsualColumns = 80;
#if !defined(Q_OS_WIN)
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
#endif
    return kUsualColumns;
}

} // namespace

void Terminal::ShowProgress(const QString& text)
{
    static const bool isTerminal = ErrorIsTerminal();
    if (!isTerminal || (text.isEmpty() && !hasProgress_))
        return;
    TerminalWrite(stderr, QStringLiteral("\r\033[K") + TerminalPrintable(text.left(TerminalColumns() - 1)));
    hasProgress_ = !text.isEmpty();
}

void Terminal::Present(MessageRequest& request)
{
    ShowProgress({});
    static const QRegularExpression lineEnd(QStringLiteral("[\\r\\n]+"));
    const bool question = request.IsQuestion();
    const QString mark = question ? QStringLiteral("?") : QString();
    QString text = request.Text;
    text.replace(lineEnd, QStringLiteral(" "));
    const QString start = QStringLiteral(": %1%2: ").arg(request.HelpNumber).arg(mark);
    TerminalWrite(stderr, TerminalPrintable(file_ + start + text) + u'\n');
    if (question)
        request.Result = answerYes_ ? MsgResult::Yes : MsgResult::No;
    else
        request.Result = MsgResult::Ok;
    hasFailed_ = hasFailed_ || !question;
    messages_ += question ? 0 : 1;
    wasAnsweredNo_ = wasAnsweredNo_ || request.Result == MsgResult::No;
}

void Terminal::Refuse(const QString& text)
{
    ShowProgress({});
    TerminalWrite(stderr, TerminalPrintable(file_ + QStringLiteral(": ") + text) + u'\n');
    hasFailed_ = true;
    ++messages_;
}

void TerminalWrite(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

QString TerminalPrintable(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return character.category() == QChar::Other_Control; },
        QChar(u'?'));
    return text;
}

} // namespace tarvik
