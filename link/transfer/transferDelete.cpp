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

/// Of the classes with one folder the instrument keeps folders, and of those with one list the list.
bool MayDelete(bool isFolder)
{
    const FileClass fileClass = FileClasses().CurrentFileClass;
    return isFolder ? ModHasInstrFolders(fileClass) : !ModHoldsOneList(fileClass);
}

ChannelStatus RemoveFromInstr(const FileListRow& row, bool isFolder)
{
    return isFolder ? ChannelRemoveDirectory(row.Text) : ChannelRemove(FileClasses().CurrentFileClass, row.Key);
}

TransferNext DeleteInstrRow(const FileListRow& row)
{
    const bool isFolder = TransferIsFolderRow(row);
    const bool mayDelete = MayDelete(isFolder);
    const ChannelStatus err = mayDelete ? RemoveFromInstr(row, isFolder) : ChannelStatus::LinkFailed;
    if (err == ChannelStatus::Success)
        return TransferNext::Count;
    if (isFolder)
        MsgOk1(TextId::FolderNotDeleted, row.Text);
    else if (err == ChannelStatus::LinkFailed || err == ChannelStatus::Refused)
        MsgOk1(TextId::InstrumentKeepsFile, row.Key);
    return mayDelete && ChannelEndIfGone() ? TransferNext::End : TransferNext::Count;
}

bool HoldsReadOnlyFile(const QString& folder)
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

/// For good. Nothing of a folder goes that holds a write-protected file.
void DeleteAtOnce(const QFileInfo& victim)
{
    const QString path = victim.filePath();
    if (victim.isSymLink() || !victim.isDir())
        QFile::remove(path); // of a link only itself
    else if (!HoldsReadOnlyFile(path))
        QDir(path).removeRecursively();
}

TransferNext DeletePcRow(const FileListRow& row)
{
    const bool isFolder = TransferIsFolderRow(row);
    const QString name = isFolder ? row.Text : row.Key;
    const QFileInfo victim(PcFilePath(name));
    const bool isThere = isFolder ? victim.isDir() : victim.isFile();
    if (!isThere)
        return TransferNext::Count;
    if (HasReadOnlyAttribute(victim.filePath())) {
        MsgOk1(TextId::FileIsReadOnly, name);
        return TransferNext::Count;
    }
    if (Program().ShiftDown)
        DeleteAtOnce(victim);
    else
        (void)FileRecycle(victim.filePath());
    TheSeams().PumpEvents();
    return TransferNext::Count;
}

} // namespace

void TransferDeleteInstr(FileList& list)
{
    TransferForgetAnswers();
    TransferEachRow(list, TransferCountSelected(list), TextId::Deleting, DeleteInstrRow);
}

void TransferDeletePc(FileList& list)
{
    TransferForgetAnswers();
    TransferEachRow(list, TransferCountSelected(list), TextId::Deleting, DeletePcRow);
}

bool FileRecycle(const QString& path)
{
    return FileToBin(path);
}

} // namespace tarvik
