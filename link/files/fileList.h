// link/files/fileList.h: the file lists of the file control window, one for the PC and one for the instrument: rows,
// filling, sorting, selection. A list reaches the form that shows it through FileListView only.
#pragma once

#include "link/channel/channel.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <vector>

namespace tarvik {

/// Columns of a list, as its view numbers them. A list without dates hides date and time; the sort column is always
/// hidden.
inline constexpr int kFileNameColumn = 0;
inline constexpr int kFileDateColumn = 1;
inline constexpr int kFileTimeColumn = 2;
inline constexpr int kFileSortColumn = 3;
inline constexpr int kFileColumns = 4;

struct FileListRow {
    QString Text; ///< displayed name
    QString Key; ///< file name; for a folder "F" and the name
    QString Icon; ///< key of the frame's image list: "File", "ClosedFolder", ...
    std::array<QString, 3> SubItems; ///< date, time, sort key
    QString Tag; ///< the date as listed, once sorting by date shows the region's short form instead
    bool Selected = false;
};

/// The view of a list.
class FileListView {
public:
    virtual void BeginChange() = 0; ///< stops drawing; changes nest
    virtual void EndChange() = 0; ///< takes over rows and selection, draws again
    virtual void GiveFocus() = 0;
    virtual void StartLabelEdit(int row) = 0;

protected:
    ~FileListView() = default;
};

/// The view of a list that is not shown; does nothing.
FileListView& NoFileListView();

/// Scope guard: one change of a list.
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
    bool Sorted = false; ///< the list is kept sorted, also when it is refilled
    int SortKey = 0; ///< sort column
    FileListOrder SortOrder = FileListOrder::Descending; ///< flips at each sort, so the first sort is ascending
    int CurrentRow = -1;
    FileListView* View = &NoFileListView(); ///< never null; reset before the view is destroyed
};

/// The parts of a file name before and after its last point. Separators are kept, unlike in QFileInfo, so that a name
/// can't lead into another folder unnoticed.
QString FileBaseName(const QString& name);
QString FileExtension(const QString& name);

/// The folder of the PC side, without a trailing separator unless it is a root.
QString& CurrentPcFolder();

/// `CurrentPcFolder`, the separator and `name`; empty while there is no folder.
QString PcFilePath(const QString& name);

/// Refills `list` with the folders of `CurrentPcFolder` and the files that match `mask`, bits of file classes. Omits
/// what can't be read, is hidden, or has a name that is invalid on the instrument. `sort` sorts the list by its sort
/// column.
void TransferListPc(FileList& list, int mask, bool sort = false);

/// As above for the instrument's directory. Folders are listed for screen shots and unknown classes only.
void TransferListInstr(FileList& list, int mask, bool sort = false);

/// Markers of a data set file; the first one set chooses its icon.
struct FileMarkers {
    bool Restricted = false;
    bool Preset = false;
    bool Locked = false;
};

/// Appends a row. A folder has no date. The time zone of `changed` is ignored; if it is invalid, date and time stay
/// empty.
void TransferAddRow(
    FileList& list, const QString& name, ChannelRowType type, const QDateTime& changed, FileMarkers markers = {});

bool TransferIsFolderRow(const FileListRow& row);

/// Sorts by a column; each call reverses the order. Sorting by date (then time) shows the dates in the region's short
/// form until the list is refilled. Equal rows are sorted by name.
void TransferSortColumn(FileList& list, int column);

/// As above, for callers between BeginChange and EndChange.
void TransferSortBy(FileList& list, int column);

/// Compares names; case decides only between names that are equal otherwise. Negative if `first` comes first.
int CompareFileNames(const QString& first, const QString& second);

/// Sorts again if the list is kept sorted, for callers between BeginChange and EndChange.
void TransferKeepSorted(FileList& list);

/// A click on a column header. The name column sorts by the sort column, which keeps folders together.
void TransferHeaderClick(FileList& list, int column);

bool TransferAnySelected(const FileList& list);
int TransferCountSelected(const FileList& list); ///< folders too
int TransferCountSelectedFiles(const FileList& list);
int TransferFirstSelected(const FileList& list); ///< row index; -1 without one

/// Selects the files and deselects the folders.
void TransferSelectAllFiles(FileList& list);

/// Date and time of last change from the texts of a row, as UTC since a row has no time zone; invalid for a folder or
/// an unreadable date. The century is chosen so that the year is at most 80 years back and 19 ahead.
QDateTime TransferRowDate(const FileListRow& row);

/// Renames the file or folder of `row`. Trims `newName`. `cancel` is set if the list must keep the old text. A renamed
/// file of the instrument has the key of a folder until the list is refilled, which every caller does.
void TransferRenamePc(FileList& list, int row, QString& newName, bool& cancel);
void TransferRenameInstr(FileList& list, int row, QString& newName, bool& cancel);

/// Creates a folder under a free name, shows it and starts editing its name. A failure is reported (12740) on the
/// instrument's side only.
void TransferNewFolderPc(FileList& list);
void TransferNewFolderInstr(FileList& list);

} // namespace tarvik
