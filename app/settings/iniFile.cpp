#include "app/settings/iniFile.h"

#include "app/text/ansi.h"

#include <utility>

namespace tarvik {

namespace {

#if defined(Q_OS_WIN)
constexpr const char* kNativeLineEnd = "\r\n";
#else
constexpr const char* kNativeLineEnd = "\n";
#endif

constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");

/// The significant part of a line: without byte order mark, up to the first zero.
QByteArrayView Relevant(QByteArrayView text)
{
    if (text.startsWith(kByteOrderMark))
        text = text.sliced(kByteOrderMark.size());
    const qsizetype zero = text.indexOf('\0');
    return (zero < 0 ? text : text.first(zero)).trimmed();
}

QString Decoded(QByteArrayView bytes)
{
    if (!bytes.isValidUtf8())
        return FromAnsi(bytes);
    const QString text = QString::fromUtf8(bytes);
    return bytes.startsWith(kByteOrderMark) ? QChar(0xFEFF) + text : text; // the conversion drops a leading mark
}

QString Folded(QByteArrayView name)
{
    return Decoded(name.trimmed()).toCaseFolded();
}

QString KeyName(const QString& foldedSection, const QString& foldedKey)
{
    return foldedSection + u'\n' + foldedKey;
}

QString WithoutQuotes(const QString& value)
{
    const bool isQuoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

/// The form that reads back as `value`.
QByteArray Encoded(const QString& value)
{
    QString text = value;
    for (QChar& character : text) {
        if (character == u'\n' || character == u'\r' || character.isNull())
            character = u' ';
    }
    text = text.trimmed();
    if (WithoutQuotes(text) != text)
        text = u'"' + text + u'"';
    return text.toUtf8();
}

QString ValueOf(QByteArrayView text)
{
    text = Relevant(text);
    return WithoutQuotes(Decoded(text.sliced(text.indexOf('=') + 1).trimmed()));
}

bool IsBlank(QByteArrayView text)
{
    return text.trimmed().isEmpty();
}

} // namespace

IniFile IniFile::Parse(const QByteArray& bytes)
{
    IniFile file;
    qsizetype at = 0;
    while (at < bytes.size()) {
        const qsizetype feed = bytes.indexOf('\n', at);
        const qsizetype next = feed < 0 ? bytes.size() : feed + 1;
        qsizetype end = feed < 0 ? next : feed;
        if (feed > at && bytes[feed - 1] == '\r')
            --end;
        file.TakeLine(bytes.sliced(at, end - at), bytes.sliced(end, next - end));
        at = next;
    }
    return file;
}

void IniFile::TakeLine(const QByteArray& text, const QByteArray& end)
{
    if (lineEnd_.isEmpty())
        lineEnd_ = end;
    const QByteArrayView relevant = Relevant(text);
    const qsizetype bracket = relevant.indexOf(']');
    if (relevant.startsWith('[') && bracket > 0) {
        currentName_ = Folded(relevant.sliced(1, bracket - 1));
        if (!sectionAt_.contains(currentName_))
            sectionAt_.insert(currentName_, sections_.size());
        sections_.emplace_back();
    }

    std::vector<Line>& lines = sections_.back().Lines;
    const qsizetype equals = relevant.indexOf('=');
    if (equals > 0 && sections_.size() > 1 && !lines.empty() && !relevant.startsWith(';')) {
        const QString name = KeyName(currentName_, Folded(relevant.first(equals)));
        if (!keyAt_.contains(name))
            keyAt_.insert(name, { sections_.size() - 1, lines.size() });
    }
    lines.push_back({ text, end });
}

std::optional<QString> IniFile::Value(const QString& section, const QString& key) const
{
    const auto found = keyAt_.constFind(KeyName(section.toCaseFolded(), key.toCaseFolded()));
    if (found == keyAt_.constEnd())
        return std::nullopt;
    return ValueOf(sections_[found->Section].Lines[found->Line].Text);
}

void IniFile::SetValue(const QString& section, const QString& key, const QString& value)
{
    const QString name = KeyName(section.toCaseFolded(), key.toCaseFolded());
    const auto found = keyAt_.constFind(name);
    if (found != keyAt_.constEnd()) {
        ChangeLine(sections_[found->Section].Lines[found->Line], value);
        return;
    }
    const size_t at = SectionNamed(section);
    keyAt_.insert(name, { at, AddLine(sections_[at], key.toUtf8() + '=' + Encoded(value)) });
}

void IniFile::ChangeLine(Line& line, const QString& value)
{
    const QByteArray encoded = Encoded(value);
    if (ValueOf(line.Text) == WithoutQuotes(Decoded(encoded)))
        return;
    const qsizetype equals = line.Text.indexOf('=');
    qsizetype start = equals + 1;
    while (start < line.Text.size() && (line.Text[start] == ' ' || line.Text[start] == '\t'))
        ++start;
    line.Text = line.Text.first(start) + encoded;
}

size_t IniFile::SectionNamed(const QString& section)
{
    const QString name = section.toCaseFolded();
    const auto found = sectionAt_.constFind(name);
    if (found != sectionAt_.constEnd())
        return *found;
    if (!sections_.back().Lines.empty() && sections_.back().Lines.back().End.isEmpty())
        sections_.back().Lines.back().End = LineEnd();
    sectionAt_.insert(name, sections_.size());
    sections_.push_back({ { { '[' + section.toUtf8() + ']', LineEnd() } } });
    return sections_.size() - 1;
}

/// Returns the index of the new line. Blank lines at the end of the section stay after it.
size_t IniFile::AddLine(Section& section, const QByteArray& text)
{
    auto place = section.Lines.end();
    while (IsBlank(std::prev(place)->Text)) // ends at the header
        --place;
    if (std::prev(place)->End.isEmpty())
        std::prev(place)->End = LineEnd();
    const auto at = static_cast<size_t>(place - section.Lines.begin());
    section.Lines.insert(place, { text, LineEnd() });
    return at;
}

QByteArray IniFile::LineEnd() const
{
    return lineEnd_.isEmpty() ? QByteArray(kNativeLineEnd) : lineEnd_;
}

QByteArray IniFile::Bytes() const
{
    QByteArray bytes;
    for (const Section& section : sections_) {
        for (const Line& line : section.Lines)
            bytes += line.Text + line.End;
    }
    return bytes;
}

} // namespace tarvik
