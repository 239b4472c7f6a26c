#include "link/transfer/transfer.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "link/channel/channel.h"
#include "link/channel/linkFailure.h"
#include "link/classes/model.h"
#include "link/transfer/fileDates.h"
#include "link/transfer/transferRows.h"
#include "link/transfer/transferTexts.h"

#include <QFileInfo>

namespace tarvik {

namespace {

/// The question that replaces a file of a class.
int QuestionOf(int fileClass)
{
    switch (fileClass) {
    case FileClassAntennaList:
        return 12735;
    case FileClassMemoryList:
        return 12736;
    case FileClassSuppressList:
        return 12737;
    default:
        return kTextReplace;
    }
}

/// Asks, and removes the old file of an instrument that would not replace it by itself. False: the row is left out.
bool MakeWay(const FileListRow& row)
{
    const int fileClass = FileClasses().CurrentFileClass;
    const bool holdsOne = ModHoldsOneList(fileClass);
    if (!TransferMayReplace(QuestionOf(fileClass), row.Key, !holdsOne))
        return false;
    TheSeams().PumpEvents();
    const ChannelStatus err = holdsOne ? kChannelOk : ChannelRemove(fileClass, row.Key);
    TheSeams().PumpEvents();
    if (err != kChannelOk)
        MsgOk1(kTextOldFileStays, row.Key);
    return err == kChannelOk;
}

TransferNext Put(const FileListRow& row, bool replaces)
{
    const int fileClass = FileClasses().CurrentFileClass;
    switch (ChannelPut(fileClass, PcFilePath(row.Key), row.Key, replaces)) {
    case kChannelOk:
        if (ModHasInstrFolders(fileClass)) // the lists of the other classes bear the date of the moment
            FileSetInstrDate(row.Key, TransferRowDate(row), TransferIsLocked(row));
        return TransferNext::Count;
    case kChannelRefused:
        MsgOk1(kTextInstrRefuses, row.Key);
        return TransferNext::Count;
    default:
        return ReportLinkFailure() ? TransferNext::End : TransferNext::Count;
    }
}

/// Looked at before the instrument's file goes: what can't be read would leave it with neither.
bool CanBeRead(const QString& local)
{
    const QFileInfo info(local);
    return info.isFile() && info.isReadable();
}

TransferNext PutRow(const FileListRow& row)
{
    if (TransferIsFolderRow(row)) {
        MsgOk1(kTextNoFolderUpload, row.Text);
        return TransferNext::Pass;
    }
    constexpr qint16 kMissing = 0;
    constexpr qint16 kExists = 1;
    const int fileClass = FileClasses().CurrentFileClass;
    ChannelFound found{ kExists, kChannelFile };
    if (!ModHoldsOneList(fileClass) && ChannelFind(fileClass, row.Key, found) != kChannelOk) {
        MsgOk(kTextConnectionLost);
        return TransferNext::End;
    }
    if (found.Result == kMissing)
        return Put(row, false);
    if (found.Result != kExists)
        return TransferNext::Count;
    if (!ModHoldsOneList(fileClass) && !CanBeRead(PcFilePath(row.Key)))
        return ReportLinkFailure() ? TransferNext::End : TransferNext::Count;
    return MakeWay(row) ? Put(row, true) : TransferNext::Count;
}

TransferNext PutActiveRow(const FileListRow& row)
{
    if (TransferIsFolderRow(row)) {
        MsgOk1(kTextNoFolderUpload, row.Text);
        return TransferNext::Pass;
    }
    const ChannelStatus err = ChannelPutActive(PcFilePath(row.Key));
    if (err == kChannelLinkFailed) {
        MsgOk(kTextConnectionLost);
        ChannelDisconnect();
        return TransferNext::End;
    }
    if (err == kChannelRefused)
        MsgOk1(kTextInstrRefuses, row.Key);
    else if (err != kChannelOk && ReportLinkFailure())
        return TransferNext::End;
    Transfer().Progress.SetValue(1);
    return TransferNext::Pass;
}

} // namespace

void TransferPutFiles(FileList& source, FileList& /*target*/)
{
    TransferForgetAnswers();
    TransferEachRow(source, TransferCountSelectedFiles(source), kTextUploading, PutRow);
    TransferForgetAnswers();
}

void TransferPutActive(FileList& source)
{
    TransferForgetAnswers();
    TransferEachRow(source, TransferCountSelectedFiles(source), kTextUploading, PutActiveRow);
}

} // namespace tarvik
