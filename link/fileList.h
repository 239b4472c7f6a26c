// link/fileList.h: the list of files that the file control window shows for the PC and for the instrument: its rows,
// how it is filled, sorted and selected. A list knows nothing of the form that shows it; it asks for what only a view
// can do through its hooks.
#pragma once

#include <QDateTime>
#include <QString>

#include <array>
#include <functional>
#include <vector>

/// Columns of a list. In a list without dates the second and the third are not there.
enum FileListColumn { FileListName = 0, FileListDate = 1, FileListTime = 2, FileListSort = 3 };

/// What a row bears besides its name.
struct FileListRow {
    QString Text; ///< shown name
    QString Key; ///< file name; for a folder "F" and the name
    QString Icon; ///< key of the frame's image list: "File", "ClosedFolder", ...
    std::array<QString, 3> SubItems; ///< date, time, sort key
    QString Tag; ///< the date as it was shown, while the list sorts by it
    bool Selected = false;
};

/// What only the view of a list can do; each default stands for a list that nobody shows.
struct FileListView {
    std::function<void()> BeginChange = [] {}; ///< drawing off
    std::function<void()> EndChange = [] {}; ///< rows and selection are taken over, drawing on
    std::function<void()> GiveFocus = [] {};
    std::function<void(int row)> StartLabelEdit = [](int) {};
};

enum class FileListOrder { Ascending, Descending };

struct FileList {
    std::vector<FileListRow> Rows;
    bool HasDates = true; ///< false for the classes that show names only
    bool Sorted = false;
    int SortKey = 0; ///< column that the list is sorted by
    FileListOrder SortOrder = FileListOrder::Descending; ///< flips at each sort, so the first one ascends
    int CurrentRow = -1;
    FileListView View;
};

/// The folder of the PC side, without a separator at its end unless it is a root.
QString& CurrentPcFolder();

/// `CurrentPcFolder`, the separator and `name`.
QString PcFilePath(const QString& name);

/// Clears and fills `list` with the folders of `CurrentPcFolder` and the files that fit `mask`, the bits of file
/// classes. What can't be read, or has a name that the instrument has no letters for, isn't shown.
void TransferListPc(FileList& list, int mask, bool sort = false);

/// The same with the instrument's directory. Folders are shown for screen shots and unknown classes only.
void TransferListInstr(FileList& list, int mask, bool sort = false);

/// Markers of a row, of which the first that is set chooses the icon of a data set file.
struct FileMarkers {
    bool Restricted = false;
    bool Preset = false;
    bool Locked = false;
};

/// Adds a row. `type` is 0 for a file and 1 for a folder, which has no date. Year of four digits.
void TransferAddRow(FileList& list, const QString& name, int type, const QDateTime& changed, FileMarkers markers = {});

bool TransferIsFolderRow(const FileListRow& row);

/// Sorts by a column; each call turns the order round. Sorting by date gives the dates the system's short form.
void TransferSortColumn(FileList& list, int column);

/// What a click on a column header asks for: the name column sorts by the sort column, so that folders stay together.
void TransferHeaderClick(FileList& list, int column);

bool TransferAnySelected(const FileList& list);
int TransferCountSelected(const FileList& list); ///< folders too
int TransferCountSelectedFiles(const FileList& list);
int TransferFirstSelected(const FileList& list); ///< its index; -1 without one

/// Selects the files and deselects the folders.
void TransferSelectAllFiles(FileList& list);

/// Time of last change of a row, local time; invalid for a folder or a date that can't be read.
QDateTime TransferRowDate(const FileListRow& row);

/// Renames what `row` stands for. `newName` is trimmed. `cancel` is set when the list is to keep the old text.
void TransferRenamePc(FileList& list, int row, QString& newName, bool& cancel);
void TransferRenameInstr(FileList& list, int row, QString& newName, bool& cancel);

/// Makes a folder, shows it and starts the edit of its name.
void TransferNewFolderPc(FileList& list);
void TransferNewFolderInstr(FileList& list);
