// Events and layout of the grid.
#include "lists/editor/editorGrid.h"

#include "app/forms/focusRules.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kLinePx = 1;
constexpr int kRowPaddingPx = 8;
constexpr int kHeaderPaddingPx = 12;
constexpr int kColumnPaddingPx = 14;

/// Up and Down move within the lines of a cell before they leave it.
bool MovesInLines(const QWidget* control, int key)
{
    const auto* lines = qobject_cast<const GridLines*>(control);
    return lines != nullptr
        && ((key == Qt::Key_Up && !lines->IsCaretInFirstLine())
            || (key == Qt::Key_Down && !lines->IsCaretInLastLine()));
}

} // namespace

bool EditorGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == VScroll1)
        return OnScrollBarEvent(event);
    Cell* cell = CellOf(watched);
    return cell != nullptr && OnCellEvent(*cell, event);
}

bool EditorGrid::OnCellEvent(Cell& cell, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        return OnFocusIn(cell, static_cast<QFocusEvent*>(event)->reason());
    case QEvent::FocusOut:
        if (IsFocusMoved(*static_cast<QFocusEvent*>(event))) {
            focused_ = nullptr;
            ColourCell(cell);
        }
        return false;
    case QEvent::KeyPress:
        return OnCellKey(cell, static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
        return !HasInput(cell.Column) && OnRowClicked(cell);
    case QEvent::MouseButtonDblClick:
        return OnDoubleClick(cell);
    default:
        return false;
    }
}

/// The user goes to another row, by mouse or Tab. True if the current one may not be left.
bool EditorGrid::OnFocusIn(Cell& cell, Qt::FocusReason reason)
{
    const int row = topRow_ + cell.Index;
    const bool byUser = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason
        || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (byUser && row != currentRow_ && !rows_.MayLeaveRow(currentRow_)) {
        if (reason == Qt::MouseFocusReason)
            SwallowPress();
        return true;
    }
    focused_ = cell.Control;
    SetCurrent(row, cell.Column);
    return false;
}

/// Swallows the press or wheel that would scroll away from a bad cell: the bar would lose the release to the message,
/// and repeat the press for ever.
bool EditorGrid::OnScrollBarEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return static_cast<QMouseEvent*>(event)->button() != Qt::RightButton && !Commit();
    case QEvent::ContextMenu: // follows the press of the right button
        return !Commit();
    case QEvent::Wheel:
        if (!shape_.IgnoresWheel)
            return !Commit();
        event->ignore(); // left to the form
        return true;
    default:
        return false;
    }
}

bool EditorGrid::OnCellKey(const Cell& cell, const QKeyEvent* event)
{
    const Qt::KeyboardModifiers others = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (others != Qt::NoModifier || MovesInLines(cell.Control, event->key()))
        return false;
    return CellKeyDown(cell.Column, event->key(), event->modifiers().toInt());
}

bool EditorGrid::OnRowClicked(const Cell& cell)
{
    const int row = topRow_ + cell.Index; // before Commit, which may scroll
    if (MayLeaveFocus() && (row == currentRow_ || rows_.MayLeaveRow(currentRow_)))
        CellSetFocus(row, currentColumn_);
    return true;
}

bool EditorGrid::OnDoubleClick(const Cell& cell)
{
    if (auto* check = qobject_cast<QCheckBox*>(cell.Control))
        check->toggle(); // back to before the first click
    const int row = topRow_ + cell.Index;
    if (MayLeaveFocus())
        rows_.RowOpened(row);
    return true;
}

void EditorGrid::keyPressEvent(QKeyEvent* event)
{
    if (!CellKeyDown(currentColumn_, event->key(), event->modifiers().toInt()))
        QWidget::keyPressEvent(event);
}

void EditorGrid::wheelEvent(QWheelEvent* event)
{
    if (shape_.IgnoresWheel) {
        event->ignore();
        return;
    }
    constexpr int kWheelNotch = 120; // eighths of a degree
    const int rows = QApplication::wheelScrollLines();
    wheelDelta_ += event->angleDelta().y() * rows;
    VScroll1->setValue(VScroll1->value() - wheelDelta_ / kWheelNotch);
    wheelDelta_ %= kWheelNotch; // small deltas of a touch pad add up
    event->accept(); // also at the table's ends: no parent scrolls
}

void EditorGrid::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        palettes_ = MakeCellPalettes(palette(), { shape_.HighlightsRow, shape_.PlainWindowText });
        for (const Cell& cell : cells_) {
            if (columns_[static_cast<size_t>(cell.Column)].Kind != CellKind::RowLabel)
                cell.Control->setPalette(palettes_[static_cast<size_t>(cell.State)]);
        }
    }
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
}

/// Draws the lines between the cells; controls cover the rest.
void EditorGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor line = palette().color(QPalette::Mid);
    const int scrollLeft = VScroll1->x();
    painter.fillRect(0, 0, scrollLeft, kLinePx, line);
    painter.fillRect(0, 0, kLinePx, height(), line);
    for (const GridHeader* header : headers_)
        painter.fillRect(header->geometry().right() + 1, 0, kLinePx, height(), line);
    for (int index = 0; index < shape_.VisibleRows; ++index)
        painter.fillRect(0, CellAt(index, 0).Control->geometry().bottom() + 1, scrollLeft, kLinePx, line);
}

void EditorGrid::resizeEvent(QResizeEvent*)
{
    LayOut();
}

int EditorGrid::RowHeightPx() const
{
    return shape_.LinesPerRow * fontMetrics().lineSpacing() + fontMetrics().height() - fontMetrics().lineSpacing()
        + kRowPaddingPx;
}

int EditorGrid::HeaderHeightPx() const
{
    return fontMetrics().height() + kHeaderPaddingPx;
}

int EditorGrid::ColumnWidthPx(const GridColumn& column) const
{
    return column.WidthDigits * fontMetrics().horizontalAdvance(u'0') + kColumnPaddingPx;
}

QSize EditorGrid::sizeHint() const
{
    int width = kLinePx + VScroll1->sizeHint().width();
    for (const GridColumn& column : columns_)
        width += ColumnWidthPx(column) + kLinePx;
    const int height = kLinePx + HeaderHeightPx() + shape_.VisibleRows * (RowHeightPx() + kLinePx);
    return { width, height };
}

QSize EditorGrid::minimumSizeHint() const
{
    return sizeHint();
}

/// What each column of numbers gets of the width that is left. A last column of text takes all of it.
int EditorGrid::SharePx() const
{
    const auto isNumber = [](const GridColumn& column) { return column.Kind == CellKind::Number; };
    if (!isNumber(columns_.back()))
        return 0;
    const auto sharing = static_cast<int>(std::count_if(columns_.begin(), columns_.end(), isNumber));
    return std::max(0, width() - sizeHint().width()) / sharing;
}

void EditorGrid::LayOut()
{
    const int scrollLeft = width() - VScroll1->sizeHint().width();
    const int headerBottom = kLinePx + HeaderHeightPx();
    const int rowHeight = RowHeightPx();
    const int share = SharePx();
    int left = kLinePx;
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
        const GridColumn& description = columns_[static_cast<size_t>(column)];
        const bool isLast = column + 1 == static_cast<int>(columns_.size());
        const int columnWidth = isLast
            ? scrollLeft - kLinePx - left
            : ColumnWidthPx(description) + (description.Kind == CellKind::Number ? share : 0);
        headers_[static_cast<size_t>(column)]->setGeometry(left, kLinePx, columnWidth, HeaderHeightPx());
        for (int index = 0; index < shape_.VisibleRows; ++index) {
            const int top = headerBottom + index * (rowHeight + kLinePx);
            CellAt(index, column).Control->setGeometry(left, top, columnWidth, rowHeight);
        }
        left += columnWidth + kLinePx;
    }
    VScroll1->setGeometry(scrollLeft, 0, width() - scrollLeft, height());
}

} // namespace tarvik
