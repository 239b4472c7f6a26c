// app/help/helpFile.h: reads the help book: contents, index, pages, search, the topic and pop-up text of a help number.
#pragma once

#include "closed/loader.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace tarvik {

/// A topic or a keyword. `Path` is a page of the book, mostly with "#" and an anchor.
struct HelpTopic {
    QString Title;
    QString Path;
    int Level = 0; ///< depth in the contents, from 0
};

/// A help book, held in memory once it is open. The file may be changed or removed afterwards.
class HelpFile {
public:
    /// Reads the book at `path`. False if it is missing, too large, damaged, or no help book; the object is then
    /// empty.
    [[nodiscard]] bool Open(const QString& path);

    bool IsOpen() const
    {
        return !contents_.empty();
    }

    /// In reading order; the first one is the home page.
    const std::vector<HelpTopic>& Contents() const
    {
        return contents_;
    }

    /// Keywords in alphabetical order.
    const std::vector<HelpTopic>& Index() const
    {
        return index_;
    }

    /// A page, style sheet or picture. An anchor after the path and a leading slash are ignored.
    std::optional<QByteArray> Page(const QString& path) const;

    /// Topics that contain every word of `query`, ignoring case and also inside longer words; first those with a word
    /// in their heading, else in reading order. Empty for a query without words.
    std::vector<HelpTopic> Search(const QString& query) const;

    /// Empty for a number without topic or pop-up text.
    QString TopicPath(int helpNumber) const;
    QString PopupText(int helpNumber) const;

    /// Title of the topic at `path`; empty if the book has none.
    QString TitleOf(const QString& path) const;

    std::optional<FileVersion> Version() const;

private:
    struct Section {
        HelpTopic Topic;
        QString Text; ///< plain text with the title, lower-case
        bool IsHeading = false; ///< its title is a heading, not a term
    };
    void ReadSections();

    QHash<QString, QByteArray> files_; ///< by path without leading slash
    std::vector<HelpTopic> contents_;
    std::vector<HelpTopic> index_;
    std::vector<Section> sections_; ///< what the search reads
    QHash<int, QString> topicPaths_;
    QHash<int, QString> popupTexts_;
};

/// The book at `Program().HelpFilePath`, opened on first use and when the path has changed; null if it can't be opened.
const HelpFile* TheHelpFile();

/// Text of the pop-up for a help number: its pop-up text, else the title of its topic, else that there is no help.
QString PopupHelpText(int helpNumber);

/// Version of the help book at `path`.
std::optional<FileVersion> ReadHelpVersion(const QString& path);

} // namespace tarvik
