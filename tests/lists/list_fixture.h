// tests/lists/list_fixture.h: fixture of the list modules, and lists for tests.
#pragma once

#include "tests/support/fileClasses.h"
#include "tests/support/fixture.h"

#include "app/platform/seams.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"

#include <QByteArrayList>

#include <functional>
#include <optional>
#include <tuple>

namespace tarvik {

/// Editors of all list types, which only record that they are shown.
class FakeEditors final : public ListEditors {
public:
    bool HasEditor(FileClass) const override
    {
        return AreThere;
    }
    void ShowEditor(FileClass listType) override
    {
        Shown.append(listType);
        WhileShown();
    }
    bool ReadKfactorBand(const QString& path, double& firstHz, double& lastHz) override
    {
        ReadTables.append(path);
        if (Band.has_value())
            std::tie(firstHz, lastHz) = *Band;
        return TableIsReadable;
    }

    bool AreThere = true;
    QList<FileClass> Shown;
    QStringList ReadTables;
    std::optional<std::pair<double, double>> Band;
    bool TableIsReadable = true;
    std::function<void()> WhileShown = [] {};
};

/// Selects the memory list, with the store's limits and fake editors; answers file dialogs.
class ListStart {
public:
    ListStart();
    ListStart(const ListStart&) = delete;
    ListStart& operator=(const ListStart&) = delete;

    /// Answers folder dialogs with `folder`, file dialogs with `path`; the questions are recorded.
    void AnswerFolder(const QString& folder);
    void AnswerFile(const QString& path);

    FakeEditors Editors;
    FolderQuestion AskedFolder;
    OpenFileQuestion AskedFile;
    int FolderQuestions = 0;
    int FileQuestions = 0;
};

/// Every text becomes "text" and its number, for forms that are built afterwards.
void ShowTextNumbers();

/// The CSV extension of K-factor tables and suppress lists becomes ".txt"; that of the other lists stays.
void SeparateCsvExtensions();

class ListTest : public ProgramTest, protected ListStart { };

/// A table with the store's defaults.
MemoryTable EmptyMemoryTable();

/// Makes `row` used, with a frequency and a description.
MemoryRecord& UseRow(MemoryTable& table, int row, double frequencyHz, const QString& description = {});

/// The lines of a memory list's CSV file, without line ends: kHeaderLines, then 1024 rows.
QByteArrayList MemoryCsvLines(const MemoryTable& table);
QByteArrayList MemoryCsvLines();
QByteArray JoinLines(const QByteArrayList& lines);

/// Replaces one field of a line.
QByteArray WithField(const QByteArray& line, int column, const QByteArray& field);

inline constexpr int kHeaderLines = 2;

} // namespace tarvik
