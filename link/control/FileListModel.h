// link/control/FileListModel.h: item model of a file list.
#pragma once

#include "link/files/fileList.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>

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

Q_SIGNALS:
    void Renamed(const QString& sortKey, const QString& newName);

private:
    QIcon IconOf(const QString& key) const;

    FileList& list_;
    mutable QHash<QString, QIcon> icons_;
};

} // namespace tarvik
