#include "lists/correction/CorrTabPage.h"

#include "app/forms/focusRules.h"
#include "app/forms/form.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QBoxLayout>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr int kFirstInput = 1; ///< grid column of a table's first column, after the row label
constexpr int kFrequencyLength = 13;
constexpr int kNumberLength = 6;
constexpr int kAnglesLength = 999;
constexpr int kAzimuthRows = 9;
constexpr int kAzimuthLines = 3;

/// Names and texts of a tab.
struct TabTexts {
    const char* Prefix; ///< of its controls
    const char* GroupName;
    TextNumber<0> Caption;
    GridShape Shape;
    std::vector<GridColumn> Columns;
};

GridShape ShapeOf(const char* gridName, const char* scrollBarName)
{
    GridShape shape{ kCorrRows };
    shape.FirstLabel = 1;
    shape.IgnoresWheel = true;
    shape.CellHelp = HelpId::CommandCorrectionSetEditor;
    shape.Name = gridName;
    shape.ScrollBarName = scrollBarName;
    return shape;
}

TabTexts KFactorTexts()
{
    return { "KT_", "KFactorGroup", TextId::CorrKFactorTab, ShapeOf("KT_Grid", "KT_VScroll"),
        { { "KT_LbCol_row", CellKind::RowLabel, TextId::KfactorRowColumn, 0, 6, false, "KT_LbHdr_row" },
            { "KT_TbCol_freq", CellKind::Number, TextId::KfactorFrequencyColumn, kFrequencyLength, 18, false,
                "KT_LbHdr_freq" },
            { "KT_TbCol_passive", CellKind::Number, TextId::KfactorPassiveColumn, kNumberLength, 16, false,
                "KT_LbHdr_passive" },
            { "KT_TbCol_active", CellKind::Number, TextId::KfactorActiveColumn, kNumberLength, 16, false,
                "KT_LbHdr_active" } } };
}

TabTexts OmniphaseTexts()
{
    return { "OP_", "OmniphaseGroup", TextId::CorrOmniphaseTab, ShapeOf("OP_Grid", "OP_VScroll"),
        { { "OP_LbCol_row", CellKind::RowLabel, TextId::KfactorRowColumn, 0, 6, false, "OP_LbHdr_row" },
            { "OP_TbCol_freq", CellKind::Number, TextId::OmniphaseFrequencyColumn, kFrequencyLength, 18, false,
                "OP_LbHdr_freq" },
            { "OP_TbCol_deg", CellKind::Number, TextId::OmniphasePhaseColumn, kNumberLength, 16, false,
                "OP_LbHdr_deg" } } };
}

TabTexts AzimuthTexts()
{
    TabTexts texts{ "AZ_", "AzimuthGroup", TextId::CorrAzimuthTab, ShapeOf("AZ_Grid", "AZ_VScroll"),
        { { "AZ_LbCol_row", CellKind::RowLabel, TextId::KfactorRowColumn, 0, 6, false, "AZ_LbHdr_row" },
            { "AZ_TbCol_freq", CellKind::Number, TextId::AzimuthFrequencyColumn, kFrequencyLength, 18, false,
                "AZ_LbHdr_freq" },
            { "AZ_TbCol_azimuth", CellKind::Lines, TextId::AzimuthAnglesColumn, kAnglesLength, 40, false,
                "AZ_LbHdr_azimuth" } } };
    texts.Shape.VisibleRows = kAzimuthRows;
    texts.Shape.LinesPerRow = kAzimuthLines;
    return texts;
}

TabTexts TextsOf(CorrTableId table)
{
    switch (table) {
    case CorrTableId::KFactor:
        return KFactorTexts();
    case CorrTableId::Omniphase:
        return OmniphaseTexts();
    default:
        return AzimuthTexts();
    }
}

} // namespace

CorrTabPage::CorrTabPage(QWidget* parent, CorrTableId table, CorrRecords& records)
    : QWidget(parent)
    , table_(table)
    , records_(records)
{
    const TabTexts texts = TextsOf(table);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    group_ = new QWidget(this);
    group_->setAccessibleName(PlainCaption(LngStr(texts.Caption))); // the tab shows it
    NameControl(group_, QString::fromLatin1(texts.GroupName));
    layout->addWidget(group_);
    auto* inside = new QVBoxLayout(group_);
    grid_ = new EditorGrid(group_, *this, texts.Shape, texts.Columns);
    inside->addWidget(grid_);
    BuildCommands(group_);
    inside->addStretch(1);
}

void CorrTabPage::BuildCommands(QWidget* list)
{
    const QString prefix = QString::fromLatin1(TextsOf(table_).Prefix);
    const auto newButton = [&](const char* name, const ControlTexts& texts) {
        return NewButton(list, (prefix + QLatin1String(name)).toLatin1().constData(), texts);
    };
    auto* commands = new QHBoxLayout;
    auto* sort = newButton("BtSort", { TextId::EditorSort, TextId::EditorSortHint });
    commands->addWidget(sort);
    connect(sort, &QPushButton::clicked, this, [this] {
        if (CheckFocused(window())) // a mnemonic moves no focus
            Q_EMIT SortClicked();
    });
    if (table_ != CorrTableId::Azimuth) {
        auto* view = newButton("BtView", { TextId::EditorView, TextId::EditorViewHint });
        commands->addWidget(view);
        connect(view, &QPushButton::clicked, this, [this] {
            if (CheckFocused(window()))
                Q_EMIT ViewClicked();
        });
    }
    commands->addStretch(1);
    delete_ = newButton("BtDelete", { TextId::EditorDelete, TextId::EditorDeleteHint });
    SkipLeaveCheck(delete_);
    commands->addWidget(delete_);
    connect(delete_, &QPushButton::clicked, this, &CorrTabPage::OnDelete);
    static_cast<QVBoxLayout*>(list->layout())->addLayout(commands);
}

void CorrTabPage::Refill()
{
    rows_ = CorrRowsOf(table_, records_);
    ShowFromTop();
}

void CorrTabPage::ShowFromTop()
{
    grid_->ResetCurrent();
    grid_->ScrollToTop();
    grid_->FillRows(true);
    RowSelected(grid_->CurrentRow());
}

bool CorrTabPage::ShowFault(const CorrFault& fault)
{
    Q_EMIT FaultFound();
    grid_->GoTo(fault.Row, fault.Column + kFirstInput);
    return false;
}

bool CorrTabPage::Validate()
{
    static_cast<void>(grid_->Commit()); // a bad cell becomes invalid, which is reported below
    if (const auto fault = ValidateCorrTab(table_, rows_, records_); fault.has_value())
        return ShowFault(*fault);
    const auto duplicate = CheckCorrDuplicates(table_, records_);
    return !duplicate.has_value() || ShowFault(*duplicate);
}

bool CorrTabPage::Sort()
{
    if (!SortCorrRecords(table_, records_))
        return false;
    EditRows(rows_, *this, [this] {
        rows_ = CorrRowsOf(table_, records_);
        return true;
    });
    ShowFromTop();
    return true;
}

bool CorrTabPage::IsRowUsed(int row) const
{
    return rows_[static_cast<size_t>(row)].Used;
}

QString CorrTabPage::CellText(int row, int column) const
{
    return rows_[static_cast<size_t>(row)].Texts[static_cast<size_t>(column - kFirstInput)];
}

void CorrTabPage::TextChanged(int row, int column, const QString& text)
{
    Q_EMIT Edited();
    EditRow(rows_, row, *this, [&](CorrRow& cells) { TypeCorrCell(cells, table_, column - kFirstInput, text); });
}

/// Never keeps the focus: a bad cell is marked.
bool CorrTabPage::CheckCell(int row, int column, QString& text)
{
    EditRow(rows_, row, *this, [&](CorrRow& cells) { LeaveCorrCell(cells, table_, column - kFirstInput, text); });
    return true;
}

bool CorrTabPage::IsCellInvalid(int row, int column) const
{
    return column >= kFirstInput && rows_[static_cast<size_t>(row)].Invalid[static_cast<size_t>(column - kFirstInput)];
}

void CorrTabPage::RowSelected(int row)
{
    delete_->setEnabled(rows_[static_cast<size_t>(row)].Used);
}

void CorrTabPage::RowChanged(int row, const CorrRow&, const CorrRow& after)
{
    if (row == grid_->CurrentRow())
        delete_->setEnabled(after.Used);
}

void CorrTabPage::OnDelete()
{
    if (!CheckFocused(window()))
        return;
    grid_->ShowCurrentRow();
    EditRow(rows_, grid_->CurrentRow(), *this, [](CorrRow& cells) { cells = {}; });
    grid_->FillRows(true);
    grid_->FocusCurrent();
    Q_EMIT Edited();
}

} // namespace tarvik
