#include "link/control/FileListWidget.h"

#include "app/forms/form.h"
#include "app/values/region.h"
#include "link/control/FileListModel.h"
#include "link/control/controlGeneral.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRubberBand>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kUsualNameCharacters = 40; ///< the longest file name of an instrument, and the icon
constexpr int kUsualRows = 20;
constexpr int kCellMarginCharacters = 3;

/// A name editor that handles Escape itself, and tool tips for elided texts.
class NameDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        NameControl(editor, QStringLiteral("LabelEdit"));
        editor->setAccessibleName(index.data(Qt::DisplayRole).toString());
        editor->setProperty(kKeepsEscapeProperty, true);
        return editor;
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override
    {
        if (event->type() != QEvent::ToolTip)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const bool isElided = sizeHint(option, index).width() > view->visualRect(index).width();
        QToolTip::showText(
            event->globalPos(), isElided ? PlainTip(index.data().toString()) : QString(), view->viewport());
        return true;
    }
};

} // namespace

FileListWidget::FileListWidget(FileList& list, const QString& name, QWidget* parent)
    : QTreeView(parent)
    , list_(list)
    , model_(new FileListModel(list, this))
{
    NameControl(this, name);
    setModel(model_);
    setItemDelegate(new NameDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(kFileNameColumn, QHeaderView::Stretch);
    rubberBand_ = new QRubberBand(QRubberBand::Rectangle, viewport());
    list_.View = this;
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &FileListWidget::OnSelectionChanged);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& current) { list_.CurrentRow = current.row(); });
    connect(header(), &QHeaderView::sectionClicked, this, &FileListWidget::HeaderClicked);
    connect(model_, &FileListModel::Renamed, this, &FileListWidget::Renamed);
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) { Q_EMIT RowOpened(index.row()); });
}

void FileListWidget::GiveFocus()
{
    setFocus(Qt::OtherFocusReason);
}

void FileListWidget::ShowColumns()
{
    const QFontMetrics metrics = fontMetrics();
    const int margin = kCellMarginCharacters * metrics.horizontalAdvance(u'0');
    const QDateTime longestDate(QDate(2000, 12, 30), QTime()); // as a sort by date shows it
    for (const int column : { kFileDateColumn, kFileTimeColumn }) {
        setColumnHidden(column, !list_.HasDates);
        const QString caption = model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        const int digits = metrics.horizontalAdvance(QStringLiteral("00/00/00"));
        const int mark = style()->pixelMetric(QStyle::PM_HeaderMarkSize);
        const int date = column == kFileDateColumn ? metrics.horizontalAdvance(IniDateText(longestDate)) : 0;
        header()->resizeSection(column, std::max({ digits, date, metrics.horizontalAdvance(caption) + mark }) + margin);
    }
    setColumnHidden(kFileSortColumn, true);
    ShowSortIndicator();
}

QSize FileListWidget::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int dates = header()->sectionSize(kFileDateColumn) + header()->sectionSize(kFileTimeColumn);
    const int rowHeight = std::max(metrics.height(), iconSize().height()) + 2;
    return { metrics.horizontalAdvance(u'0') * kUsualNameCharacters + dates,
        header()->sizeHint().height() + rowHeight * kUsualRows };
}

void FileListWidget::BeginChange()
{
    if (changes_++ > 0)
        return;
    scrollBefore_ = verticalScrollBar()->value();
    setUpdatesEnabled(false);
    model_->BeginChange();
}

void FileListWidget::EndChange()
{
    if (changes_ == 0 || --changes_ > 0)
        return;
    model_->EndChange();
    ShowSelection();
    ShowSortIndicator();
    doItemsLayout(); // restores the range of the scroll bar
    verticalScrollBar()->setValue(scrollBefore_);
    setUpdatesEnabled(true);
}

/// Adjacent rows are selected as one range, for speed.
void FileListWidget::ShowSelection()
{
    const QScopedValueRollback showing(showing_, true);
    QItemSelection selection;
    const auto count = static_cast<int>(list_.Rows.size());
    const int current = list_.CurrentRow;
    for (int first = 0; first < count; ++first) {
        if (!list_.Rows[static_cast<size_t>(first)].Selected)
            continue;
        int last = first;
        while (last + 1 < count && list_.Rows[static_cast<size_t>(last) + 1].Selected)
            ++last;
        selection.append({ model_->index(first, kFileNameColumn), model_->index(last, kFileSortColumn) });
        first = last;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    const bool hasCurrent = current >= 0 && current < count;
    const QModelIndex index = hasCurrent ? model_->index(current, kFileNameColumn) : QModelIndex();
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    list_.CurrentRow = hasCurrent ? current : -1;
}

/// The name column represents the hidden sort column. The arrow points up for ascending order, as in the grid of the
/// editors; Qt's convention is the opposite.
void FileListWidget::ShowSortIndicator()
{
    header()->setSortIndicatorShown(list_.Sorted);
    if (!list_.Sorted)
        return;
    const int column = list_.SortKey == kFileSortColumn ? kFileNameColumn : list_.SortKey;
    const bool isAscending = list_.SortOrder == FileListOrder::Ascending;
    header()->setSortIndicator(column, isAscending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void FileListWidget::OnSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    if (showing_)
        return;
    const auto mark = [this](const QItemSelection& selection, bool on) {
        for (const QItemSelectionRange& range : selection) {
            for (int row = range.top(); row <= range.bottom(); ++row)
                list_.Rows[static_cast<size_t>(row)].Selected = on;
        }
    };
    mark(deselected, false);
    mark(selected, true);
    Q_EMIT SelectionEdited();
}

/// Selects the name without its extension, which can't change.
void FileListWidget::StartLabelEdit(int row)
{
    const QModelIndex index = model_->index(row, kFileNameColumn);
    if (!index.isValid())
        return;
    setFocus(Qt::OtherFocusReason);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
    const QScopedValueRollback allowed(canEdit_, true);
    QTreeView::edit(index);
    auto* editor = qobject_cast<QLineEdit*>(indexWidget(index));
    const FileListRow& at = list_.Rows[static_cast<size_t>(row)];
    if (editor != nullptr && !TransferIsFolderRow(at))
        editor->setSelection(0, static_cast<int>(QFileInfo(at.Text).completeBaseName().size()));
}

void FileListWidget::FinishLabelEdit()
{
    if (QWidget* editor = indexWidget(currentIndex())) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    model_->FinishRename();
}

bool FileListWidget::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    return canEdit_ && QTreeView::edit(index, trigger, event);
}

void FileListWidget::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (state() == EditingState && (isEnter || event->key() == Qt::Key_F2))
        event->accept(); // handled by the editor
    else if (isEnter)
        Q_EMIT RowOpened(ControlSelectedRow(list_));
    else if (event->key() == Qt::Key_Delete)
        Q_EMIT DeletePressed();
    else if (event->key() == Qt::Key_F2)
        Q_EMIT RenamePressed();
    else if (event->key() == Qt::Key_A && event->modifiers().testFlag(Qt::ControlModifier))
        Q_EMIT SelectAllPressed();
    else
        QTreeView::keyPressEvent(event);
}

void FileListWidget::mousePressEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !indexAt(at).isValid()) {
        rubberBandStart_ = ControlInsideLimit(at, ControlFrameLimit(size()));
        rubberBand_->setGeometry(QRect(*rubberBandStart_, QSize()));
    }
    QTreeView::mousePressEvent(event);
}

void FileListWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton)
        EndRubberBand();
    if (!rubberBandStart_) {
        QTreeView::mouseMoveEvent(event);
        return;
    }
    const QPoint at = event->position().toPoint();
    const QPoint inside = ControlInsideLimit(at, ControlFrameLimit(size()));
    if (at != inside)
        QCursor::setPos(viewport()->mapToGlobal(inside));
    QMouseEvent moved(
        event->type(), inside, viewport()->mapToGlobal(inside), event->button(), event->buttons(), event->modifiers());
    QTreeView::mouseMoveEvent(&moved);
    rubberBand_->setGeometry(QRect(*rubberBandStart_, inside).normalized());
    rubberBand_->show();
}

void FileListWidget::mouseReleaseEvent(QMouseEvent* event)
{
    EndRubberBand();
    QTreeView::mouseReleaseEvent(event);
}

void FileListWidget::EndRubberBand()
{
    rubberBandStart_.reset();
    rubberBand_->hide();
}

} // namespace tarvik
