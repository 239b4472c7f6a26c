#include "link/control/FileListModel.h"

#include "app/forms/Pictures.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

namespace tarvik {

namespace {

constexpr int kColumns = FileListSort + 1;

} // namespace

FileListModel::FileListModel(FileList& list, QObject* parent)
    : QAbstractTableModel(parent)
    , list_(list)
{
}

void FileListModel::BeginChange()
{
    beginResetModel();
}

void FileListModel::EndChange()
{
    endResetModel();
}

int FileListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(list_.Rows.size());
}

int FileListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const
{
    const auto at = static_cast<size_t>(index.row());
    if (!index.isValid() || at >= list_.Rows.size())
        return {};
    const FileListRow& row = list_.Rows[at];
    const bool isName = index.column() == FileListName;
    if (role == Qt::DecorationRole && isName)
        return IconOf(row.Icon);
    if (role == Qt::DisplayRole || (role == Qt::EditRole && isName))
        return isName ? row.Text : row.SubItems[static_cast<size_t>(index.column() - 1)];
    return {};
}

/// A picture is drawn from its vector file each time an icon is made.
QIcon FileListModel::IconOf(const QString& key) const
{
    const auto found = icons_.constFind(key);
    return found == icons_.constEnd() ? *icons_.insert(key, PictureIcon(key)) : *found;
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case FileListName:
        return LngStr(TextId::FileNameColumn);
    case FileListDate:
        return LngStr(TextId::FileDateColumn);
    case FileListTime:
        return LngStr(TextId::FileTimeColumn);
    default:
        return QString();
    }
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return index.column() == FileListName ? flags | Qt::ItemIsEditable : flags;
}

/// What was typed is never kept here: whoever renames reads the list again. That waits for the end of the edit, since
/// it takes the rows away from under it. A name that was left as it is has not been edited.
bool FileListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid())
        return false;
    const FileListRow& row = list_.Rows[static_cast<size_t>(index.row())];
    const QString newName = value.toString();
    if (newName != row.Text) {
        QMetaObject::invokeMethod(
            this, [this, key = row.SubItems[2], newName] { Q_EMIT Renamed(key, newName); }, Qt::QueuedConnection);
    }
    return false;
}

} // namespace tarvik
