// link/control/FileListWidget.h: the widget of a file list: rows with icons, columns to sort by, editable names.
#pragma once

#include "link/files/fileList.h"

#include <QTreeView>

#include <optional>

class QRubberBand;

namespace tarvik {

class FileListModel;

/// The view of `list`, which must outlive it. The user's actions are emitted as signals; only selection and current row
/// are stored in the list at once.
class FileListWidget final : public QTreeView, private FileListView {
    Q_OBJECT
public:
    FileListWidget(FileList& list, const QString& name, QWidget* parent);

    /// Shows the columns that the list has; the name column takes the remaining width.
    void ShowColumns();

    void StartLabelEdit(int row) override;

    /// Commits an open edit. Emits `Renamed` at once instead of from the event loop, also for an edit that has just
    /// ended.
    void FinishLabelEdit();

    /// True while a name is being edited.
    bool HasOpenLabel() const
    {
        return state() == EditingState;
    }

    QSize sizeHint() const override;

Q_SIGNALS:
    void SelectionEdited();
    void RowOpened(int row);
    void HeaderClicked(int column);
    void DeletePressed();
    void RenamePressed();
    void SelectAllPressed();
    void Renamed(const QString& sortKey, const QString& newName); ///< a name has been edited

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

private:
    void BeginChange() override;
    void EndChange() override;
    void GiveFocus() override;
    void ShowSelection();
    void ShowSortIndicator();
    void OnSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    void EndRubberBand();

    FileList& list_;
    FileListModel* model_ = nullptr;
    int changes_ = 0; ///< nested BeginChange calls
    int scrollBefore_ = 0;
    bool showing_ = false; ///< while the list's selection is being shown
    bool canEdit_ = false; ///< during StartLabelEdit, which alone starts an edit
    std::optional<QPoint> rubberBandStart_; ///< in the viewport, while a selection frame is dragged
    QRubberBand* rubberBand_ = nullptr;
};

} // namespace tarvik
