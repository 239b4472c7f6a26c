#include "tools/tarvikctl/lists.h"

#include "app/platform/paths.h"
#include "app/text/lang.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"
#include "lists/values/limits.h"
#include "lists/values/listError.h"
#include "tools/tarvikctl/show.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::array kListClasses{ FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassCorrectionSet };

/// The family whose binary form has this extension.
FileClass ClassOfExtension(const QString& path)
{
    const auto* const found = std::find_if(kListClasses.begin(), kListClasses.end(),
        [&path](FileClass each) { return FileExtMatches(path, FileClassBit(each)); });
    return found == kListClasses.end() ? FileClassUnknown : *found;
}

/// Noun of a family, as in messages.
QString FamilyNoun(FileClass fileClass)
{
    ModFileInit(fileClass);
    return LngStr(ModCaption(CaptionSlot::Noun));
}

/// Loads a file of a family whose rows can't be shown. Reports the status of the list store if it refuses the file.
bool LoadThroughStore(FileClass fileClass, const QString& path)
{
    const QByteArray bytes = ModulePath(path);
    const TvFioApi& store = TvFio();
    std::int16_t status = 0;
    switch (fileClass) {
    case FileClassAntennaList:
        store.AntennaListLoadFile(&status, bytes.constData());
        break;
    case FileClassKfactorTable:
        store.KfactorTableLoadFile(&status, bytes.constData());
        break;
    case FileClassSuppressList:
        store.SuppressListLoadFile(&status, bytes.constData());
        break;
    default:
        status = store.AntCorrLoadFile(bytes.constData());
        break;
    }
    ShowListError(status, kNoItem, true);
    return status == 0;
}

/// Reads a CSV file by its first line. Without the keyword of a list it is read as a memory list, whose reader then
/// reports the error.
bool ReadCsv(const QString& path, MemoryTable& table, Terminal& terminal)
{
    const FileClass type = ListTypeOfFile(path);
    if (type == FileClassMemoryList || type == FileClassUnknown) {
        SetEditorType(FileClassMemoryList);
        return ReadMemoryListCSVFile(path, table);
    }
    terminal.Refuse(QStringLiteral("CSV file of a %1, which this program does not read").arg(FamilyNoun(type)));
    return false;
}

/// Reads a memory list of either form; a file of another family is refused.
bool ReadMemory(const QString& path, MemoryTable& table, Terminal& terminal)
{
    terminal.SetFile(path);
    SetEditorType(FileClassMemoryList);
    if (!ListFileExists(path))
        return false;
    const FileClass binary = ClassOfExtension(path);
    if (binary == FileClassUnknown)
        return ReadCsv(path, table, terminal);
    if (binary == FileClassMemoryList)
        return ReadMemoryListMRFile(path, table);
    terminal.Refuse(QStringLiteral("%1; only memory lists can be shown, converted or sorted").arg(FamilyNoun(binary)));
    return false;
}

void Check(const QString& path, Terminal& terminal)
{
    terminal.SetFile(path);
    const FileClass binary = ClassOfExtension(path);
    if (binary == FileClassMemoryList || binary == FileClassUnknown) {
        MemoryTable table;
        if (ReadMemory(path, table, terminal))
            TerminalWrite(stdout, path + QStringLiteral(": ") + CtlSummary(table) + u'\n');
        return;
    }
    SetEditorType(binary);
    if (ListFileExists(path) && LoadThroughStore(binary, path))
        TerminalWrite(stdout, path + QStringLiteral(": ") + LngStr(ModCaption(CaptionSlot::Editor)) + u'\n');
}

void Show(const CtlArguments& arguments, Terminal& terminal)
{
    MemoryTable table;
    if (!ReadMemory(arguments.Operands[0], table, terminal))
        return;
    TerminalWrite(stdout, arguments.Json ? CtlJson(table, arguments.All) : CtlTable(table, arguments.All));
}

void Rewrite(const CtlArguments& arguments, Terminal& terminal)
{
    MemoryTable table;
    if (!ReadMemory(arguments.Operands[0], table, terminal))
        return;
    if (arguments.Command == CtlCommand::Sort && !SortMemoryList(table, static_cast<MemorySortKey>(arguments.SortKey)))
        return;
    terminal.SetFile(arguments.Operands[1]);
    if (!WriteMemoryList(arguments.Operands[1], table))
        terminal.SetFailed();
}

} // namespace

void CtlRunLists(const CtlArguments& arguments, Terminal& terminal)
{
    ReadInstrumentLimits();
    if (arguments.Command == CtlCommand::Check) {
        for (const QString& file : arguments.Operands)
            Check(file, terminal);
    } else if (arguments.Command == CtlCommand::Show) {
        Show(arguments, terminal);
    } else {
        Rewrite(arguments, terminal);
    }
}

bool CtlCanBeWritten(const QString& path)
{
    return IsCsvFile(path) || FileExtMatches(path, FileClassBit(FileClassMemoryList));
}

} // namespace tarvik
