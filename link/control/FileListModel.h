// link/control/FileListModel.h: item model of a file list.
#pragma once

#include "link/files/fileList.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>

#include <optional>

namespace tarvik {

class FileListModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit FileListModel(FileList& list, QObject* parent = nullptr);

    void BeginChange();
    void EndChange();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Emits `Renamed` at once if it is still to come.
    void FinishRename();

Q_SIGNALS:
    void Renamed(const QString& sortKey, const QString& newName);

private:
    struct Rename {
        QString SortKey;
        QString NewName;
    };

    QIcon IconOf(const QString& key) const;
    void RenameAfterClick();

    FileList& list_;
    mutable QHash<QString, QIcon> icons_;
    std::optional<Rename> rename_;
};

} // namespace tarvik
