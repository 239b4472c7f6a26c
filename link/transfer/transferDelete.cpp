#include "app/text/textId.h"
#include "link/transfer/transfer.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/values/general.h"
#include "link/channel/channel.h"
#include "link/classes/model.h"
#include "link/transfer/transferRows.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace tarvik {

namespace {

/// The instrument never deletes folders of classes with a fixed folder, nor its single list of a class.
bool CanDelete(bool isFolder)
{
    const FileClass fileClass = FileClasses().CurrentFileClass;
    return isFolder ? ModHasInstrFolders(fileClass) : !ModHasOneList(fileClass);
}

ChannelStatus RemoveFromInstr(const FileListRow& row, bool isFolder)
{
    return isFolder ? ChannelRemoveDirectory(row.Text) : ChannelRemove(FileClasses().CurrentFileClass, row.Key);
}

TransferNext DeleteInstrRow(const FileListRow& row)
{
    const bool isFolder = TransferIsFolderRow(row);
    const bool canDelete = CanDelete(isFolder);
    const ChannelStatus err = canDelete ? RemoveFromInstr(row, isFolder) : ChannelStatus::LinkFailed;
    if (err == ChannelStatus::Success)
        return TransferNext::Count;
    if (isFolder)
        MsgOk1(TextId::FolderNotDeleted, row.Text);
    else if (err == ChannelStatus::LinkFailed || err == ChannelStatus::Refused)
        MsgOk1(TextId::InstrumentFileNotDeleted, row.Key);
    if (!canDelete || !ChannelDisconnectIfLost())
        return TransferNext::Count;
    MsgOk(TextId::LinkLost);
    return TransferNext::End;
}

bool HasReadOnlyFile(const QString& folder)
{
    QDirIterator entries(
        folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        if (!entries.fileInfo().isSymLink() && HasReadOnlyAttribute(path))
            return true;
    }
    return false;
}

/// Bypasses the trash. A folder with a write-protected file is left whole.
void DeletePermanently(const QFileInfo& entry)
{
    const QString path = entry.filePath();
    if (entry.isSymLink() || !entry.isDir())
        QFile::remove(path); // a link itself, not its target
    else if (!HasReadOnlyFile(path))
        QDir(path).removeRecursively();
}

/// Where the trash can't take it, the user decides.
void Recycle(const QFileInfo& entry, const QString& name)
{
    if (FileRecycle(entry.filePath()))
        return;
    const bool canDelete = !IsWriteProtected(entry.path());
    if (canDelete && !TransferConfirmReplace(TextId::DeletePermanently, name, true))
        return;
    if (canDelete)
        DeletePermanently(entry);
    if (entry.isSymLink() || QFileInfo::exists(entry.filePath()))
        MsgOk1(TextId::NotDeleted, name);
}

TransferNext DeletePcRow(const FileListRow& row)
{
    const bool isFolder = TransferIsFolderRow(row);
    const QString name = isFolder ? row.Text : row.Key;
    const QFileInfo entry(PcFilePath(name));
    const bool exists = isFolder ? entry.isDir() : entry.isFile();
    if (!exists)
        return TransferNext::Count;
    if (HasReadOnlyAttribute(entry.filePath())) {
        MsgOk1(TextId::FileIsReadOnly, name);
        return TransferNext::Count;
    }
    if (Program().ShiftDown)
        DeletePermanently(entry);
    else
        Recycle(entry, name);
    TheSeams().PumpEvents();
    return TransferNext::Count;
}

} // namespace

void TransferDeleteInstr(FileList& list)
{
    TransferClearAnswers();
    TransferForEachRow(list, TransferCountSelected(list), TextId::Deleting, DeleteInstrRow);
}

void TransferDeletePc(FileList& list)
{
    TransferClearAnswers();
    TransferForEachRow(list, TransferCountSelected(list), TextId::Deleting, DeletePcRow);
}

bool FileRecycle(const QString& path)
{
    return FileToBin(path);
}

} // namespace tarvik
