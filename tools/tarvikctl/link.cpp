#include "tools/tarvikctl/link.h"

#include "app/message/message.h"
#include "app/settings/ini.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"
#include "link/channel/linkFailure.h"
#include "link/classes/model.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/transfer/fileDates.h"
#include "link/transfer/transfer.h"
#include "link/transfer/transferRows.h"
#include "lists/editor/editorGeneral.h"
#include "tools/tarvikctl/pictures.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace tarvik {

namespace {

bool IsShown(const ChannelRow& row, FileClass fileClass)
{
    if (fileClass == FileClassNone)
        return row.Type == ChannelRowType::File || row.Type == ChannelRowType::Folder;
    return row.Type == ChannelRowType::File && FileExtMatches(row.Name, FileClassBit(fileClass));
}

/// One line: date, time, name, and a backslash after a folder.
QString ListLine(const ChannelRow& row)
{
    const QString end = row.Type == ChannelRowType::Folder ? QStringLiteral("\\\n") : QStringLiteral("\n");
    return ChannelRowTime(row).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + QStringLiteral("  ")
        + TerminalPrintable(row.Name) + end;
}

void List(FileClass fileClass)
{
    std::vector<ChannelRow> rows;
    if (ChannelWalk(fileClass, rows) != ChannelStatus::Success) {
        MsgOk(ChannelDisconnectIfLost() ? TextId::LinkLost : TextId::TransferFailed);
        return;
    }
    std::sort(rows.begin(), rows.end(),
        [](const ChannelRow& left, const ChannelRow& right) { return CompareFileNames(left.Name, right.Name) < 0; });
    for (const ChannelRow& row : rows) {
        if (IsShown(row, fileClass))
            TerminalWrite(stdout, ListLine(row));
    }
}

/// Path of a download: `out`, inside it if it is a folder, or by default `name`.
QString TargetPath(const QString& out, const QString& name)
{
    if (out.isEmpty())
        return name;
    return QFileInfo(out).isDir() ? QDir(out).filePath(name) : out;
}

/// False for a folder, and for an existing file that must be kept.
bool CanWrite(const QString& path, Terminal& terminal)
{
    const QFileInfo file(path);
    if (file.isDir()) {
        terminal.Refuse(QStringLiteral("%1 is a folder").arg(path));
        return false;
    }
    if (!file.exists() || TransferConfirmReplace(TextId::OverwriteFile, file.fileName(), false))
        return true;
    terminal.SetFailed();
    return false;
}

/// Time of last change of the instrument's file; invalid if unknown.
QDateTime ChangedOnInstrument(FileClass fileClass, const QString& name)
{
    std::vector<ChannelRow> rows;
    if (ChannelWalk(fileClass, rows) != ChannelStatus::Success)
        return {};
    const auto row = std::find_if(rows.begin(), rows.end(),
        [&](const ChannelRow& each) { return each.Name == name && IsShown(each, fileClass); });
    return row == rows.end() ? QDateTime() : ChannelRowTime(*row);
}

void Download(FileClass fileClass, const QString& name, const QString& target, Terminal& terminal)
{
    if (!CanWrite(target, terminal))
        return;
    TheTransferProgress()->SetLabel(LngStr1(TextId::Downloading, name));
    if (ChannelGet(fileClass, name, target) != ChannelStatus::Success)
        (void)ReportLinkFailure();
    else if (TransferKeepsDate(fileClass))
        FileSetPcDate(target, ChangedOnInstrument(fileClass, name), false);
}

/// A list of one selected file, for a job.
FileList ListOf(const QString& name, const QDateTime& changed)
{
    FileList list;
    TransferAddRow(list, name, ChannelRowType::File, changed);
    list.Rows.front().Selected = true;
    return list;
}

void Upload(const QString& path, Terminal& terminal)
{
    const QFileInfo file(path);
    if (!ListFileExists(path))
        return;
    CurrentPcFolder() = QDir::toNativeSeparators(file.absolutePath());
    FileList source = ListOf(file.fileName(), file.lastModified());
    FileList target;
    TransferPutFiles(source, target);
    if (terminal.WasAnsweredNo())
        terminal.SetFailed();
}

void Remove(const QString& name)
{
    FileList list = ListOf(name, {});
    TransferDeleteInstr(list);
}

/// Screen shots have no operations of their own: their folder must be the current directory.
bool EnterFolderOf(FileClass fileClass)
{
    if (fileClass != FileClassScreenShot)
        return true;
    const ChannelStatus err = ChannelSetDirectory(IniReadModelInstrPath(QString(), FileClassNumber(fileClass)));
    if (err != ChannelStatus::Success)
        MsgOk(err == ChannelStatus::Refused ? TextId::InstrumentFolderGone : TextId::LinkLost);
    return err == ChannelStatus::Success;
}

void Capture(const CtlArguments& arguments, Terminal& terminal)
{
    if (!arguments.Into.isEmpty() && !FileMakeTargetFolder(arguments.Into))
        return;
    if (CanWrite(CtlCaptureTarget(arguments), terminal))
        CtlCapture(arguments, terminal);
}

void RunConnected(const CtlArguments& arguments, const QString& identification, Terminal& terminal)
{
    const FileClass fileClass = arguments.Class;
    const QStringList& operands = arguments.Operands;
    ModFileInit(fileClass);
    if (!EnterFolderOf(fileClass))
        return;
    switch (arguments.Command) {
    case CtlCommand::Idn:
        TerminalWrite(stdout, TerminalPrintable(identification) + u'\n');
        break;
    case CtlCommand::Ls:
        List(fileClass);
        break;
    case CtlCommand::Get:
        terminal.SetFile(operands[0]);
        Download(fileClass, operands[0], TargetPath(operands.value(1), operands[0]), terminal);
        break;
    case CtlCommand::Put:
        terminal.SetFile(operands[0]);
        Upload(operands[0], terminal);
        break;
    case CtlCommand::Rm:
        terminal.SetFile(operands[0]);
        Remove(operands[0]);
        break;
    default:
        terminal.SetFile(operands[0]);
        Capture(arguments, terminal);
        break;
    }
}

class TerminalProgress final : public TransferProgress {
public:
    explicit TerminalProgress(Terminal& terminal)
        : terminal_(terminal)
    {
    }

    void SetLabel(const QString& text) override
    {
        terminal_.ShowProgress(text);
    }
    void SetMaximum(int) override { }
    void SetValue(int) override { }

private:
    Terminal& terminal_;
};

} // namespace

bool CtlIsLinkCommand(CtlCommand command)
{
    return command >= CtlCommand::Idn;
}

void CtlRunLink(const CtlArguments& arguments, Terminal& terminal)
{
    terminal.SetFile(QStringLiteral("%1:%2").arg(arguments.Address).arg(arguments.Port));
    QString identification;
    if (ChannelConnect(arguments.Address, arguments.Port, identification) != ChannelStatus::Success) {
        MsgOk(TextId::ConnectionFailed);
        return;
    }
    TerminalProgress progress(terminal);
    TheTransferProgress().Set(progress);
    RunConnected(arguments, identification, terminal);
    terminal.ShowProgress({});
    TheTransferProgress().Reset();
    ChannelDisconnect();
}

} // namespace tarvik
