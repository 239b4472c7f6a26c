#include "tools/tarvikctl/lists.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "lists/editor/csv.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "tools/tarvikctl/listFile.h"
#include "tools/tarvikctl/readList.h"

namespace tarvik {

namespace {

void Check(const QString& path, Terminal& terminal)
{
    const ReadList read = ReadListFile(path, terminal);
    if (read.List != nullptr)
        TerminalWrite(stdout, path + QStringLiteral(": ") + read.List->Summary() + u'\n');
}

void Show(const CtlArguments& arguments, Terminal& terminal)
{
    const ReadList read = ReadListFile(arguments.Operands[0], terminal);
    if (read.List != nullptr)
        TerminalWrite(stdout, arguments.Json ? read.List->Json(arguments.All) : read.List->Table(arguments.All));
}

/// Sorts as the arguments say; false after a message.
bool Sort(const CtlArguments& arguments, const ReadList& read, Terminal& terminal)
{
    const int keys = SortKeysOf(read.Class);
    if (arguments.Merge && read.Class != FileClassSuppressList) {
        terminal.Refuse(QStringLiteral("--merge is for suppress lists"));
        return false;
    }
    if (keys == 0) {
        terminal.Refuse(QStringLiteral("an antenna list has no sort"));
        return false;
    }
    if (arguments.SortKey >= keys) {
        terminal.Refuse(QStringLiteral("the last sort key of this kind of list is %1").arg(keys - 1));
        return false;
    }
    return arguments.Merge ? read.List->SortAndMerge() : read.List->Sort(arguments.SortKey);
}

bool Write(const QString& path, const ReadList& read, Terminal& terminal)
{
    terminal.SetFile(path);
    if (IsJsonFile(path))
        return MayWriteFile(path) && CsvSaveBytes(path, read.List->Json(false).toUtf8());
    const FileClass binary = ClassOfExtension(path);
    const bool isOfFamily =
        binary == read.Class || (binary == FileClassUnknown && read.Class != FileClassCorrectionSet);
    if (!isOfFamily) {
        terminal.Refuse(QStringLiteral("by its extension it is no file of this kind"));
        return false;
    }
    return read.List->Write(path);
}

void Rewrite(const CtlArguments& arguments, Terminal& terminal)
{
    const ReadList read = ReadListFile(arguments.Operands[0], terminal);
    if (read.List == nullptr || !read.List->MayBeSaved())
        return;
    if (arguments.Command == CtlCommand::Sort && !Sort(arguments, read, terminal))
        return;
    if (!Write(arguments.Operands[1], read, terminal))
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
    return IsCsvFile(path) || IsJsonFile(path) || ClassOfExtension(path) != FileClassUnknown;
}

} // namespace tarvik
