#include "lists/antenna/FmEditorAntenna.h"

#include "app/forms/focusRules.h"
#include "app/message/message.h"
#include "link/classes/textRules.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>

namespace tarvik {

namespace {

constexpr EditorFrame kFrame{ "FmEditorAntenna", FileClassAntennaList, TextId::AntennaEditorTitle,
    HelpId::CommandAntennaListEditor, HelpId::CommandAntennaListEditor };
constexpr EditorHead kHead{ TextId::AntennaListKeyword, "FrAntennaLst", TextId::AntennaEntries };
constexpr int kColumnName = 2;

GridShape AntennaGrid()
{
    GridShape shape{ kAntennaRows };
    shape.FirstLabel = 1;
    shape.HighlightsRow = true;
    shape.PlainWindowText = true;
    shape.CellHelp = HelpId::CommandAntennaListEditor;
    return shape;
}

std::vector<GridColumn> AntennaGridColumns()
{
    return { { "LbCol0", CellKind::RowLabel, TextId::AntennaRowColumn, 0, 5 },
        { "CbCol1", CellKind::Check, TextId::AntennaIncludeColumn, 0, 9 },
        { "TbCol3", CellKind::Text, TextId::AntennaNameColumn, kTextLength, 34, false, "LbHdr3" } };
}

} // namespace

FmEditorAntenna::FmEditorAntenna(QWidget* parent)
    : FmEditorBase(kFrame, kHead, AntennaGrid(), AntennaGridColumns(), parent)
{
    BuildCommands();
    ConnectPanel();
}

void FmEditorAntenna::BuildCommands()
{
    BtDelete = NewButton(Grid().parentWidget(), "BtDelete", { TextId::EditorDelete, TextId::EditorDeleteHint });
    SkipLeaveCheck(BtDelete);
    AddCommandSpace();
    AddCommand(BtDelete);
    connect(BtDelete, &QPushButton::clicked, this, &FmEditorAntenna::OnDelete);
    panel_ = new AntennaPanel(this);
    AddPanel(panel_);
}

void FmEditorAntenna::ConnectPanel()
{
    connect(panel_, &AntennaPanel::Edited, this, &FmEditorAntenna::OnFieldEdited);
    connect(panel_, &AntennaPanel::BitsEdited, this, &FmEditorAntenna::OnBitsEdited);
    connect(panel_->BtSelectKfactor, &QPushButton::clicked, this, &FmEditorAntenna::OnSelectKfactor);
    connect(panel_->BtNewKfactor, &QPushButton::clicked, this, &FmEditorAntenna::OnNewKfactor);
    connect(panel_->BtSelectCorrectionSet, &QPushButton::clicked, this, &FmEditorAntenna::OnSelectCorrectionSet);
    connect(panel_->BtNewCorrectionSet, &QPushButton::clicked, this, &FmEditorAntenna::OnNewCorrectionSet);
    const auto check = [this](AntennaField field) {
        CheckOnLeave(panel_->BoxOf(field), [this, field] { return CheckField(field); });
    };
    for (const AntennaField field : kAntennaNumbers)
        check(field);
    for (const AntennaField field : kAntennaTexts)
        check(field);
}

void FmEditorAntenna::ClearRows()
{
    table_ = {};
}

bool FmEditorAntenna::ReadList(const QString& path, QString& name, QString& description)
{
    const bool isRead = ReadAntennaFile(path, table_);
    name = table_.Name;
    description = table_.Description;
    return isRead;
}

bool FmEditorAntenna::WriteList(const QString& path, const QString& name, const QString& description)
{
    table_.Name = name;
    table_.Description = description;
    return WriteAntennaFile(path, table_);
}

/// The boxes of the selected row are checked as on leaving them, so that what they show is what is saved.
bool FmEditorAntenna::Validate()
{
    if (!ValidateHead() || !Grid().Commit())
        return false;
    if (!AreValid(std::array{ AntennaField::Name }) || !LineValid() || !AreValid(kAntennaTexts))
        return false;
    const auto refusal = [this] {
        const QScopedValueRollback dirty(
            Editor().EditorDirty); // swapping start and stop is no change to be asked about
        return EditRows(table_.Rows, *this, [this] { return ValidateAntennaRows(table_.Rows); });
    }();
    Grid().FillRows(true);
    SelectAntennaRow(selected_, true); // start and stop may have been swapped
    if (!refusal.has_value())
        return true;
    if (refusal->Fault != AntennaFault::TooManyIncluded) {
        const bool isStart = refusal->Fault == AntennaFault::StartFrequency;
        Grid().GoTo(refusal->Row, kColumnName);
        panel_->BoxOf(isStart ? AntennaField::StartFrequency : AntennaField::StopFrequency)->setFocus();
    }
    return false;
}

void FmEditorAntenna::OnListShown()
{
    SelectAntennaRow(0, true);
}

bool FmEditorAntenna::LineValid()
{
    return AreValid(kAntennaNumbers);
}

bool FmEditorAntenna::AreValid(std::span<const AntennaField> fields)
{
    for (const AntennaField field : fields) {
        if (CheckField(field))
            continue;
        panel_->BoxOf(field)->setFocus();
        return false;
    }
    return true;
}

bool FmEditorAntenna::CheckField(AntennaField field)
{
    if (!table_.Row(selected_).Used)
        return true;
    QString text = panel_->BoxOf(field)->text();
    bool passed = false;
    EditRow(table_.Rows, selected_, *this, [&](AntennaRow& row) { passed = CheckAntennaField(row, field, text); });
    if (passed)
        panel_->SetText(field, text);
    return passed;
}

/// The texts are checked as well: buttons that skip the check of a box can have the focus.
bool FmEditorAntenna::MayLeaveRow(int)
{
    return LineValid() && AreValid(kAntennaTexts);
}

void FmEditorAntenna::RowSelected(int row)
{
    SelectAntennaRow(row, false);
}

void FmEditorAntenna::SelectAntennaRow(int row, bool force)
{
    if (row != selected_ || force) {
        selected_ = row;
        const QScopedValueRollback dirty(Editor().EditorDirty); // nor is resetting bits that are out of range
        EditRow(table_.Rows, row, *this, [this](AntennaRow& record) { panel_->ShowRow(record); });
    }
    BtDelete->setEnabled(table_.Row(row).Used);
}

bool FmEditorAntenna::IsRowUsed(int row) const
{
    return table_.Row(row).Used;
}

QString FmEditorAntenna::CellText(int row, int column) const
{
    return column == kColumnName ? table_.Row(row).Name : QString();
}

bool FmEditorAntenna::IsCellChecked(int row, int) const
{
    return table_.Row(row).Include != 0;
}

void FmEditorAntenna::UseRow(int row)
{
    SetDirty(); // the row gets the value when the control is left
    EditRow(table_.Rows, row, *this, [](AntennaRow& record) { record.Used = true; });
}

void FmEditorAntenna::TextChanged(int row, int, const QString& text)
{
    UseRow(row);
    if (row == selected_)
        panel_->SetText(AntennaField::Name, text);
}

void FmEditorAntenna::CheckChanged(int row, int, bool checked)
{
    UseRow(row);
    EditRow(table_.Rows, row, *this, [checked](AntennaRow& record) { record.Include = checked ? 1 : 0; });
}

bool FmEditorAntenna::CheckCell(int row, int column, QString& text)
{
    if (column != kColumnName)
        return true;
    bool passed = false;
    EditRow(table_.Rows, row, *this,
        [&](AntennaRow& record) { passed = CheckAntennaField(record, AntennaField::Name, text); });
    return passed;
}

void FmEditorAntenna::OnFieldEdited(AntennaField field)
{
    UseRow(selected_);
    if (field == AntennaField::Name)
        Grid().ShowText(selected_, kColumnName, panel_->BoxOf(field)->text());
}

void FmEditorAntenna::OnBitsEdited(AntennaBits bits, int pattern)
{
    UseRow(selected_);
    EditRow(table_.Rows, selected_, *this, [&](AntennaRow& row) { row.*bits = static_cast<std::int16_t>(pattern); });
}

void FmEditorAntenna::RowChanged(int row, const AntennaRow&, const AntennaRow& after)
{
    SetDirty();
    if (row == selected_)
        BtDelete->setEnabled(after.Used);
}

/// Deleting a row is no change that is asked about.
void FmEditorAntenna::OnDelete()
{
    if (!MayLeaveHead())
        return;
    Grid().ShowCurrentRow();
    const QScopedValueRollback dirty(Editor().EditorDirty);
    EditRow(table_.Rows, selected_, *this, [](AntennaRow& row) { row = {}; });
    Grid().FillRows(true);
    SelectAntennaRow(selected_, true);
    Grid().FocusCurrent();
}

/// Takes over the band of a K-factor table. False after a message.
bool FmEditorAntenna::TakeBand(const QString& path)
{
    AntennaRow band = table_.Row(selected_);
    {
        const BusyPointer busy(*this);
        if (!TheListEditors()->ReadKfactorBand(path, band.StartFrequency, band.StopFrequency))
            return false;
    }
    EditRow(table_.Rows, selected_, *this, [&](AntennaRow& row) {
        row.StartFrequency = band.StartFrequency;
        row.StopFrequency = band.StopFrequency;
    });
    for (const AntennaField field : { AntennaField::StartFrequency, AntennaField::StopFrequency })
        panel_->SetText(field, AntennaFieldText(table_.Row(selected_), field));
    return true;
}

/// Links the selected antenna to a file, by its base name.
void FmEditorAntenna::Link(AntennaField field, const QString& fileName)
{
    UseRow(selected_);
    panel_->SetText(field, QFileInfo(fileName).completeBaseName());
    static_cast<void>(CheckField(field)); // a name that is no valid text is reported and stays in the box
}

void FmEditorAntenna::OnSelectKfactor()
{
    const EditorTypeScope scope(FileClassKfactorTable);
    const QString path = OpenListDialog(EditorDefaultFolder());
    if (path.isEmpty() || !TakeBand(path))
        return;
    Link(AntennaField::KfactorTable, path);
    RememberFolderOfFile(path);
}

void FmEditorAntenna::OnNewKfactor()
{
    const EditorTypeScope scope(FileClassKfactorTable);
    Editor().KfactorFileName.clear();
    OpenEditor(FileClassKfactorTable);
    const QString fileName = Editor().KfactorFileName;
    if (fileName.isEmpty())
        return;
    static_cast<void>(TakeBand(QDir(Editor().ResultFolder).filePath(fileName))); // the link is set in any case
    Link(AntennaField::KfactorTable, fileName);
}

void FmEditorAntenna::OnSelectCorrectionSet()
{
    const EditorTypeScope scope(FileClassCorrectionSet);
    const QString path = OpenListDialog(EditorDefaultFolder());
    if (path.isEmpty())
        return;
    Link(AntennaField::CorrectionSet, path);
    RememberFolderOfFile(path);
}

void FmEditorAntenna::OnNewCorrectionSet()
{
    const EditorTypeScope scope(FileClassCorrectionSet);
    Editor().CorrectionSetFileName.clear();
    OpenEditor(FileClassCorrectionSet);
    if (!Editor().CorrectionSetFileName.isEmpty())
        Link(AntennaField::CorrectionSet, Editor().CorrectionSetFileName);
}

} // namespace tarvik
