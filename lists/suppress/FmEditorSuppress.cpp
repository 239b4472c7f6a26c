#include "lists/suppress/FmEditorSuppress.h"
#include "lists/editor/editorGeneral.h"

#include "app/forms/focusRules.h"
#include "link/classes/textRules.h"
#include "lists/suppress/suppressCells.h"

#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr EditorFrame kFrame{ "FmEditorSuppress", FileClassSuppressList, TextId::SuppressEditorTitle,
    HelpId::CommandSuppressListEditor, HelpId::CommandSuppressListEditor, TextId::CsvExtensionOfTables };
constexpr EditorHead kHead{ TextId::SuppressListKeyword, "FrSuppressLst", TextId::SuppressEntries };
constexpr int kFrequencyLength = 13;
constexpr int kShortCells = 4;
constexpr int kShortDescription = 20;
constexpr std::array kTextColumns{ kSuppressColumnStart, kSuppressColumnStop, kSuppressColumnDescription };

GridShape SuppressGrid()
{
    GridShape shape{ kSuppressRows };
    shape.CellHelp = HelpId::CommandSuppressListEditor;
    return shape;
}

std::vector<GridColumn> SuppressGridColumns()
{
    return { { "LbCol0", CellKind::RowLabel, TextId::SuppressRowColumn, 0, 5 },
        { "CbCol1", CellKind::Check, TextId::SuppressIncludeColumn, 0, 9 },
        { "TbCol2", CellKind::Number, TextId::SuppressStartColumn, kFrequencyLength, 16 },
        { "TbCol3", CellKind::Number, TextId::SuppressStopColumn, kFrequencyLength, 16 },
        { "TbCol4", CellKind::Text, TextId::SuppressDescriptionColumn, kTextLength, 38, false, nullptr, kShortCells,
            kShortDescription } };
}

} // namespace

FmEditorSuppress::FmEditorSuppress(QWidget* parent)
    : FmEditorBase(kFrame, kHead, SuppressGrid(), SuppressGridColumns(), parent)
{
    BuildCommands();
}

void FmEditorSuppress::BuildCommands()
{
    QWidget* list = Grid().parentWidget();
    BtSort = NewButton(list, "BtSort", { TextId::EditorSort, TextId::EditorSortHint });
    BtSortMerge = NewButton(list, "BtSortMerge", { TextId::EditorSortMerge, TextId::EditorSortMergeHint });
    BtDelete = NewButton(list, "BtDelete", { TextId::EditorDelete, TextId::EditorDeleteHint });
    SkipLeaveCheck(BtDelete);
    AddCommand(BtSort);
    AddCommand(BtSortMerge);
    AddCommandSpace();
    AddCommand(BtDelete);
    connect(BtSort, &QPushButton::clicked, this, &FmEditorSuppress::SortSuppressList);
    connect(BtSortMerge, &QPushButton::clicked, this, &FmEditorSuppress::SortAndMergeSuppressList);
    connect(BtDelete, &QPushButton::clicked, this, &FmEditorSuppress::OnDelete);
}

void FmEditorSuppress::ClearRows()
{
    table_ = {};
}

bool FmEditorSuppress::ReadList(const QString& path, QString& name, QString& description)
{
    const bool isRead = ReadSuppressFile(path, table_);
    name = table_.Name;
    description = table_.Description;
    return isRead;
}

bool FmEditorSuppress::WriteList(const QString& path, const QString& name, const QString& description)
{
    table_.Name = name;
    table_.Description = description;
    const QScopedValueRollback dirty(Editor().EditorDirty);
    const bool isWritten = EditRows(table_.Rows, *this, [&] { return WriteSuppressFile(path, table_); });
    ShowHead(table_.Name, table_.Description); // as the store has returned them, also if nothing is written
    Grid().FillRows(true);
    return isWritten;
}

bool FmEditorSuppress::IsRowUsed(int row) const
{
    return table_.Row(row).Used;
}

QString FmEditorSuppress::CellText(int row, int column) const
{
    return SuppressCellText(table_.Row(row), column);
}

bool FmEditorSuppress::IsCellChecked(int row, int) const
{
    return table_.Row(row).Include == kInclude;
}

bool FmEditorSuppress::HasText(int row)
{
    return std::any_of(kTextColumns.begin(), kTextColumns.end(),
        [&](int column) { return !Grid().TextInCell(row, column).isEmpty(); });
}

void FmEditorSuppress::TextChanged(int row, int, const QString&)
{
    SetDirty(); // the row gets the value when the cell is left
    EditRow(table_.Rows, row, *this,
        [&](SuppressRow& record) { record.Used = record.Include == kInclude || HasText(row); });
}

void FmEditorSuppress::CheckChanged(int row, int, bool checked)
{
    SetDirty();
    EditRow(table_.Rows, row, *this, [&](SuppressRow& record) {
        record.Include = checked ? kInclude : kExclude;
        record.Used = checked || HasText(row);
    });
}

bool FmEditorSuppress::CheckCell(int row, int column, QString& text)
{
    bool passed = false;
    EditRow(table_.Rows, row, *this, [&](SuppressRow& record) { passed = CheckSuppressCell(record, column, text); });
    return passed;
}

void FmEditorSuppress::RowSelected(int row)
{
    BtDelete->setEnabled(table_.Row(row).Used);
}

void FmEditorSuppress::RowChanged(int row, const SuppressRow&, const SuppressRow& after)
{
    SetDirty();
    if (row == Grid().CurrentRow())
        BtDelete->setEnabled(after.Used);
}

void FmEditorSuppress::OnDelete()
{
    if (!MayLeaveHead())
        return;
    Grid().ShowCurrentRow();
    EditRow(table_.Rows, Grid().CurrentRow(), *this, [](SuppressRow& record) { record = {}; });
    Grid().FillRows(true);
    Grid().FocusCurrent();
}

bool FmEditorSuppress::SortSuppressList()
{
    return Sort(SortSuppressRows);
}

bool FmEditorSuppress::SortAndMergeSuppressList()
{
    return Sort(SortAndMergeSuppressRows);
}

bool FmEditorSuppress::Sort(bool (*sort)(SuppressTable& table))
{
    if (!Validate())
        return false;
    table_.Name = ListName();
    table_.Description = ListDescription();
    const BusyPointer busy(*this);
    const bool wasDirty = Editor().EditorDirty;
    const bool isSorted = EditRows(table_.Rows, *this, [&] { return sort(table_); });
    Editor().EditorDirty = wasDirty || isSorted;
    if (!isSorted)
        return false;
    ShowHead(table_.Name, table_.Description);
    ShowFromTop();
    return true;
}

} // namespace tarvik
