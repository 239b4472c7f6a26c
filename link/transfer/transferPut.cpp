#include "app/text/textId.h"
#include "link/transfer/transfer.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "link/channel/channel.h"
#include "link/channel/linkFailure.h"
#include "link/classes/model.h"
#include "link/transfer/fileDates.h"
#include "link/transfer/transferRows.h"

#include <QFileInfo>

namespace tarvik {

namespace {

/// The question before a file of a class is replaced.
TextNumber<1> QuestionOf(FileClass fileClass)
{
    switch (fileClass) {
    case FileClassAntennaList:
        return TextId::ReplaceAntennaList;
    case FileClassMemoryList:
        return TextId::ReplaceMemoryList;
    case FileClassSuppressList:
        return TextId::ReplaceSuppressList;
    default:
        return TextId::OverwriteFile;
    }
}

/// Asks, then removes the old file unless the instrument replaces it itself. False if the row must be skipped.
bool ConfirmAndRemoveOld(const FileListRow& row)
{
    const FileClass fileClass = FileClasses().CurrentFileClass;
    const bool holdsOne = ModHasOneList(fileClass);
    if (!TransferConfirmReplace(QuestionOf(fileClass), row.Key, !holdsOne))
        return false;
    TheSeams().PumpEvents();
    const ChannelStatus err = holdsOne ? ChannelStatus::Success : ChannelRemove(fileClass, row.Key);
    TheSeams().PumpEvents();
    if (err != ChannelStatus::Success)
        MsgOk1(TextId::OldFileNotDeleted, row.Key);
    return err == ChannelStatus::Success;
}

TransferNext Put(const FileListRow& row, bool replaces)
{
    const FileClass fileClass = FileClasses().CurrentFileClass;
    switch (ChannelPut(fileClass, PcFilePath(row.Key), row.Key, replaces)) {
    case ChannelStatus::Success:
        if (ModHasInstrFolders(fileClass)) // other classes have the date of the upload
            FileSetInstrDate(row.Key, TransferRowDate(row), TransferIsLocked(row));
        return TransferNext::Count;
    case ChannelStatus::Refused:
        MsgOk1(TextId::InstrumentRefused, row.Key);
        return TransferNext::Count;
    default:
        return ReportLinkFailure() ? TransferNext::End : TransferNext::Count;
    }
}

/// Checked before the old file is removed: an unreadable file would leave the instrument with neither.
bool CanBeRead(const QString& local)
{
    const QFileInfo info(local);
    return info.isFile() && info.isReadable();
}

TransferNext PutRow(const FileListRow& row)
{
    if (TransferIsFolderRow(row)) {
        MsgOk1(TextId::FolderNotUploaded, row.Text);
        return TransferNext::Pass;
    }
    const FileClass fileClass = FileClasses().CurrentFileClass;
    ChannelFound found{ ChannelPresence::Exists, ChannelRowType::File };
    if (!ModHasOneList(fileClass) && ChannelFind(fileClass, row.Key, found) != ChannelStatus::Success) {
        MsgOk(TextId::LinkLost);
        return TransferNext::End;
    }
    if (found.Result == ChannelPresence::Missing)
        return Put(row, false);
    if (found.Result != ChannelPresence::Exists)
        return TransferNext::Count;
    if (!ModHasOneList(fileClass) && !CanBeRead(PcFilePath(row.Key)))
        return ReportLinkFailure() ? TransferNext::End : TransferNext::Count;
    return ConfirmAndRemoveOld(row) ? Put(row, true) : TransferNext::Count;
}

TransferNext PutActiveRow(const FileListRow& row)
{
    if (TransferIsFolderRow(row)) {
        MsgOk1(TextId::FolderNotUploaded, row.Text);
        return TransferNext::Pass;
    }
    const ChannelStatus err = ChannelPutActive(PcFilePath(row.Key));
    if (err == ChannelStatus::LinkFailed) {
        MsgOk(TextId::LinkLost);
        ChannelDisconnect();
        return TransferNext::End;
    }
    if (err == ChannelStatus::Refused)
        MsgOk1(TextId::InstrumentRefused, row.Key);
    else if (err != ChannelStatus::Success && ReportLinkFailure())
        return TransferNext::End;
    TheTransferProgress()->SetValue(1);
    return TransferNext::Pass;
}

} // namespace

void TransferPutFiles(FileList& source, FileList& /*target*/)
{
    TransferClearAnswers();
    TransferForEachRow(source, TransferCountSelectedFiles(source), TextId::Uploading, PutRow);
    TransferClearAnswers();
}

void TransferPutActive(FileList& source)
{
    TransferClearAnswers();
    TransferForEachRow(source, TransferCountSelectedFiles(source), TextId::Uploading, PutActiveRow);
}

} // namespace tarvik
