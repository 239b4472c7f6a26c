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

/// Functions that fetch a text by their first argument, and the places they fill.
const std::map<QString, int>& Fetchers()
{
    static const std::map<QString, int> fetchers{ { "LngStr", 0 }, { "LngStr1", 1 }, { "LngStr2", 2 }, { "MsgOk", 0 },
        { "MsgOk1", 1 }, { "MsgOk2", 2 }, { "MsgOkNum", 1 }, { "MsgOkNum2", 2 }, { "MsgYesNo", 0 },
        { "MsgYesNoDefNo", 0 }, { "MsgYesNoDefNo1", 1 }, { "MsgYesNoCancel", 0 }, { "MsgYesNoCancel1", 1 },
        { "MsgYesNoAllCancel1", 1 }, { "MsgAllChoices1", 1 }, { "MsgAskOnce", 0 }, { "StatusSetId", 0 } };
    return fetchers;
}

/// Blanks what is no code, one character at a time.
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

    bool IsDigitSeparator() const
    {
        return at_ > 0 && text_[at_ - 1].isLetterOrNumber();
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

std::map<QString, int> Constants(const QString& code)
{
    static const QRegularExpression constant(QStringLiteral("\\b(\\w+)\\s*(?:=|\\{)\\s*(\\d{5})\\b"));
    std::map<QString, int> found;
    for (auto matches = constant.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        found[match.captured(1)] = match.captured(2).toInt();
    }
    return found;
}

/// The number that a first argument stands for; 0 when only the running program knows.
int NumberOf(const QString& argument, const std::map<QString, int>& own, const SharedConstants& shared)
{
    bool isNumber = false;
    const int number = argument.toInt(&isNumber);
    if (isNumber)
        return number;
    const QString name = argument.section(QStringLiteral("::"), -1);
    for (const auto* constants : { &own, &shared }) {
        const auto constant = constants->find(name);
        if (constant != constants->end())
            return constant->second;
    }
    return 0;
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

SharedConstants ConstantsOfHeaders(const std::map<QString, QString>& sources)
{
    SharedConstants shared;
    std::map<QString, int> ambiguous;
    for (const auto& [file, source] : sources) {
        if (!file.endsWith(QLatin1String(".h")))
            continue;
        for (const auto& [name, number] : Constants(WithoutCommentsAndStrings(source))) {
            const auto [place, isNew] = shared.emplace(name, number);
            if (!isNew && place->second != number)
                ambiguous.emplace(name, number);
        }
    }
    for (const auto& [name, number] : ambiguous)
        shared.erase(name);
    return shared;
}

} // namespace

QString WithoutCommentsAndStrings(const QString& source)
{
    return Blanker(source).Run();
}

void ScanSource(const QString& file, const QString& source, const SharedConstants& shared, SourceScan& scan)
{
    static const QRegularExpression number(QStringLiteral("(?<![\\w.'])(\\d{5})(?![\\w.'])"));
    static const QRegularExpression call(
        QStringLiteral("\\b(Lng\\w+|Msg\\w+|StatusSetId)\\s*\\(\\s*([\\w:]+)\\s*[,)]"));
    const QString code = WithoutCommentsAndStrings(source);
    for (auto matches = number.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const int found = match.captured(1).toInt();
        if (IsTextNumber(found))
            scan.Numbers.push_back({ found, PlaceOf(file, code, match.capturedStart()) });
    }
    const std::map<QString, int> own = Constants(code);
    for (auto matches = call.globalMatch(code); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const auto fetcher = Fetchers().find(match.captured(1));
        const int found = NumberOf(match.captured(2), own, shared);
        if (fetcher != Fetchers().end() && found != 0)
            scan.Calls.push_back(
                { fetcher->first, found, fetcher->second, PlaceOf(file, code, match.capturedStart()) });
    }
}

SourceScan ScanTree(const QString& root)
{
    const std::map<QString, QString> sources = Sources(root);
    const SharedConstants shared = ConstantsOfHeaders(sources);
    SourceScan scan;
    for (const auto& [file, source] : sources)
        ScanSource(file, source, shared, scan);
    return scan;
}

} // namespace tarvik
