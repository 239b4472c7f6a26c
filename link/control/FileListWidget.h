// link/control/FileListWidget.h: a file list on the screen: rows with pictures and columns that sort, names that can be
// edited.
#pragma once

#include "link/files/fileList.h"

#include <QTreeView>

#include <optional>

class QRubberBand;

namespace tarvik {

class FileListModel;

/// Shows `list`, which outlives it, as its view. What the user does comes out as signals; only
/// the selection and the current row go into the list at once.
class FileListWidget final : public QTreeView, private FileListView {
    Q_OBJECT
public:
    FileListWidget(FileList& list, const QString& name, QWidget* parent);

    /// Which columns stand there, by the list; the name column takes the room of those that don't.
    void ShowColumns();

    void StartLabelEdit(int row) override;

    /// Ends an edit that is open and keeps what was typed. `Renamed`, which otherwise waits for the next round of
    /// events, goes out at once, also for an edit that has just ended.
    void FinishLabelEdit();

    QSize sizeHint() const override;

Q_SIGNALS:
    void SelectionEdited();
    void RowOpened(int row);
    void HeaderClicked(int column);
    void DeletePressed();
    void RenamePressed();
    void SelectAllPressed();
    void Renamed(const QString& sortKey, const QString& newName); ///< the edit of a name has ended

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
    void ShowSortMark();
    void OnSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    void EndFrame();

    FileList& list_;
    FileListModel* model_ = nullptr;
    int changes_ = 0; ///< BeginChange without its EndChange
    int scrollBefore_ = 0;
    bool showing_ = false; ///< the list's selection is being taken over
    bool mayEdit_ = false; ///< an edit starts by StartLabelEdit only
    std::optional<QPoint> frameStart_; ///< of a selection frame, inside the viewport
    QRubberBand* frame_ = nullptr;
};

} // namespace tarvik
