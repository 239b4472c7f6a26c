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
        return; // QDir would take the working directory
    const QFileInfoList entries = QDir(CurrentPcFolder())
                                      .entryInfoList(QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot,
                                          QDir::Name | QDir::IgnoreCase | QDir::DirsFirst);
    for (const QFileInfo& entry : entries) {
        const QString name = entry.fileName();
        if (entry.isDir())
            TransferAddRow(list, name, ChannelRowType::Folder, {});
        else if (IsListed(name, mask))
            TransferAddRow(list, name, ChannelRowType::File, entry.lastModified());
    }
}

void AddInstrRow(FileList& list, const ChannelRow& row, int mask)
{
    if (row.Type == ChannelRowType::Folder && ModHasInstrFolders(FileClasses().CurrentFileClass))
        TransferAddRow(list, row.Name, ChannelRowType::Folder, {});
    if (row.Type == ChannelRowType::File && IsListed(row.Name, mask))
        TransferAddRow(list, row.Name, ChannelRowType::File, ChannelRowTime(row));
}

void ReadInstrFolder(FileList& list, int mask)
{
    std::vector<ChannelRow> rows;
    (void)ChannelWalk(FileClasses().CurrentFileClass, rows); // rows received before a failure are listed
    for (const ChannelRow& row : rows)
        AddInstrRow(list, row, mask);
}

void Fill(FileList& list, int mask, bool sort, void (*read)(FileList& list, int mask))
{
    const FileListChange change(*list.View);
    list.Rows.clear();
    list.CurrentRow = -1;
    read(list, mask);
    if (sort)
        TransferSortBy(list, kFileSortColumn);
    else
        TransferKeepSorted(list);
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
