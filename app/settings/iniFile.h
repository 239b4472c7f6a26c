// app/settings/iniFile.h: edits a text of `[section]` and `key=value` lines by key and keeps everything else.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace tarvik {

/// The file in memory. Names of sections and keys ignore case; the first of equal keys counts. Other lines (comments
/// begin with ";"), line ends and a byte order mark are kept byte for byte.
///
/// Values are read as UTF-8, or as Windows-1252 where a line is not valid UTF-8, and written as UTF-8. Blanks around a
/// value are ignored; one pair of quotes around it is dropped on reading.
class IniFile {
public:
    /// Accepts any bytes: what is neither section nor key is kept as a foreign line.
    static IniFile Parse(const QByteArray& bytes);

    /// Empty if there is no such key; an empty text for a key without a value.
    std::optional<QString> Value(const QString& section, const QString& key) const;

    /// Changes the key in place, else appends it to its section, else appends section and key to the file. A line that
    /// already has the value is unchanged. Line breaks and zeros in a value become blanks.
    void SetValue(const QString& section, const QString& key, const QString& value);

    QByteArray Bytes() const;

private:
    struct Line {
        QByteArray Text;
        QByteArray End; ///< empty, LF or CR LF
    };
    struct Section {
        std::vector<Line> Lines; ///< the first is the header, except before the first header
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
