#include "link/control/FileListWidget.h"

#include "app/forms/form.h"
#include "app/values/region.h"
#include "link/control/FileListModel.h"
#include "link/control/controlGeneral.h"

#include <QCoreApplication>
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

constexpr int kUsualNameCharacters = 40; ///< of the longest file of an instrument, and its picture
constexpr int kUsualRows = 20;
constexpr int kCellMarginCharacters = 3;

/// An edit of a name that keeps Escape for itself, and a tip with the whole of a text that is cut off.
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
        const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
        QToolTip::showText(event->globalPos(), isCut ? PlainTip(index.data().toString()) : QString(), view->viewport());
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
    header()->setSectionResizeMode(FileListName, QHeaderView::Stretch);
    frame_ = new QRubberBand(QRubberBand::Rectangle, viewport());
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
    for (const int column : { FileListDate, FileListTime }) {
        setColumnHidden(column, !list_.HasDates);
        const QString caption = model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        const int digits = metrics.horizontalAdvance(QStringLiteral("00/00/00"));
        const int mark = style()->pixelMetric(QStyle::PM_HeaderMarkSize);
        const int date = column == FileListDate ? metrics.horizontalAdvance(IniDateText(longestDate)) : 0;
        header()->resizeSection(column, std::max({ digits, date, metrics.horizontalAdvance(caption) + mark }) + margin);
    }
    setColumnHidden(FileListSort, true);
    ShowSortMark();
}

QSize FileListWidget::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const int dates = header()->sectionSize(FileListDate) + header()->sectionSize(FileListTime);
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
    ShowSortMark();
    doItemsLayout(); // so that the bar knows its range again
    verticalScrollBar()->setValue(scrollBefore_);
    setUpdatesEnabled(true);
}

/// Rows beside each other become one range, so that any number of them is quick.
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
        selection.append({ model_->index(first, FileListName), model_->index(last, FileListSort) });
        first = last;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    const bool hasCurrent = current >= 0 && current < count;
    const QModelIndex index = hasCurrent ? model_->index(current, FileListName) : QModelIndex();
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    list_.CurrentRow = hasCurrent ? current : -1;
}

/// Folders and names are sorted by the column that nobody sees. The arrow points up for a rising order, as in the grid
/// of the editors; the toolkit means it the other way round.
void FileListWidget::ShowSortMark()
{
    header()->setSortIndicatorShown(list_.Sorted);
    if (!list_.Sorted)
        return;
    const int column = list_.SortKey == FileListSort ? FileListName : list_.SortKey;
    const bool ascends = list_.SortOrder == FileListOrder::Ascending;
    header()->setSortIndicator(column, ascends ? Qt::DescendingOrder : Qt::AscendingOrder);
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

/// The name is marked up to its extension, which stays what it is.
void FileListWidget::StartLabelEdit(int row)
{
    const QModelIndex index = model_->index(row, FileListName);
    if (!index.isValid())
        return;
    setFocus(Qt::OtherFocusReason);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
    const QScopedValueRollback allowed(mayEdit_, true);
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
    QCoreApplication::sendPostedEvents(model_, QEvent::MetaCall);
}

bool FileListWidget::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    return mayEdit_ && QTreeView::edit(index, trigger, event);
}

void FileListWidget::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (state() == EditingState && (isEnter || event->key() == Qt::Key_F2))
        event->accept(); // the edit has taken it, or goes on
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
        frameStart_ = ControlInsideLimit(at, ControlFrameLimit(size()));
        frame_->setGeometry(QRect(*frameStart_, QSize()));
    }
    QTreeView::mousePressEvent(event);
}

void FileListWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton)
        EndFrame();
    if (!frameStart_) {
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
    frame_->setGeometry(QRect(*frameStart_, inside).normalized());
    frame_->show();
}

void FileListWidget::mouseReleaseEvent(QMouseEvent* event)
{
    EndFrame();
    QTreeView::mouseReleaseEvent(event);
}

void FileListWidget::EndFrame()
{
    frameStart_.reset();
    frame_->hide();
}

} // namespace tarvik
