// tools/tarvikctl/listFile.h: a list of any family, as the commands for list files handle it.
#pragma once

#include "link/classes/model.h"
#include "screen/diagram/multiTrace.h"

#include <QJsonObject>
#include <QString>

#include <memory>
#include <optional>

namespace tarvik {

/// One list in memory. An operation that returns false has shown its message.
class ListFile {
public:
    virtual ~ListFile() = default;

    /// Reads a file of one of the two forms. A message can have been shown on success: an error in a data line of CSV.
    [[nodiscard]] virtual bool Read(const QString& path, bool isCsv) = 0;

    /// Takes over the members of a JSON list but "family". An empty text, or what is wrong; the values pass the checks
    /// and clamps of the CSV form, which show their messages.
    [[nodiscard]] virtual QString ReadJson(const QJsonObject& list) = 0;

    /// What the editor checks before a save.
    [[nodiscard]] virtual bool MayBeSaved() = 0;

    /// Writes the list as the extension says, other than JSON; asks before replacing a file.
    [[nodiscard]] virtual bool Write(const QString& path) = 0;

    /// Sorts in the store by `key`, one of `SortKeys`, or sorts and merges.
    [[nodiscard]] virtual bool Sort(int key) = 0;
    [[nodiscard]] virtual bool SortAndMerge()
    {
        return false;
    }

    /// What the editor's view button does first: checks and sorts the table.
    [[nodiscard]] virtual bool PrepareDiagram(bool omniphase)
    {
        static_cast<void>(omniphase);
        return MayBeSaved() && Sort(0);
    }

    /// The diagram of a sorted list, or nothing for a family without one. `omniphase`: that table of a correction set.
    virtual std::optional<MultiTraceInput> DiagramInput(bool omniphase) const
    {
        static_cast<void>(omniphase);
        return {};
    }

    /// One line: kind of list, name, number of used rows.
    virtual QString Summary() const = 0;

    /// Columns for people; unused rows only if `all`.
    virtual QString Table(bool all) const = 0;

    /// One object with keys in a fixed order. Frequencies in Hz, settings as codes.
    virtual QString Json(bool all) const = 0;
};

/// A new list of a family; makes it the current file class.
std::unique_ptr<ListFile> NewListFile(FileClass fileClass);
std::unique_ptr<ListFile> NewCorrectionFile();

/// The family's word in JSON and on the command line: "memory", "antenna", "kfactor", "suppress", "correction".
QString FamilyWord(FileClass fileClass);
FileClass ClassOfFamilyWord(const QString& word); ///< FileClassUnknown for another word

/// Number of sort keys; 0: the family has no sort.
int SortKeysOf(FileClass fileClass);

} // namespace tarvik
