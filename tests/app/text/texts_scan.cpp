#include "tests/app/text/texts_scan.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <array>

namespace tarvik {

namespace {

constexpr std::array kFolders{ "app", "link", "screen", "lists", "print", "tools/tarvikctl" };
constexpr int kLowestText = 10000;
constexpr int kHighestText = 14600;

/// Functions that fetch a text by their first argument, and the number of placeholders they fill.
const std::map<QString, int>& Fetchers()
{
    static const std::map<QString, int> fetchers{ { "LngStr", 0 }, { "LngStr1", 1 }, { "LngStr2", 2 }, { "MsgOk", 0 },
        { "MsgOk1", 1 }, { "MsgOk2", 2 }, { "MsgOkNum", 1 }, { "MsgOkNum2", 2 }, { "MsgYesNo", 0 },
        { "MsgYesNoDefNo", 0 }, { "MsgYesNoDefNo1", 1 }, { "MsgYesNoCancel", 0 }, { "MsgYesNoCancel1", 1 },
        { "MsgYesNoAllCancel1", 1 }, { "MsgAllChoices1", 1 }, { "MsgAskOnce", 0 }, { "StatusSetId", 0 } };
    return fetchers;
}

/// Blanks comments and literals.
class Blanker {
public:
    explicit Blanker(const QString& source)
        : text_(source)
    {
    }

    QString Run()
    {
        while (at_ < text_.size()) {
            if (Starts(u"//"))
                BlankUntil([this] { return text_[at_] == u'\n'; });
            else if (Starts(u"/*"))
                BlankComment();
            else if (Starts(u"R\"("))
                BlankRawString();
            else if (text_[at_] == u'"' || (text_[at_] == u'\'' && !IsDigitSeparator()))
                BlankLiteral(text_[at_]);
            else
                ++at_;
        }
        return text_;
    }

private:
    bool Starts(QStringView what) const
    {
        return QStringView(text_).mid(at_).startsWith(what);
    }

    /// In a number; the prefix of a character literal is a word without a digit in front.
    bool IsDigitSeparator() const
    {
        qsizetype word = at_;
        while (word > 0 && (text_[word - 1].isLetterOrNumber() || text_[word - 1] == u'\''))
            --word;
        return text_[word].isDigit();
    }

    void Blank()
    {
        if (text_[at_] != u'\n')
            text_[at_] = u' ';
        ++at_;
    }

    template <typename Condition>
    void BlankUntil(Condition reached)
    {
        while (at_ < text_.size() && !reached())
            Blank();
    }

    void BlankComment()
    {
        BlankUntil([this] { return Starts(u"*/"); });
        BlankUntil([this, end = at_ + 2] { return at_ >= end; });
    }

    void BlankRawString()
    {
        BlankUntil([this] { return Starts(u")\""); });
        BlankUntil([this, end = at_ + 2] { return at_ >= end; });
    }

    void BlankLiteral(QChar quote)
    {
        Blank();
        while (at_ < text_.size() && text_[at_] != quote && text_[at_] != u'\n') {
            if (text_[at_] == u'\\' && at_ + 1 < text_.size())
                Blank();
            Blank();
        }
        if (at_ < text_.size() && text_[at_] == quote)
            Blank();
    }

    QString text_;
    qsizetype at_ = 0;
};

QString PlaceOf(const QString& file, const QString& source, qsizetype at)
{
    return QStringLiteral("%1:%2").arg(file).arg(QStringView(source).left(at).count(u'\n') + 1);
}

bool IsTextNumber(int number)
{
    return number >= kLowestText && number <= kHighestText;
}

/// Relative path and content of every source below the folders that may show text.
std::map<QString, QString> Sources(const QString& root)
{
    std::map<QString, QString> sources;
    for (const char* folder : kFolders) {
        QDirIterator files(root + QLatin1Char('/') + QLatin1String(folder), { "*.h", "*.cpp" }, QDir::Files,
            QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                sources[QDir(root).relativeFilePath(file.fileName())] = QString::fromUtf8(file.readAll());
        }
    }
    return sources;
}

} // namespace

QString WithoutCommentsAndStrings(const QString& source)
{
    return Blanker(source).Run();
}

void ScanSource(const QString& file, const QString& source, SourceScan& scan)
{
    static const QRegularExpression number(QStringLiteral("(?<![\\w.'])(\\d{5})(?![\\w.'])"));
    static const QRegularExpression name(QStringLiteral("\\b(?:TextId|HelpId)::\\w+"));
    static const QRegularExpression call(
        QStringLiteral("\\b(Lng\\w+|Msg\\w+|StatusSetId)\\s*\\(\\s*(TextId::\\w+)\\s*[,)]"));
    const QString code = WithoutCommentsAndStrings(source);
    for (auto matches = number.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const int found = match.captured(1).toInt();
        if (IsTextNumber(found))
            scan.Numbers.push_back({ found, PlaceOf(file, code, match.capturedStart()) });
    }
    for (auto matches = name.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        scan.Names.push_back({ match.captured(), PlaceOf(file, code, match.capturedStart()) });
    }
    for (auto matches = call.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const auto fetcher = Fetchers().find(match.captured(1));
        if (fetcher != Fetchers().end())
            scan.Calls.push_back(
                { fetcher->first, match.captured(2), fetcher->second, PlaceOf(file, code, match.capturedStart()) });
    }
}

SourceScan ScanTree(const QString& root)
{
    SourceScan scan;
    for (const auto& [file, source] : Sources(root))
        ScanSource(file, source, scan);
    return scan;
}

std::vector<NamedNumber> ReadNames(const QString& root)
{
    static const QRegularExpression line(QStringLiteral("^(\\d{5})\t(HelpId::)?([A-Z]\\w+)$"));
    std::vector<NamedNumber> names;
    QFile file(root + QStringLiteral("/closed/tvlng/names.tsv"));
    if (!file.open(QIODevice::ReadOnly))
        return names;
    for (const QString& text : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (text.startsWith(u'#'))
            continue;
        const QRegularExpressionMatch match = line.match(text);
        const QString space = match.captured(2).isEmpty() ? QStringLiteral("TextId::") : match.captured(2);
        names.push_back({ match.captured(1).toInt(), space + match.captured(3) });
    }
    return names;
}

} // namespace tarvik
