// tests/lists/list_fixture.h: start values of the list modules, and the lists that tests begin with.
#pragma once

#include "tests/support/fileClasses.h"
#include "tests/support/fixture.h"

#include "app/platform/seams.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"

#include <QByteArrayList>

#include <functional>

namespace tarvik {

/// Editors of all list types, which only note that they are shown.
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

    bool AreThere = true;
    QList<FileClass> Shown;
    std::function<void()> WhileShown = [] {};
};

/// Start values of the list modules, and answers to the file questions.
class ListStart {
public:
    ListStart();
    ListStart(const ListStart&) = delete;
    ListStart& operator=(const ListStart&) = delete;

    /// Answers the folder browser with `folder` and keeps the question.
    void AnswerFolder(const QString& folder);
    void AnswerFile(const QString& path);

    FakeEditors Editors;
    FolderQuestion AskedFolder;
    OpenFileQuestion AskedFile;
    int FolderQuestions = 0;
    int FileQuestions = 0;
};

class ListTest : public ProgramTest, protected ListStart { };

/// A table of the store's start values.
MemoryTable EmptyMemoryTable();

/// Brings `row` to life with a frequency and a description.
MemoryRecord& UseRow(MemoryTable& table, int row, double frequencyHz, const QString& description = {});

/// The lines of a memory list's CSV file, without line ends: two header lines, then 1024.
QByteArrayList MemoryCsvLines(const MemoryTable& table);
QByteArrayList MemoryCsvLines();
QByteArray JoinLines(const QByteArrayList& lines);

/// Replaces one field of a line.
QByteArray WithField(const QByteArray& line, int column, const QByteArray& field);

inline constexpr int kHeaderLines = 2;

} // namespace tarvik
