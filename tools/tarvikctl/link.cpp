#include "tools/tarvikctl/link.h"

#include "app/message/message.h"
#include "app/settings/ini.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"
#include "link/channel/linkFailure.h"
#include "link/classes/model.h"
#include "link/connection/connect.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/transfer/fileDates.h"
#include "link/transfer/transfer.h"
#include "link/transfer/transferRows.h"
#include "lists/editor/editorGeneral.h"
#include "tools/tarvikctl/interrupt.h"
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

/// Time of last change of the instrument's file; invalid if it says none.
QDateTime ChangedOnInstrument(FileClass fileClass, const QString& name)
{
    std::vector<ChannelRow> rows;
    if (ChannelWalk(fileClass, rows) != ChannelStatus::Success)
        return {};
    const auto row = std::find_if(rows.begin(), rows.end(),
        [&](const ChannelRow& each) { return each.Name == name && IsShown(each, fileClass); });
    return row == rows.end() ? QDateTime() : ChannelRowTime(*row);
}

/// Reads the date before the file, so that a lost link leaves no file without its date.
void Download(const CtlArguments& arguments, const QString& name, const QString& target, Terminal& terminal)
{
    if (!CanWrite(target, terminal))
        return;
    InterruptClosesLink(arguments.Address, arguments.Port);
    TheTransferProgress()->SetLabel(LngStr1(TextId::Downloading, name));
    const bool keepsDate = TransferKeepsDate(arguments.Class);
    const QDateTime changed = keepsDate ? ChangedOnInstrument(arguments.Class, name) : QDateTime();
    const ChannelStatus err = ChannelGet(arguments.Class, name, target);
    terminal.ShowProgress({});
    EndIfInterrupted();
    if (err != ChannelStatus::Success)
        (void)ReportLinkFailure();
    else if (keepsDate)
        FileSetPcDate(target, changed, false);
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

/// The name on the instrument that a command is about; empty if there is none.
QString RemoteName(const CtlArguments& arguments)
{
    switch (arguments.Command) {
    case CtlCommand::Get:
    case CtlCommand::Rm:
        return arguments.Operands[0];
    case CtlCommand::Put:
        return QFileInfo(arguments.Operands[0]).fileName();
    default:
        return {};
    }
}

/// False after a message for a name that cannot be sent.
bool CanSendName(const CtlArguments& arguments, Terminal& terminal)
{
    const QString name = RemoteName(arguments);
    if (name.isEmpty() || ChannelIsName(name))
        return true;
    terminal.SetFile(arguments.Operands[0]);
    MsgOk2(TextId::BadFileName, name, LngStr(ModCaption(CaptionSlot::Noun)));
    return false;
}

/// Nothing is changed on what may be no receiver of the family; anything may be looked at.
bool MayRun(CtlCommand command, const QString& identification)
{
    const InstrumentRefusal refusal = conCheckIdentification(identification);
    const bool judges = command == CtlCommand::Idn || command == CtlCommand::Put || command == CtlCommand::Rm;
    if (refusal.Id.IsNone() || !judges)
        return true;
    MsgRaw(MsgStyle(MsgButtons::Ok, MsgIcon::Exclamation), refusal.Text, refusal.Id.Number);
    return false;
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
    if (arguments.Command == CtlCommand::Idn)
        TerminalWrite(stdout, TerminalPrintable(identification) + u'\n');
    if (!MayRun(arguments.Command, identification) || !EnterFolderOf(fileClass))
        return;
    switch (arguments.Command) {
    case CtlCommand::Idn:
        break;
    case CtlCommand::Ls:
        List(fileClass);
        break;
    case CtlCommand::Get:
        terminal.SetFile(operands[0]);
        Download(arguments, operands[0], TargetPath(operands.value(1), operands[0]), terminal);
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
    ModFileInit(arguments.Class);
    if (!CanSendName(arguments, terminal))
        return;
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
