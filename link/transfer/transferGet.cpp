#include "app/text/textId.h"
#include "link/transfer/transfer.h"

#include "app/message/message.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "link/channel/channel.h"
#include "link/channel/linkFailure.h"
#include "link/classes/model.h"
#include "link/transfer/fileDates.h"
#include "link/transfer/transferRows.h"

#include <QFileInfo>

namespace tarvik {

namespace {

constexpr int kActiveNames = 1000;

/// Moves the old file into the trash after a question. False if the row must be skipped.
bool ConfirmAndRemoveOld(const QString& local, const QString& name)
{
    const bool offersAll = !ModHasOneList(FileClasses().CurrentFileClass);
    if (!TransferConfirmReplace(TextId::OverwriteFile, local, offersAll))
        return false;
    if (FileRecycle(local))
        return true;
    MsgOk1(TextId::OldFileNotDeleted, name);
    return false;
}

TransferNext GetRow(const FileListRow& row)
{
    if (TransferIsFolderRow(row)) {
        MsgOk1(TextId::FolderNotDownloaded, row.Text);
        return TransferNext::Pass;
    }
    const QString local = PcFilePath(row.Key);
    if (QFileInfo(local).isFile() && !ConfirmAndRemoveOld(local, row.Text))
        return TransferNext::Count;
    const FileClass fileClass = FileClasses().CurrentFileClass;
    if (ChannelGet(fileClass, row.Key, local) != ChannelStatus::Success)
        return ReportLinkFailure() ? TransferNext::End : TransferNext::Count;
    if (TransferKeepsDate(fileClass))
        FileSetPcDate(local, TransferRowDate(row), TransferIsLocked(row));
    return TransferNext::Count;
}

/// Path for the active data set; empty if no name is free and the last file is kept.
QString FreeActivePath()
{
    const QString extension = LngStr(TextId::DataSetExtension);
    for (int number = 0; number < kActiveNames; ++number) {
        QString path = PcFilePath(QStringLiteral("Active%1").arg(number, 3, 10, QLatin1Char('0')) + extension);
        if (!QFileInfo::exists(path))
            return path;
    }
    const QString name = QStringLiteral("Active.000");
    QString path = PcFilePath(name);
    if (!TransferConfirmReplace(TextId::OverwriteFile, path, false))
        return {};
    if (FileRecycle(path))
        return path;
    MsgOk1(TextId::OldFileNotDeleted, name);
    return {};
}

} // namespace

void TransferGetFiles(FileList& source, FileList& /*target*/)
{
    TransferClearAnswers();
    TransferForEachRow(source, TransferCountSelectedFiles(source), TextId::Downloading, GetRow);
}

void TransferGetActive()
{
    TransferProgress& progress = *TheTransferProgress();
    TransferClearAnswers();
    TheSeams().PumpEvents();
    progress.SetMaximum(1);
    progress.SetValue(1);
    const QString path = FreeActivePath();
    if (path.isEmpty())
        return;
    if (ChannelGetActive(path) != ChannelStatus::Success)
        (void)ReportLinkFailure();
    progress.SetValue(1);
}

} // namespace tarvik
