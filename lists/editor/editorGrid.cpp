#include "lists/editor/editorGrid.h"

#include "app/forms/focusRules.h"
#include "app/forms/form.h"
#include "app/text/lang.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kReadOnlyLength = 32767; ///< no limit, as nothing can be typed

/// Rows that a key moves by; 0 for other keys.
int StepOfKey(int key, int page)
{
    switch (key) {
    case Qt::Key_Up:
        return -1;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 1;
    case Qt::Key_PageUp:
        return -page;
    case Qt::Key_PageDown:
        return page;
    default:
        return 0;
    }
}

Qt::Alignment AlignmentOf(CellKind kind)
{
    const bool right = kind == CellKind::RowLabel || kind == CellKind::Number;
    const Qt::Alignment horizontal = kind == CellKind::Check ? Qt::AlignHCenter
        : right                                              ? Qt::AlignRight
                                                             : Qt::AlignLeft;
    return horizontal | Qt::AlignVCenter;
}

} // namespace

bool GridRows::IsCellInvalid(int, int) const
{
    return false;
}

bool GridRows::MayLeaveRow(int)
{
    return true;
}

EditorGrid::EditorGrid(QWidget* parent, GridRows& rows, const GridShape& shape, std::vector<GridColumn> columns)
    : QWidget(parent)
    , rows_(rows)
    , shape_(shape)
    , columns_(std::move(columns))
    , palettes_(MakeCellPalettes(palette(), { shape.HighlightsRow, shape.PlainWindowText }))
{
    setObjectName(QString::fromLatin1(shape_.Name));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    BuildHeaders();
    cells_.reserve(columns_.size() * static_cast<size_t>(shape_.VisibleRows));
    for (int index = 0; index < shape_.VisibleRows; ++index)
        BuildRow(index);
    BuildScrollBar();
    ResetCurrent();
}

void EditorGrid::BuildHeaders()
{
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
        const GridColumn& description = columns_[static_cast<size_t>(column)];
        auto* header = new GridHeader(this, description.Sorts);
        const QString name = QString::fromLatin1(description.HeaderName);
        NameControl(header, name.isEmpty() ? QStringLiteral("LbHdr%1").arg(column) : name);
        LngSetCtrl(header, description.HeaderText);
        header->setAccessibleName(PlainCaption(header->text()));
        header->setAlignment(AlignmentOf(description.Kind));
        SetControlHelp(header, shape_.CellHelp);
        connect(header, &GridHeader::Clicked, this, [this, column] {
            if (MayLeaveFocus())
                rows_.HeaderClicked(column);
        });
        headers_.push_back(header);
    }
}

void EditorGrid::BuildRow(int index)
{
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
        QWidget* control = BuildCell(index, column);
        control->setObjectName(
            QStringLiteral("%1[%2]").arg(QString::fromLatin1(columns_[static_cast<size_t>(column)].Name)).arg(index));
        SetControlHelp(control, shape_.CellHelp);
        control->installEventFilter(this);
        if (HasInput(column))
            CheckOnLeave(control, [this, index, column] { return CheckVisibleCell(index, column); });
        if (columns_[static_cast<size_t>(column)].Kind != CellKind::RowLabel)
            control->setPalette(palettes_.front());
        placeOf_.insert(control, static_cast<int>(cells_.size()));
        cells_.push_back({ control, dynamic_cast<GridTextCell*>(control), index, column, CellState::Plain });
    }
}

QWidget* EditorGrid::BuildCell(int index, int column)
{
    const GridColumn& description = columns_[static_cast<size_t>(column)];
    if (description.Kind == CellKind::RowLabel)
        return new GridRowLabel(this);
    if (description.Kind == CellKind::Check) {
        auto* check = new GridCheck(this);
        connect(
            check, &QCheckBox::toggled, this, [this, index, column](bool checked) { OnCheck(index, column, checked); });
        return check;
    }
    if (description.Kind == CellKind::Lines)
        return BuildLines(index, column);
    auto* text = new GridText(this);
    text->setAlignment(AlignmentOf(description.Kind));
    if (!HasInput(column)) {
        text->setReadOnly(true);
        text->setFocusPolicy(Qt::NoFocus);
        text->SetLimit(kReadOnlyLength);
        return text;
    }
    text->SetLimit(LengthOfCell(description, index));
    description.Kind == CellKind::Number ? LimitToNumber(text) : LimitToAnsi(text);
    connect(text, &QLineEdit::textChanged, this,
        [this, index, column](const QString& changed) { OnText(index, column, changed); });
    return text;
}

QWidget* EditorGrid::BuildLines(int index, int column)
{
    auto* lines = new GridLines(this);
    lines->SetLimit(LengthOfCell(columns_[static_cast<size_t>(column)], index));
    connect(lines, &GridLines::Edited, this,
        [this, index, column](const QString& changed) { OnText(index, column, changed); });
    return lines;
}

int EditorGrid::LengthOfCell(const GridColumn& column, int index) const
{
    return index < shape_.VisibleRows - column.ShortCells ? column.MaxLength : column.ShortLength;
}

void EditorGrid::BuildScrollBar()
{
    VScroll1 = new QScrollBar(Qt::Vertical, this);
    NameControl(VScroll1, QString::fromLatin1(shape_.ScrollBarName));
    SetControlHelp(VScroll1, shape_.CellHelp);
    VScroll1->setRange(0, shape_.Rows - shape_.VisibleRows);
    VScroll1->setPageStep(shape_.VisibleRows);
    VScroll1->installEventFilter(this);
    connect(VScroll1, &QScrollBar::valueChanged, this, &EditorGrid::OnScroll);
}

bool EditorGrid::HasInput(int column) const
{
    if (column < 0 || column >= static_cast<int>(columns_.size()))
        return false;
    const GridColumn& description = columns_[static_cast<size_t>(column)];
    return description.Kind == CellKind::Check || (description.MaxLength > 0 && description.Kind != CellKind::RowLabel);
}

EditorGrid::Cell& EditorGrid::CellAt(int index, int column)
{
    return cells_[static_cast<size_t>(index) * columns_.size() + static_cast<size_t>(column)];
}

const EditorGrid::Cell& EditorGrid::CellAt(int index, int column) const
{
    return cells_[static_cast<size_t>(index) * columns_.size() + static_cast<size_t>(column)];
}

EditorGrid::Cell* EditorGrid::CellOf(const QObject* control)
{
    const auto found = placeOf_.constFind(control);
    return found == placeOf_.constEnd() ? nullptr : &cells_[static_cast<size_t>(*found)];
}

int EditorGrid::IndexOfRow(int row) const
{
    const int index = row - topRow_;
    return topRow_ >= 0 && index >= 0 && index < shape_.VisibleRows ? index : -1;
}

QString EditorGrid::CellName(int index, int column) const
{
    return headers_[static_cast<size_t>(column)]->accessibleName() + u' '
        + QString::number(topRow_ + index + shape_.FirstLabel);
}

void EditorGrid::FillRows(bool force)
{
    const bool samePage = VScroll1->value() == topRow_;
    topRow_ = VScroll1->value();
    if (!samePage || force) {
        const QScopedValueRollback filling(filling_, true);
        pendingRow_ = -1;
        for (int index = 0; index < shape_.VisibleRows; ++index) {
            const bool used = rows_.IsRowUsed(topRow_ + index);
            for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
                Cell& cell = CellAt(index, column);
                FillCell(cell, used);
                cell.Control->setAccessibleName(CellName(index, column));
            }
        }
    }
    for (Cell& cell : cells_)
        ColourCell(cell);
}

void EditorGrid::FillCell(Cell& cell, bool used)
{
    const int row = topRow_ + cell.Index;
    switch (columns_[static_cast<size_t>(cell.Column)].Kind) {
    case CellKind::RowLabel:
        static_cast<QLabel*>(cell.Control)->setText(QString::number(row + shape_.FirstLabel));
        break;
    case CellKind::Check:
        static_cast<QCheckBox*>(cell.Control)->setChecked(used && rows_.IsCellChecked(row, cell.Column));
        break;
    default:
        cell.Input->SetText(rows_.CellText(row, cell.Column));
        break;
    }
}

void EditorGrid::RefreshCells(int row, const std::vector<int>& columns)
{
    const int index = IndexOfRow(row);
    if (index < 0)
        return;
    const QScopedValueRollback filling(filling_, true);
    for (const int column : columns)
        FillCell(CellAt(index, column), rows_.IsRowUsed(row));
}

CellState EditorGrid::StateOf(const Cell& cell) const
{
    const int row = topRow_ + cell.Index;
    if (cell.Control == focused_)
        return CellState::Focused;
    if (rows_.IsCellInvalid(row, cell.Column))
        return CellState::Invalid;
    return shape_.HighlightsRow && row == currentRow_ ? CellState::CurrentRow : CellState::Plain;
}

void EditorGrid::ColourCell(Cell& cell)
{
    if (columns_[static_cast<size_t>(cell.Column)].Kind == CellKind::RowLabel)
        return;
    const CellState state = StateOf(cell);
    if (state == cell.State)
        return;
    cell.State = state;
    cell.Control->setPalette(palettes_[static_cast<size_t>(state)]);
}

void EditorGrid::ColourRow(int index)
{
    for (int column = 0; index >= 0 && column < static_cast<int>(columns_.size()); ++column)
        ColourCell(CellAt(index, column));
}

void EditorGrid::SetCurrent(int row, int column)
{
    const int before = currentRow_;
    currentRow_ = row;
    currentColumn_ = column;
    if (before != row)
        ColourRow(IndexOfRow(before));
    ColourRow(IndexOfRow(row));
    rows_.RowSelected(row);
}

bool EditorGrid::CellKeyDown(int column, int key, int)
{
    const int step = StepOfKey(key, shape_.VisibleRows);
    if (step == 0)
        return false;
    const int target = std::clamp(currentRow_ + step, 0, shape_.Rows - 1);
    if (target == currentRow_ || !Commit() || !rows_.MayLeaveRow(currentRow_))
        return true;
    GoTo(target, column);
    return true;
}

void EditorGrid::GoTo(int row, int column)
{
    ScrollIntoView(row);
    CellSetFocus(row, column);
}

void EditorGrid::CellSetFocus(int row, int column)
{
    const int index = IndexOfRow(row);
    if (index < 0 || !HasInput(column))
        return;
    const Cell& cell = CellAt(index, column);
    cell.Control->setFocus(Qt::OtherFocusReason);
    SetCurrent(row, column);
    if (cell.Input != nullptr)
        cell.Input->SelectAll();
}

bool EditorGrid::Commit()
{
    const Cell* cell = CellOf(focused_);
    const int row = cell != nullptr ? topRow_ + cell->Index : pendingRow_;
    const int column = cell != nullptr ? cell->Column : pendingColumn_;
    if (IndexOfRow(row) < 0 || CheckVisibleCell(IndexOfRow(row), column))
        return true;
    CellSetFocus(row, column);
    return false;
}

bool EditorGrid::MayLeaveFocus()
{
    return Commit() && CheckFocused(window());
}

bool EditorGrid::CheckPage()
{
    for (const Cell& cell : cells_) {
        if (!HasInput(cell.Column) || CheckVisibleCell(cell.Index, cell.Column))
            continue;
        CellSetFocus(topRow_ + cell.Index, cell.Column);
        return false;
    }
    return true;
}

bool EditorGrid::CheckVisibleCell(int index, int column)
{
    const int row = topRow_ + index;
    Cell& cell = CellAt(index, column);
    if (cell.Input == nullptr)
        return true;
    QString text = cell.Input->Text();
    if (rows_.IsRowUsed(row) && !rows_.CheckCell(row, column, text))
        return false;
    if (row == pendingRow_ && column == pendingColumn_)
        pendingRow_ = -1;
    ColourCell(cell);
    if (cell.Input->Text() == text)
        return true;
    const QScopedValueRollback filling(filling_, true);
    cell.Input->SetText(text);
    return true;
}

void EditorGrid::OnText(int index, int column, const QString& text)
{
    if (filling_)
        return;
    pendingRow_ = topRow_ + index;
    pendingColumn_ = column;
    rows_.TextChanged(topRow_ + index, column, text);
    ColourRow(index);
}

QString EditorGrid::TextInCell(int row, int column) const
{
    const int index = IndexOfRow(row);
    const GridTextCell* input = index < 0 ? nullptr : CellAt(index, column).Input;
    return input == nullptr ? QString() : input->Text();
}

void EditorGrid::OnCheck(int index, int column, bool checked)
{
    if (!filling_)
        rows_.CheckChanged(topRow_ + index, column, checked);
}

void EditorGrid::OnScroll(int)
{
    if (moving_)
        return;
    if (!Commit()) {
        const QScopedValueRollback moving(moving_, true);
        VScroll1->setValue(topRow_);
        return;
    }
    const bool hadFocus = isAncestorOf(QApplication::focusWidget()) || hasFocus();
    FillRows(false);
    if (hadFocus)
        FocusCurrent();
}

void EditorGrid::ScrollTo(int topRow)
{
    {
        const QScopedValueRollback moving(moving_, true);
        VScroll1->setValue(topRow);
    }
    FillRows(false);
}

void EditorGrid::ScrollToTop()
{
    const QScopedValueRollback moving(moving_, true);
    VScroll1->setValue(0);
}

void EditorGrid::ShowText(int row, int column, const QString& text)
{
    const QScopedValueRollback filling(filling_, true);
    if (const int index = IndexOfRow(row); index >= 0)
        CellAt(index, column).Input->SetText(text);
}

void EditorGrid::TurnPage(bool up)
{
    VScroll1->setValue(VScroll1->value() + (up ? -shape_.VisibleRows : shape_.VisibleRows));
}

void EditorGrid::ShowCurrentRow()
{
    ScrollIntoView(currentRow_);
}

void EditorGrid::ScrollIntoView(int row)
{
    if (row < topRow_)
        ScrollTo(row);
    else if (row >= topRow_ + shape_.VisibleRows)
        ScrollTo(row - shape_.VisibleRows + 1);
}

void EditorGrid::ResetCurrent()
{
    currentRow_ = 0;
    if (HasInput(currentColumn_))
        return;
    const auto isEditable = [](const GridColumn& column) { return column.MaxLength > 0; };
    currentColumn_ = static_cast<int>(std::find_if(columns_.begin(), columns_.end(), isEditable) - columns_.begin());
}

void EditorGrid::FocusCurrent()
{
    if (IndexOfRow(currentRow_) < 0)
        setFocus(Qt::OtherFocusReason);
    else
        CellSetFocus(currentRow_, currentColumn_);
}

QWidget* EditorGrid::LastInput() const
{
    const auto last =
        std::find_if(cells_.rbegin(), cells_.rend(), [this](const Cell& cell) { return HasInput(cell.Column); });
    return last->Control;
}

void EditorGrid::ShowSortMark(int column, bool ascending)
{
    for (int at = 0; at < static_cast<int>(headers_.size()); ++at) {
        const SortMark mark = ascending ? SortMark::Up : SortMark::Down;
        headers_[static_cast<size_t>(at)]->SetSortMark(at == column ? mark : SortMark::None);
    }
}

} // namespace tarvik
