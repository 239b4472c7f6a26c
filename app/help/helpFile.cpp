#include "app/help/helpFile.h"

#include "app/help/helpSeal.h"
#include "app/platform/processState.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QFile>
#include <QRegularExpression>

#include <chm_lib.h>

#include <algorithm>
#include <memory>

namespace tarvik {

namespace {

constexpr qsizetype kMaxBookBytes = 64 << 20; // bytes, also of all its files unpacked
constexpr qsizetype kMaxFiles = 10'000;
constexpr int kMaxLevel = 16;

using Files = QHash<QString, QByteArray>;

struct CloseBook {
    void operator()(chmFile* book) const
    {
        chm_close(book);
    }
};
using BookHandle = std::unique_ptr<chmFile, CloseBook>;

/// The unpacker trusts the tables in a book, so it gets only books with an intact seal.
bool IsSealed(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMaxBookBytes || file.size() <= kHelpSealSize)
        return false;
    const QByteArray bytes = file.readAll();
    return bytes.endsWith(HelpSeal(bytes.chopped(kHelpSealSize)));
}

struct Unpacking {
    Files Found;
    qsizetype LeftBytes = kMaxBookBytes;
    bool Failed = false;
};

int Unpack(chmFile* book, chmUnitInfo* unit, void* context)
{
    auto& unpacking = *static_cast<Unpacking*>(context);
    const auto length = static_cast<qsizetype>(std::min<quint64>(unit->length, kMaxBookBytes + 1));
    unpacking.LeftBytes -= length;
    unpacking.Failed = unpacking.LeftBytes < 0 || unpacking.Found.size() >= kMaxFiles;
    if (unpacking.Failed)
        return CHM_ENUMERATOR_FAILURE;
    QByteArray bytes(length, '\0');
    const LONGINT64 got = chm_retrieve_object(book, unit, reinterpret_cast<unsigned char*>(bytes.data()), 0, length);
    unpacking.Failed = got != length;
    unpacking.Found.insert(QString::fromUtf8(unit->path).mid(1), bytes);
    return unpacking.Failed ? CHM_ENUMERATOR_FAILURE : CHM_ENUMERATOR_CONTINUE;
}

std::optional<Files> UnpackBook(const QString& path)
{
    if (!IsSealed(path))
        return std::nullopt;
    const BookHandle book(chm_open(QFile::encodeName(path).constData()));
    if (book == nullptr)
        return std::nullopt;
    Unpacking unpacking;
    const int all = chm_enumerate(book.get(), CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, Unpack, &unpacking);
    if (all == 0 || unpacking.Failed)
        return std::nullopt;
    return unpacking.Found;
}

QString WithoutEntities(QString text)
{
    return text.replace(QLatin1String("&lt;"), QLatin1String("<"))
        .replace(QLatin1String("&gt;"), QLatin1String(">"))
        .replace(QLatin1String("&quot;"), QLatin1String("\""))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

QString PlainText(const QString& html)
{
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    return WithoutEntities(QString(html).replace(tag, QStringLiteral(" "))).simplified();
}

/// Entries of a site map, the format of contents and index. The level of an entry is the depth of its list.
std::vector<HelpTopic> ReadSiteMap(const QByteArray& map)
{
    static const QRegularExpression mark(
        QStringLiteral("<(/?ul|/object|param\\s+name=\"(\\w+)\"\\s+value=\"([^\"]*)\")[^>]*>"),
        QRegularExpression::CaseInsensitiveOption);
    std::vector<HelpTopic> entries;
    HelpTopic entry;
    int depth = -1;
    for (auto marks = mark.globalMatch(QString::fromUtf8(map)); marks.hasNext();) {
        const QRegularExpressionMatch match = marks.next();
        const QString what = match.captured(1).toLower();
        if (what == QLatin1String("ul"))
            ++depth;
        else if (what == QLatin1String("/ul"))
            --depth;
        else if (match.captured(2).compare(QLatin1String("Name"), Qt::CaseInsensitive) == 0)
            entry.Title = WithoutEntities(match.captured(3));
        else if (match.captured(2).compare(QLatin1String("Local"), Qt::CaseInsensitive) == 0)
            entry.Path = WithoutEntities(match.captured(3));
        else if (what == QLatin1String("/object")) {
            entry.Level = std::clamp(depth, 0, kMaxLevel);
            if (!entry.Title.isEmpty() && !entry.Path.isEmpty())
                entries.push_back(entry);
            entry = {};
        }
    }
    return entries;
}

/// Lines of "number<TAB>path".
QHash<int, QString> ReadTopicPaths(const QByteArray& table)
{
    QHash<int, QString> paths;
    for (const QString& line : QString::fromUtf8(table).split(u'\n', Qt::SkipEmptyParts))
        paths.insert(line.section(u'\t', 0, 0).toInt(), line.section(u'\t', 1).trimmed());
    return paths;
}

/// A line ".topic number", then the lines of its text.
QHash<int, QString> ReadPopupTexts(const QByteArray& table)
{
    QHash<int, QString> texts;
    int number = 0;
    for (const QString& line : QString::fromUtf8(table).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(QLatin1String(".topic ")))
            number = line.mid(7).toInt();
        else
            texts[number] = (texts[number] + QLatin1Char(' ') + line).trimmed();
    }
    return texts;
}

QString PageOf(const QString& path)
{
    const QString page = path.section(u'#', 0, 0);
    return page.startsWith(u'/') ? page.mid(1) : page;
}

struct OpenedBook {
    HelpFile File;
    QString Path;
};

std::optional<FileVersion> VersionIn(const Files& files)
{
    const QString line = QString::fromUtf8(files.value(QStringLiteral("version.txt"))).trimmed();
    const QStringList versions = line.split(u'\t');
    if (versions.size() != 2)
        return std::nullopt;
    return FileVersion{ versions[0], versions[1] };
}

} // namespace

bool HelpFile::Open(const QString& path)
{
    *this = {};
    std::optional<Files> files = UnpackBook(path);
    if (!files)
        return false;
    files_ = std::move(*files);
    contents_ = ReadSiteMap(files_.value(QStringLiteral("contents.hhc")));
    index_ = ReadSiteMap(files_.value(QStringLiteral("index.hhk")));
    topicPaths_ = ReadTopicPaths(files_.value(QStringLiteral("topics.txt")));
    popupTexts_ = ReadPopupTexts(files_.value(QStringLiteral("popup/popupid.txt")));
    ReadSections();
    return IsOpen();
}

std::optional<QByteArray> HelpFile::Page(const QString& path) const
{
    const auto found = files_.constFind(PageOf(path));
    if (found == files_.constEnd())
        return std::nullopt;
    return *found;
}

std::vector<HelpTopic> HelpFile::Search(const QString& query) const
{
    const QStringList words = query.toLower().simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    std::vector<HelpTopic> inTitle;
    std::vector<HelpTopic> inText;
    for (const Section& section : sections_) {
        const QString title = section.Topic.Title.toLower();
        const auto isInTitle = [&title](const QString& word) { return title.contains(word); };
        const auto isInSection = [&section](const QString& word) { return section.Text.contains(word); };
        if (!std::ranges::all_of(words, isInSection))
            continue;
        const bool comesFirst = section.IsHeading && std::ranges::any_of(words, isInTitle);
        (comesFirst ? inTitle : inText).push_back(section.Topic);
    }
    inTitle.insert(inTitle.end(), inText.begin(), inText.end());
    return inTitle;
}

QString HelpFile::TopicPath(int helpNumber) const
{
    return topicPaths_.value(helpNumber);
}

QString HelpFile::PopupText(int helpNumber) const
{
    return popupTexts_.value(helpNumber);
}

QString HelpFile::TitleOf(const QString& path) const
{
    for (const Section& section : sections_) {
        if (section.Topic.Path == path)
            return section.Topic.Title;
    }
    for (const HelpTopic& topic : contents_) {
        if (PageOf(topic.Path) == PageOf(path))
            return topic.Title;
    }
    return {};
}

std::optional<FileVersion> HelpFile::Version() const
{
    return VersionIn(files_);
}

/// Splits every page of the contents at its titles; each part is one topic of the search.
void HelpFile::ReadSections()
{
    static const QRegularExpression title(QStringLiteral("<(h1|h2|dt)\\s[^>]*id=\"([^\"]+)\"[^>]*>"));
    QString lastPage;
    for (const HelpTopic& topic : contents_) {
        const QString page = PageOf(topic.Path);
        if (page == lastPage)
            continue;
        lastPage = page;
        const QString html = QString::fromUtf8(files_.value(page));
        std::vector<Section> found;
        std::vector<qsizetype> starts;
        for (auto titles = title.globalMatch(html); titles.hasNext();) {
            const QRegularExpressionMatch match = titles.next();
            const qsizetype end = html.indexOf(QLatin1String("</") + match.captured(1), match.capturedEnd());
            const QString text = PlainText(html.mid(match.capturedEnd(), end - match.capturedEnd()));
            const bool isHeading = match.captured(1) != QLatin1String("dt");
            found.push_back({ { text, page + QLatin1Char('#') + match.captured(2), topic.Level }, {}, isHeading });
            starts.push_back(match.capturedStart());
        }
        starts.push_back(html.size());
        for (size_t at = 0; at < found.size(); ++at)
            found[at].Text = PlainText(html.mid(starts[at], starts[at + 1] - starts[at])).toLower();
        sections_.insert(sections_.end(), found.begin(), found.end());
    }
}

const HelpFile* TheHelpFile()
{
    static ProcessState<OpenedBook> state;
    OpenedBook& book = state.Get();
    const QString path = Program().HelpFilePath;
    if (path != book.Path || !book.File.IsOpen()) {
        book.Path = path;
        if (!book.File.Open(path))
            return nullptr;
    }
    return &book.File;
}

QString PopupHelpText(int helpNumber)
{
    const HelpFile* book = TheHelpFile();
    QString text = book == nullptr ? QString() : book->PopupText(helpNumber);
    if (text.isEmpty() && book != nullptr)
        text = book->TitleOf(book->TopicPath(helpNumber));
    return text.isEmpty() ? LngStr1(TextId::NoHelpForTopic, QString::number(helpNumber)) : text;
}

std::optional<FileVersion> ReadHelpVersion(const QString& path)
{
    const std::optional<Files> files = UnpackBook(path);
    return files ? VersionIn(*files) : std::nullopt;
}

} // namespace tarvik
