#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/values/limits.h"

#include <QTemporaryDir>

#include <cstdio>

namespace tarvik {

ListStart::ListStart()
{
    TheListEditors().Set(Editors);
    SetEditorType(FileClassMemoryList);
    ReadInstrumentLimits();
}

void ListStart::AnswerFolder(const QString& folder)
{
    TheSeams().BrowseFolder = [this, folder](const FolderQuestion& question) {
        AskedFolder = question;
        ++FolderQuestions;
        return folder;
    };
}

void ListStart::AnswerFile(const QString& path)
{
    TheSeams().OpenFile = [this, path](const OpenFileQuestion& question) {
        AskedFile = question;
        ++FileQuestions;
        return path;
    };
}

void ShowTextNumbers()
{
    TvLng().LngGetStr = [](std::int32_t id, const char*, char* out, std::int32_t outSize) -> std::int32_t {
        return std::snprintf(out, static_cast<size_t>(outSize), "text %d", id);
    };
}

void SeparateCsvExtensions()
{
    static const auto texts = TvLng().LngGetStr;
    TvLng().LngGetStr = [](std::int32_t id, const char* fallback, char* out, std::int32_t outSize) -> std::int32_t {
        return id == 11003 ? std::snprintf(out, static_cast<size_t>(outSize), ".txt")
                           : texts(id, fallback, out, outSize);
    };
}

MemoryTable EmptyMemoryTable()
{
    MemoryTable table;
    EXPECT_TRUE(ClearMemoryList(table));
    return table;
}

MemoryRecord& UseRow(MemoryTable& table, int row, double frequencyHz, const QString& description)
{
    UseMemoryRow(table, row);
    MemoryRecord& record = table.Row(row);
    record.Frequency = frequencyHz;
    record.Description = description;
    return record;
}

QByteArrayList MemoryCsvLines(const MemoryTable& table)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("list.csv"));
    EXPECT_TRUE(WriteMemoryListCSVFile(path, table));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArrayList lines;
    QByteArray bytes = file.readAll();
    for (qsizetype end = bytes.indexOf("\r\n"); end >= 0; end = bytes.indexOf("\r\n")) {
        lines.append(bytes.first(end));
        bytes.remove(0, end + 2);
    }
    EXPECT_TRUE(bytes.isEmpty());
    return lines;
}

QByteArrayList MemoryCsvLines()
{
    MemoryTable table = EmptyMemoryTable();
    table.MemoryListName = QStringLiteral("Test");
    table.MemoryListDescription = QStringLiteral("A list");
    return MemoryCsvLines(table);
}

QByteArray JoinLines(const QByteArrayList& lines)
{
    QByteArray bytes;
    for (const QByteArray& line : lines)
        bytes += line + "\r\n";
    return bytes;
}

QByteArray WithField(const QByteArray& line, int column, const QByteArray& field)
{
    QByteArrayList fields = line.split(',');
    fields[column] = field;
    return fields.join(',');
}

} // namespace tarvik
