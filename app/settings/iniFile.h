// app/settings/iniFile.h: a text of `[section]` and `key=value` lines, changed key by key without touching anything
// else.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace tarvik {

/// The file in memory. Sections and keys are found whatever their case; of keys with the same name the first one
/// counts. Lines that are no section and no key (comments, which begin with ";", and anything else) are kept byte for
/// byte, in their place, and so are line ends and a byte order mark.
///
/// Values are read as UTF-8, or as Windows-1252 where a line is not valid UTF-8, and written as UTF-8. Blanks around a
/// value don't count; one pair of quotes around it is dropped on reading.
class IniFile {
public:
    /// Any bytes make a file: what can't be understood is a foreign line.
    static IniFile Parse(const QByteArray& bytes);

    /// Nothing when there is no such key; an empty text when there is one without a value.
    std::optional<QString> Value(const QString& section, const QString& key) const;

    /// Changes the key where it stands, else adds it behind the last line of its section, else adds section and key at
    /// the end. A line that holds the value already stays as it is. Line breaks and zeros in a value become blanks.
    void SetValue(const QString& section, const QString& key, const QString& value);

    QByteArray Bytes() const;

private:
    struct Line {
        QByteArray Text;
        QByteArray End; ///< empty, LF or CR LF
    };
    struct Section {
        std::vector<Line> Lines; ///< the first is the header; the text before all headers has none
    };
    struct Place {
        size_t Section = 0;
        size_t Line = 0;
    };

    void TakeLine(const QByteArray& text, const QByteArray& end);
    void ChangeLine(Line& line, const QString& value);
    size_t AddLine(Section& section, const QByteArray& text);
    QByteArray LineEnd() const;
    size_t SectionNamed(const QString& section);

    std::vector<Section> sections_ = std::vector<Section>(1);
    QHash<QString, size_t> sectionAt_; ///< folded name, to the first section of that name
    QHash<QString, Place> keyAt_; ///< folded "section LF key"
    QString currentName_;
    QByteArray lineEnd_; ///< the first one in the file; empty in a file without lines
};

} // namespace tarvik
