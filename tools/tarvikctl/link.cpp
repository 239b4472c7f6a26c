#include "tools/tarvikctl/link.h"

#include "app/message/message.h"
#include "app/settings/ini.h"
#include "app/text/lang.h"
#include "link/channel/channel.h"
#include "link/classes/model.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/transfer/fileDates.h"
#include "link/transfer/transfer.h"
#include "lists/editor/editorGeneral.h"
#include "tools/tarvikctl/pictures.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace tarvik {

namespace {

constexpr int kTextConnectionFailed = 10422;
constexpr int kTextLinkLost = 12703;
constexpr int kTextTransferFailed = 12704;
constexpr int kTextOverwrite = 12734;
constexpr int kTextFolderGone = 12747;
constexpr int kTextDownloading = 14007;

QDateTime ChangeOf(const ChannelRow& row)
{
    return { QDate(row.Year, row.Month, row.Day), QTime(row.Hour, row.Minute, row.Second) };
}

bool IsShown(const ChannelRow& row, int fileClass)
{
    if (fileClass == FileClassNone)
        return row.Type == kChannelFile || row.Type == kChannelFolder;
    return row.Type == kChannelFile && FileExtMatches(row.Name, 1 << fileClass);
}

/// Reads the files of a class, or all that is in the present directory.
ChannelStatus ReadRows(int fileClass, std::vector<ChannelRow>& rows)
{
    bool nothing = false;
    ChannelStatus err = ChannelStartFind(fileClass, nothing);
    ChannelRow row;
    row.Last = nothing;
    while (err == kChannelOk && !row.Last) {
        row = {};
        err = ChannelNextFile(row);
        if (err == kChannelOk && IsShown(row, fileClass))
            rows.push_back(row);
    }
    return err;
}

/// One line: date, time, name, and a backslash behind a folder.
QString ListLine(const ChannelRow& row)
{
    const QString end = row.Type == kChannelFolder ? QStringLiteral("\\\n") : QStringLiteral("\n");
    return ChangeOf(row).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + QStringLiteral("  ")
        + TerminalPrintable(row.Name) + end;
}

void List(int fileClass)
{
    std::vector<ChannelRow> rows;
    if (ReadRows(fileClass, rows) != kChannelOk) {
        MsgOk(ChannelEndIfGone() ? kTextLinkLost : kTextTransferFailed);
        return;
    }
    std::sort(rows.begin(), rows.end(), [](const ChannelRow& left, const ChannelRow& right) {
        const int order = left.Name.compare(right.Name, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left.Name < right.Name;
    });
    for (const ChannelRow& row : rows)
        TerminalWrite(stdout, ListLine(row));
}

/// The file that a download becomes: in a folder it keeps its name.
QString TargetPath(const QString& wish, const QString& name)
{
    if (wish.isEmpty())
        return name;
    return QFileInfo(wish).isDir() ? QDir(wish).filePath(name) : wish;
}

/// True unless a file of that name is there and shall stay, or a folder.
bool MayBeWritten(const QString& path, Terminal& terminal)
{
    const QFileInfo file(path);
    if (file.isDir()) {
        terminal.Refuse(QStringLiteral("%1 is a folder").arg(path));
        return false;
    }
    if (!file.exists() || MsgYesNoDefNo1(kTextOverwrite, file.fileName()) == MsgResultYes)
        return true;
    terminal.SetFailed();
    return false;
}

/// When the instrument's file changed; invalid where the instrument does not tell.
QDateTime ChangeOnInstrument(int fileClass, const QString& name)
{
    std::vector<ChannelRow> rows;
    if (ReadRows(fileClass, rows) != kChannelOk)
        return {};
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&name](const ChannelRow& each) { return each.Name == name; });
    return row == rows.end() ? QDateTime() : ChangeOf(*row);
}

/// Classes of which the instrument has one list take the time of the transfer, on both sides.
bool KeepsItsDate(int fileClass)
{
    return fileClass == FileClassKfactorTable || fileClass == FileClassScreenShot
        || fileClass == FileClassCorrectionSet;
}

void Download(int fileClass, const QString& name, const QString& target, Terminal& terminal)
{
    if (!MayBeWritten(target, terminal))
        return;
    terminal.ShowProgress(LngStr1(kTextDownloading, name));
    if (ChannelGet(fileClass, name, target) != kChannelOk) {
        MsgOk(kTextTransferFailed);
        return;
    }
    if (!KeepsItsDate(fileClass))
        return;
    if (const QDateTime change = ChangeOnInstrument(fileClass, name); change.isValid())
        FileSetPcDate(target, change, false);
}

/// A list of the one file that a job is to work on.
FileList ListOf(const QString& name, const QDateTime& change)
{
    FileList list;
    TransferAddRow(list, name, kChannelFile, change);
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

/// Screen shots have no calls of their own: the instrument must stand in their folder.
bool EnterFolderOf(int fileClass)
{
    if (fileClass != FileClassScreenShot)
        return true;
    const ChannelStatus err = ChannelSetDirectory(IniReadModelInstrPath(QString(), fileClass));
    if (err != kChannelOk)
        MsgOk(err == kChannelRefused ? kTextFolderGone : kTextLinkLost);
    return err == kChannelOk;
}

void Capture(const CtlArguments& arguments, Terminal& terminal)
{
    if (!arguments.Into.isEmpty() && !FileMakeTargetFolder(arguments.Into))
        return;
    if (MayBeWritten(CtlCaptureTarget(arguments), terminal))
        CtlCapture(arguments, terminal);
}

void RunConnected(const CtlArguments& arguments, const QString& identification, Terminal& terminal)
{
    const int fileClass = arguments.FileClass;
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

} // namespace

bool CtlIsLinkCommand(CtlCommand command)
{
    return command >= CtlCommand::Idn;
}

void CtlRunLink(const CtlArguments& arguments, Terminal& terminal)
{
    terminal.SetFile(QStringLiteral("%1:%2").arg(arguments.Address).arg(arguments.Port));
    QString identification;
    if (ChannelConnect(arguments.Address, arguments.Port, identification) != kChannelOk) {
        MsgOk(kTextConnectionFailed);
        return;
    }
    Transfer().Progress.SetLabel = [&terminal](const QString& text) { terminal.ShowProgress(text); };
    RunConnected(arguments, identification, terminal);
    terminal.ShowProgress({});
    Transfer().Progress = {}; // the terminal ends
    ChannelDisconnect();
}

} // namespace tarvik
