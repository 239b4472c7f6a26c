#include "tools/tarvikctl/readList.h"

#include "app/values/strings.h"
#include "lists/editor/csv.h"
#include "lists/editor/editorGeneral.h"
#include "tools/tarvikctl/jsonText.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::array kListClasses{ FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassCorrectionSet };

/// What is wrong, or an empty text. `read` has no list after a message.
QString ReadJson(const QString& path, ReadList& read)
{
    CsvSource source;
    return CsvLoadFile(path, source) ? ReadListJson(source.Bytes, read) : QString();
}

/// Without the keyword of a list a CSV file is read as a memory list, whose reader then reports the error.
void ReadOther(const QString& path, ReadList& read)
{
    const FileClass binary = ClassOfExtension(path);
    const FileClass csv = binary == FileClassUnknown ? ListTypeOfFile(path) : FileClassUnknown;
    read.Class = binary != FileClassUnknown ? binary : csv != FileClassUnknown ? csv : FileClassMemoryList;
    read.List = NewListFile(read.Class);
    if (!ListFileExists(path) || !read.List->Read(path, binary == FileClassUnknown))
        read.List.reset();
}

} // namespace

ReadList ReadListFile(const QString& path, Terminal& terminal)
{
    terminal.SetFile(path);
    const int messages = terminal.Messages();
    ReadList read;
    if (IsJsonFile(path)) {
        const QString error = ReadJson(path, read);
        if (!error.isEmpty())
            terminal.Refuse(error);
    } else {
        ReadOther(path, read);
    }
    if (terminal.Messages() != messages)
        read.List.reset();
    return read;
}

QString ReadListJson(const QByteArray& text, ReadList& read)
{
    QJsonObject list;
    QString error = ParseJson(text, list);
    if (!error.isEmpty())
        return error;
    const QJsonValue family = list.take(QStringLiteral("family"));
    read.Class = ClassOfFamilyWord(family.toString());
    if (read.Class == FileClassUnknown)
        return QStringLiteral("\"family\" is not memory, antenna, kfactor, suppress or correction");
    read.List = NewListFile(read.Class);
    return read.List->ReadJson(list);
}

FileClass ClassOfExtension(const QString& path)
{
    const auto* const found = std::find_if(kListClasses.begin(), kListClasses.end(),
        [&path](FileClass each) { return FileExtMatches(path, FileClassBit(each)); });
    return found == kListClasses.end() ? FileClassUnknown : *found;
}

bool IsJsonFile(const QString& path)
{
    return StrEqualNoCase(QFileInfo(path).suffix(), QStringLiteral("json"));
}

} // namespace tarvik
