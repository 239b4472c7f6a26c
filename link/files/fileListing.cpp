#include "link/files/fileList.h"

#include "link/channel/channel.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"

#include <QDir>
#include <QFileInfo>

namespace tarvik {

namespace {

bool IsListed(const QString& fileName, int mask)
{
    return FileExtMatches(fileName, mask) && ValidNameChars(FileBaseName(fileName));
}

void ReadPcFolder(FileList& list, int mask)
{
    if (CurrentPcFolder().isEmpty())
        return; // would be the folder in which the program was started
    const QFileInfoList entries = QDir(CurrentPcFolder())
                                      .entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot,
                                          QDir::Name | QDir::IgnoreCase | QDir::DirsFirst);
    for (const QFileInfo& entry : entries) {
        const QString name = entry.fileName();
        if (entry.isDir())
            TransferAddRow(list, name, kChannelFolder, {});
        else if (IsListed(name, mask))
            TransferAddRow(list, name, kChannelFile, entry.lastModified());
    }
}

/// The instrument's clock knows no time zone, and its numbers are shown as they are.
QDateTime ChangeOf(const ChannelRow& row)
{
    return { QDate(row.Year, row.Month, row.Day), QTime(row.Hour, row.Minute, row.Second), Qt::UTC };
}

void AddInstrRow(FileList& list, const ChannelRow& row, int mask)
{
    if (row.Type == kChannelFolder && ModHasInstrFolders(FileClasses().CurrentFileClass))
        TransferAddRow(list, row.Name, kChannelFolder, {});
    if (row.Type == kChannelFile && IsListed(row.Name, mask))
        TransferAddRow(list, row.Name, kChannelFile, ChangeOf(row));
}

void ReadInstrFolder(FileList& list, int mask)
{
    bool nothing = false;
    ChannelStatus err = ChannelStartFind(FileClasses().CurrentFileClass, nothing);
    ChannelRow row;
    row.Last = nothing;
    while (err == kChannelOk && !row.Last) {
        row = {};
        err = ChannelNextFile(row);
        if (err == kChannelOk)
            AddInstrRow(list, row, mask);
    }
}

void Fill(FileList& list, int mask, bool sort, void (*read)(FileList& list, int mask))
{
    list.View.BeginChange();
    list.Rows.clear();
    list.CurrentRow = -1;
    read(list, mask);
    if (sort)
        TransferSortBy(list, FileListSort);
    else
        TransferKeepSorted(list);
    list.View.EndChange();
}

} // namespace

void TransferListPc(FileList& list, int mask, bool sort)
{
    Fill(list, mask, sort, ReadPcFolder);
}

void TransferListInstr(FileList& list, int mask, bool sort)
{
    Fill(list, mask, sort, ReadInstrFolder);
}

} // namespace tarvik
