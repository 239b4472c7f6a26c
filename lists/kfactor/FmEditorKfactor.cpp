#include "lists/kfactor/FmEditorKfactor.h"
#include "lists/editor/editorGeneral.h"

#include "app/forms/focusRules.h"
#include "app/message/message.h"
#include "lists/kfactor/kfactorCells.h"
#include "lists/kfactor/kfactorDiagram.h"
#include "screen/diagram/datasetViewer.h"

#include <QPushButton>
#include <QScopedValueRollback>

#include <array>

namespace tarvik {

namespace {

constexpr EditorFrame kFrame{ "FmEditorKfactor", FileClassKfactorTable, TextId::KfactorEditorTitle,
    HelpId::CommandKfactorTableEditor, HelpId::CommandKfactorTableEditor, TextId::CsvExtensionOfTables,
    &EditorState::KfactorFileName };
constexpr EditorHead kHead{ TextId::KfactorTableKeyword, "FrKfactors", TextId::KfactorEntries };
constexpr int kFrequencyLength = 13;
constexpr int kLevelLength = 6;
constexpr std::array kColumns{ kKfactorColumnFrequency, kKfactorColumnPassive, kKfactorColumnActive };

GridShape KfactorGrid()
{
    GridShape shape{ kKfactorRows };
    shape.FirstLabel = 1;
    shape.CellHelp = HelpId::CommandKfactorTableEditor;
    return shape;
}

std::vector<GridColumn> KfactorGridColumns()
{
    return { { "LbCol0", CellKind::RowLabel, TextId::KfactorRowColumn, 0, 6 },
        { "TbCol1", CellKind::Number, TextId::KfactorFrequencyColumn, kFrequencyLength, 18 },
        { "TbCol2", CellKind::Number, TextId::KfactorPassiveColumn, kLevelLength, 16 },
        { "TbCol3", CellKind::Number, TextId::KfactorActiveColumn, kLevelLength, 16 } };
}

} // namespace

FmEditorKfactor::FmEditorKfactor(QWidget* parent)
    : FmEditorBase(kFrame, kHead, KfactorGrid(), KfactorGridColumns(), parent)
{
    BuildCommands();
}

void FmEditorKfactor::BuildCommands()
{
    QWidget* list = Grid().parentWidget();
    BtSort = NewButton(list, "BtSort", { TextId::EditorSort, TextId::EditorSortHint });
    BtView = NewButton(list, "BtView", { TextId::EditorView, TextId::EditorViewHint });
    BtDelete = NewButton(list, "BtDelete", { TextId::EditorDelete, TextId::EditorDeleteHint });
    SkipLeaveCheck(BtDelete);
    AddCommand(BtSort);
    AddCommand(BtView);
    AddCommandSpace();
    AddCommand(BtDelete);
    connect(BtSort, &QPushButton::clicked, this, &FmEditorKfactor::SortKfactorTable);
    connect(BtView, &QPushButton::clicked, this, &FmEditorKfactor::OnView);
    connect(BtDelete, &QPushButton::clicked, this, &FmEditorKfactor::OnDelete);
}

void FmEditorKfactor::ClearRows()
{
    Kfactors() = {};
}

bool FmEditorKfactor::ReadList(const QString& path, QString& name, QString& description)
{
    const bool isRead = LoadKfactorFile(path, Kfactors());
    name = Kfactors().Name;
    description = Kfactors().Description;
    return isRead;
}

void FmEditorKfactor::TakeHead(const QString& name, const QString& description)
{
    Kfactors().Name = name;
    Kfactors().Description = description;
}

bool FmEditorKfactor::WriteList(const QString& path, const QString& name, const QString& description)
{
    TakeHead(name, description);
    return WriteKfactorFile(path, Kfactors());
}

/// The entries are counted before the cells are checked.
bool FmEditorKfactor::Validate()
{
    return ValidateHead() && ValidateCount() && ValidatePage() && ValidateFrequencies();
}

bool FmEditorKfactor::ValidateCount()
{
    if (UsedKfactorRows(Kfactors()) >= kFewestKfactorRows)
        return true;
    CellSetFocus(Grid().TopRow(), kKfactorColumnPassive);
    MsgOk(TextId::TooFewEntries);
    return false;
}

bool FmEditorKfactor::ValidateFrequencies()
{
    const int row = DuplicateKfactorRow(Kfactors());
    if (row < 0)
        return true;
    Grid().GoTo(row, kKfactorColumnFrequency);
    MsgOkNum(TextId::DuplicateFrequency, row + 1);
    return false;
}

bool FmEditorKfactor::IsRowUsed(int row) const
{
    return Kfactors().Row(row).Used;
}

QString FmEditorKfactor::CellText(int row, int column) const
{
    return KfactorCellText(Kfactors().Row(row), column);
}

bool FmEditorKfactor::HasText(int row)
{
    return std::any_of(
        kColumns.begin(), kColumns.end(), [&](int column) { return !Grid().TextInCell(row, column).isEmpty(); });
}

void FmEditorKfactor::TextChanged(int row, int, const QString&)
{
    SetDirty(); // the entry gets the value when the cell is left
    EditRow(Kfactors().Rows, row, *this, [&](KfactorEntry& entry) { entry.Used = HasText(row); });
}

bool FmEditorKfactor::CheckCell(int row, int column, QString& text)
{
    bool passed = false;
    EditRow(Kfactors().Rows, row, *this, [&](KfactorEntry& entry) { passed = CheckKfactorCell(entry, column, text); });
    return passed;
}

void FmEditorKfactor::RowSelected(int row)
{
    BtDelete->setEnabled(Kfactors().Row(row).Used);
}

void FmEditorKfactor::RowChanged(int row, const KfactorEntry&, const KfactorEntry& after)
{
    SetDirty();
    if (row == Grid().CurrentRow())
        BtDelete->setEnabled(after.Used);
}

/// The row keeps its frequency, which counts as a duplicate further down.
void FmEditorKfactor::OnDelete()
{
    if (!MayLeaveHead())
        return;
    Grid().ShowCurrentRow();
    EditRow(Kfactors().Rows, Grid().CurrentRow(), *this, [](KfactorEntry& entry) { entry.Used = false; });
    Grid().FillRows(true);
    Grid().FocusCurrent();
}

bool FmEditorKfactor::SortKfactorTable()
{
    if (!Validate())
        return false;
    TakeHead(ListName(), ListDescription());
    const BusyPointer busy(*this);
    const QScopedValueRollback dirty(Editor().EditorDirty); // sorting is no change to be asked about
    if (!EditRows(Kfactors().Rows, *this, [] { return SortKfactorRows(Kfactors()); }))
        return false;
    ShowFromTop();
    return true;
}

void FmEditorKfactor::OnView()
{
    if (SortKfactorTable())
        DatasetShow(KfactorDiagram(Kfactors(), windowTitle()));
}

} // namespace tarvik
