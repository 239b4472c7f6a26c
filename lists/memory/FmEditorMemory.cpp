#include "lists/memory/FmEditorMemory.h"
#include "lists/editor/editorGeneral.h"

#include "app/forms/focusRules.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/classes/model.h"
#include "link/classes/textRules.h"
#include "lists/memory/fmEditorMemoryListProp.h"
#include "lists/memory/memoryCells.h"
#include "lists/memory/memoryEntry.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QPushButton>
#include <QScopedValueRollback>

#include <utility>

namespace tarvik {

namespace {

constexpr EditorFrame kFrame{ "FmEditorMemory", FileClassMemoryList, TextId::MemoryEditorTitle, HelpId::MemoryEditor,
    HelpId::CommandMemoryListEditor };
constexpr EditorHead kHead{ TextId::MemoryListKeyword, "FrMemoryLst", TextId::MemoryEntries };
constexpr int kFrequencyLength = 13;

GridShape MemoryGrid()
{
    GridShape shape{ kMemoryRows };
    shape.HighlightsRow = true;
    shape.CellHelp = HelpId::MemoryEditorCell;
    return shape;
}

std::vector<GridColumn> MemoryGridColumns()
{
    return { { "LbCol0", CellKind::RowLabel, TextId::MemoryRowColumn, 0, 5 },
        { "CbCol1", CellKind::Check, TextId::MemorySuppressedColumn, 0, 12 },
        { "TbCol2", CellKind::Number, TextId::MemoryNumberColumn, 0, 9, true },
        { "TbCol3", CellKind::Number, TextId::MemoryFrequencyColumn, kFrequencyLength, 17, true },
        { "TbCol4", CellKind::Text, TextId::MemoryDemodulationColumn, 0, 13 },
        { "TbCol5", CellKind::Text, TextId::MemoryDescriptionColumn, kTextLength, 38, true } };
}

} // namespace

FmEditorMemory::FmEditorMemory(QWidget* parent)
    : FmEditorBase(kFrame, kHead, MemoryGrid(), MemoryGridColumns(), parent)
{
    BuildCommands();
}

void FmEditorMemory::BuildCommands()
{
    QWidget* list = Grid().parentWidget();
    CbSort = NewCombo(list, "CbSort", TextId::EditorSortHint);
    BtSort = NewButton(list, "BtSort", { TextId::EditorSort, TextId::EditorSortHint });
    BtEdit = NewButton(list, "BtEdit", { TextId::EditorEdit, TextId::EditorEditHint });
    BtDel = NewButton(list, "BtDel", { TextId::EditorDelete, TextId::EditorDeleteHint });
    CbSort->setAccessibleName(LngStr(TextId::EditorSortHint));
    SkipLeaveCheck(BtDel);
    AddCommand(CbSort);
    AddCommand(BtSort);
    AddCommandSpace();
    AddCommand(BtEdit);
    AddCommand(BtDel);
    connect(BtSort, &QPushButton::clicked, this, &FmEditorMemory::OnSort);
    connect(BtEdit, &QPushButton::clicked, this, &FmEditorMemory::ShowEditorDialog);
    connect(BtDel, &QPushButton::clicked, this, &FmEditorMemory::OnDelete);
}

void FmEditorMemory::OnEditorLoad()
{
    CbSort->clear();
    for (int key = 0; key < kMemorySortKeys; ++key)
        CbSort->addItem(LngStr(TextId::MemorySortKeys + key));
}

void FmEditorMemory::OnListShown()
{
    Grid().ShowSortMark(-1, true);
}

void FmEditorMemory::ClearRows()
{
    table_ = {};
    static_cast<void>(ClearMemoryList(table_)); // a failure has been shown; the rows are empty in any case
}

bool FmEditorMemory::ReadList(const QString& path, QString& name, QString& description)
{
    const bool isRead = OpenMemoryList(path, table_);
    name = table_.MemoryListName;
    description = table_.MemoryListDescription;
    return isRead;
}

bool FmEditorMemory::WriteList(const QString& path, const QString& name, const QString& description)
{
    table_.MemoryListName = name;
    table_.MemoryListDescription = description;
    const QScopedValueRollback dirty(Editor().EditorDirty);
    return EditRows(table_.Rows, *this, [&] { return WriteMemoryList(path, table_); });
}

bool FmEditorMemory::IsRowUsed(int row) const
{
    return table_.Row(row).Used;
}

QString FmEditorMemory::CellText(int row, int column) const
{
    return MemoryCellText(table_.Row(row), column);
}

bool FmEditorMemory::IsCellChecked(int row, int) const
{
    return table_.Row(row).Status != 0;
}

void FmEditorMemory::TextChanged(int row, int column, const QString&)
{
    OnTyped(row, column);
}

void FmEditorMemory::CheckChanged(int row, int column, bool checked)
{
    OnTyped(row, column);
    EditRow(table_.Rows, row, *this, [checked](MemoryRecord& record) { record.Status = checked ? 1 : 0; });
}

void FmEditorMemory::OnTyped(int row, int column)
{
    SetDirty(); // the record gets a text when its cell is left
    Grid().ShowSortMark(-1, true);
    if (table_.Row(row).Used)
        return;
    UseRow(row);
    Grid().RefreshCells(row, ColumnsOfNewMemoryRow(column));
}

void FmEditorMemory::UseRow(int row)
{
    EditRow(table_.Rows, row, *this, [&](MemoryRecord&) { UseMemoryRow(table_, row); });
}

/// A value outside the limits is clamped even if its cell was not edited.
bool FmEditorMemory::CheckCell(int row, int column, QString& text)
{
    bool passed = false;
    EditRow(table_.Rows, row, *this, [&](MemoryRecord& record) { passed = CheckMemoryCell(record, column, text); });
    return passed;
}

void FmEditorMemory::RowChanged(int row, const MemoryRecord&, const MemoryRecord& after)
{
    SetDirty();
    if (row == Grid().CurrentRow())
        BtDel->setEnabled(after.Used);
}

void FmEditorMemory::RowSelected(int row)
{
    BtDel->setEnabled(table_.Row(row).Used);
}

void FmEditorMemory::RowOpened(int)
{
    ShowEditorDialog();
}

void FmEditorMemory::HeaderClicked(int column)
{
    const std::optional<MemorySortKey> key = MemorySortKeyOfHeader(column, SortKey());
    if (!key)
        return;
    CbSort->setCurrentIndex(static_cast<int>(*key));
    OnSort();
    Grid().FocusCurrent();
}

void FmEditorMemory::OnSort()
{
    if (!Grid().MayLeaveFocus() || !SortMemoryList())
        return;
    SetDirty();
    ShowFromTop();
    Grid().ShowSortMark(MemoryHeaderOfSortKey(SortKey()), IsAscending(SortKey()));
}

bool FmEditorMemory::SortMemoryList()
{
    table_.MemoryListName = ListName();
    table_.MemoryListDescription = ListDescription();
    const BusyPointer busy(*this);
    const QScopedValueRollback dirty(Editor().EditorDirty); // set by the caller
    return EditRows(table_.Rows, *this, [this] { return tarvik::SortMemoryList(table_, SortKey()); });
}

MemorySortKey FmEditorMemory::SortKey() const
{
    return static_cast<MemorySortKey>(CbSort->currentIndex());
}

void FmEditorMemory::ShowEditorDialog()
{
    if (!Grid().MayLeaveFocus())
        return;
    Grid().ShowCurrentRow();
    const int row = Grid().CurrentRow();
    MemoryEntry() = table_.Row(row);
    fmEditorMemoryListProp dialog(this);
    const bool isCancelled = DialogShow(dialog) != 0;
    const bool wasDirty = Editor().EditorDirty;
    TakeEntry(row); // also if cancelled: a refused OK has stored some values
    if (isCancelled)
        Editor().EditorDirty = wasDirty;
    Grid().FillRows(true);
    RowSelected(row);
    Grid().FocusCurrent();
}

void FmEditorMemory::TakeEntry(int row)
{
    EditRow(table_.Rows, row, *this, [&](MemoryRecord& record) {
        const bool wasUsed = std::exchange(record, MemoryEntry()).Used;
        if (record.Used && !wasUsed)
            UseMemoryRow(table_, row);
    });
}

void FmEditorMemory::OnDelete()
{
    if (!MayLeaveHead())
        return;
    Grid().ShowCurrentRow();
    EditRow(table_.Rows, Grid().CurrentRow(), *this, [](MemoryRecord& record) { record.Used = false; });
    Grid().FillRows(true);
    Grid().FocusCurrent();
    SetDirty();
    BtDel->setEnabled(false);
}

} // namespace tarvik
