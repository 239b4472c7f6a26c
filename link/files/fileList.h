// link/files/fileList.h: the list of files that the file control window shows for the PC and for the instrument: its
// rows, how it is filled, sorted and selected. A list knows nothing of the form that shows it; what only a view can
// do it asks of its FileListView.
#pragma once

#include "link/channel/channel.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <vector>

namespace tarvik {

/// Columns of a list. In a list without dates the second and the third are not there.
enum FileListColumn { FileListName = 0, FileListDate = 1, FileListTime = 2, FileListSort = 3 };

/// What a row bears besides its name.
struct FileListRow {
    QString Text; ///< shown name
    QString Key; ///< file name; for a folder "F" and the name
    QString Icon; ///< key of the frame's image list: "File", "ClosedFolder", ...
    std::array<QString, 3> SubItems; ///< date, time, sort key
    QString Tag; ///< the date as it was listed, once a sort by date shows the region's form in its place
    bool Selected = false;
};

/// What only the view of a list can do.
class FileListView {
public:
    virtual void BeginChange() = 0; ///< drawing off; changes nest
    virtual void EndChange() = 0; ///< rows and selection are taken over, drawing on
    virtual void GiveFocus() = 0;
    virtual void StartLabelEdit(int row) = 0;

protected:
    ~FileListView() = default;
};

/// The view of a list that nobody shows: it does nothing.
FileListView& NoFileListView();

/// One change of a list while it lives.
class FileListChange {
public:
    explicit FileListChange(FileListView& view)
        : view_(view)
    {
        view_.BeginChange();
    }
    ~FileListChange()
    {
        view_.EndChange();
    }
    FileListChange(const FileListChange&) = delete;
    FileListChange& operator=(const FileListChange&) = delete;

private:
    FileListView& view_;
};

enum class FileListOrder { Ascending, Descending };

struct FileList {
    std::vector<FileListRow> Rows;
    bool HasDates = true; ///< false for the classes that show names only
    bool Sorted = false; ///< the list is kept sorted, also when it is filled anew
    int SortKey = 0; ///< column that the list is sorted by
    FileListOrder SortOrder = FileListOrder::Descending; ///< flips at each sort, so the first one ascends
    int CurrentRow = -1;
    FileListView* View = &NoFileListView(); ///< outlives the list or is taken back; never null
};

/// Of a file name, which may hold several points: what stands before the last one and behind it. Unlike those of a
/// path they keep separators, so that a name can't pass for one of another folder.
QString FileBaseName(const QString& name);
QString FileExtension(const QString& name);

/// The folder of the PC side, without a separator at its end unless it is a root.
QString& CurrentPcFolder();

/// `CurrentPcFolder`, the separator and `name`; empty, which is no file's path, before there is a folder.
QString PcFilePath(const QString& name);

/// Clears and fills `list` with the folders of `CurrentPcFolder` and the files that fit `mask`, the bits of file
/// classes. What can't be read, is hidden, or has a name that the instrument has no letters for, isn't shown. `sort`
/// sorts the list by its sort column.
void TransferListPc(FileList& list, int mask, bool sort = false);

/// The same with the instrument's directory. Folders are shown for screen shots and unknown classes only.
void TransferListInstr(FileList& list, int mask, bool sort = false);

/// Markers of a row, of which the first that is set chooses the icon of a data set file.
struct FileMarkers {
    bool Restricted = false;
    bool Preset = false;
    bool Locked = false;
};

/// Adds a row at the end. A folder has no date. What counts of `changed` are
/// its numbers, whatever its time zone; an invalid one leaves date and time empty.
void TransferAddRow(
    FileList& list, const QString& name, ChannelRowType type, const QDateTime& changed, FileMarkers markers = {});

bool TransferIsFolderRow(const FileListRow& row);

/// Sorts by a column; each call turns the order round. Sorting by date (then time) gives the dates the region's short
/// form until the list is filled anew. Rows that are equal there stand in the order of their names.
void TransferSortColumn(FileList& list, int column);

/// The same for one who has told the view that the list changes.
void TransferSortBy(FileList& list, int column);

/// Order of names: case counts only between names that are else the same. Below 0 where `first` comes first.
int CompareFileNames(const QString& first, const QString& second);

/// Puts the rows of a list that is kept sorted into their order again, likewise without a word to the view.
void TransferKeepSorted(FileList& list);

/// What a click on a column header asks for: the name column sorts by the sort column, so that folders stay together.
void TransferHeaderClick(FileList& list, int column);

bool TransferAnySelected(const FileList& list);
int TransferCountSelected(const FileList& list); ///< folders too
int TransferCountSelectedFiles(const FileList& list);
int TransferFirstSelected(const FileList& list); ///< its index; -1 without one

/// Selects the files and deselects the folders.
void TransferSelectAllFiles(FileList& list);

/// Time of last change of a row as its texts tell it, local time; invalid for a folder or a date that can't be read.
/// The century, which they don't tell, is the one that keeps the year within 80 years back and 19 ahead.
QDateTime TransferRowDate(const FileListRow& row);

/// Renames what `row` stands for. `newName` is trimmed. `cancel` tells whether the list is to keep the old text. A
/// renamed file of the instrument bears the key of a folder until the list is filled anew, which every caller does.
void TransferRenamePc(FileList& list, int row, QString& newName, bool& cancel);
void TransferRenameInstr(FileList& list, int row, QString& newName, bool& cancel);

/// Makes a folder under a name that is free, shows it and starts the edit of its name. Nothing is shown for one that
/// could not be made; only the instrument's side tells so.
void TransferNewFolderPc(FileList& list);
void TransferNewFolderInstr(FileList& list);

} // namespace tarvik
