#include "link/control/FileListModel.h"

#include "app/forms/Pictures.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QEvent>
#include <QGuiApplication>

#include <utility>

namespace tarvik {

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
    return parent.isValid() ? 0 : kFileColumns;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const
{
    const auto at = static_cast<size_t>(index.row());
    if (!index.isValid() || at >= list_.Rows.size())
        return {};
    const FileListRow& row = list_.Rows[at];
    const bool isName = index.column() == kFileNameColumn;
    if (role == Qt::DecorationRole && isName)
        return IconOf(row.Icon);
    if (role == Qt::DisplayRole || (role == Qt::EditRole && isName))
        return isName ? row.Text : row.SubItems[static_cast<size_t>(index.column() - 1)];
    return {};
}

/// Cached, since PictureIcon renders the vector file each time.
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
    case kFileNameColumn:
        return LngStr(TextId::FileNameColumn);
    case kFileDateColumn:
        return LngStr(TextId::FileDateColumn);
    case kFileTimeColumn:
        return LngStr(TextId::FileTimeColumn);
    default:
        return QString();
    }
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return index.column() == kFileNameColumn ? flags | Qt::ItemIsEditable : flags;
}

/// Never stores the text: renaming reads the list again. `Renamed` is queued until the edit has ended, since it removes
/// the row being edited. An unchanged name is no edit.
bool FileListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid())
        return false;
    const FileListRow& row = list_.Rows[static_cast<size_t>(index.row())];
    const QString newName = value.toString();
    if (newName != row.Text) {
        rename_ = Rename{ row.SubItems[2], newName };
        QMetaObject::invokeMethod(this, &FileListModel::RenameAfterClick, Qt::QueuedConnection);
    }
    return false;
}

/// A click that ended the edit is completed first: a message between press and release would swallow it.
void FileListModel::RenameAfterClick()
{
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        FinishRename();
    else
        qApp->installEventFilter(this);
}

bool FileListModel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        qApp->removeEventFilter(this);
        QMetaObject::invokeMethod(this, &FileListModel::RenameAfterClick, Qt::QueuedConnection);
    }
    return QAbstractTableModel::eventFilter(watched, event);
}

void FileListModel::FinishRename()
{
    if (!rename_)
        return;
    const Rename rename = *std::exchange(rename_, {});
    Q_EMIT Renamed(rename.SortKey, rename.NewName);
}

} // namespace tarvik
