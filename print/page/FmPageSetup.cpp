#include "print/page/FmPageSetup.h"

#include "app/forms/focusRules.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/platform/seams.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "print/page/FmPrintSetup.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr double kMmPerUnit = 0.01;
constexpr double kInchesPerUnit = 0.001;

/// A unit in the measure that is shown.
double ShownUnit()
{
    return IsMetric() ? kMmPerUnit : kInchesPerUnit;
}

} // namespace

FmPageSetup::FmPageSetup(QWidget* parent)
    : FormBase("FmPageSetup", parent)
    , paper_(this)
{
    LngSetForm(this, TextId::PageSetupTitle);
    SetHelpNumber(HelpId::PageSetup);
    LbPrinter = NewLabel(this, "LbPrinter", {});
    BuildMargins();
    BuildButtons();
    BuildLayout();
    paper_.OnChange([this] { LimitMargins(); });
}

void FmPageSetup::BuildMargins()
{
    FrMargins = NewFrame(this, "FrMargins", { TextId::PageSetupMargins, TextId::PageSetupMargins });
    auto* grid = new QGridLayout(FrMargins);
    for (int edge = 0; edge < kEdges; ++edge) {
        auto* box = new QDoubleSpinBox(FrMargins);
        NameControl(box, QStringLiteral("TbMargin[%1]").arg(edge));
        SetControlHelp(box, TextId::PageSetupMargins);
        SetControlHint(box, TextId::PageSetupMarginHint);
        WheelNeedsFocus(box);
        box->setLocale(TheSeams().Region());
        box->setDecimals(IsMetric() ? 2 : 3);
        box->setSingleStep(IsMetric() ? 1 : 0.1);
        box->setSuffix(u' ' + LngStr(IsMetric() ? TextId::UnitMillimetre : TextId::UnitInch));
        QLabel* label = NewLabel(FrMargins, "LbMargin", { TextId::PageSetupEdges + edge });
        label->setObjectName(QStringLiteral("LbMargin[%1]").arg(edge));
        AddRow(*grid, edge, label, box);
        TbMargin[static_cast<size_t>(edge)] = box;
    }
}

void FmPageSetup::BuildButtons()
{
    BtPrinter =
        NewButton(this, "BtPrinter", { TextId::PageSetupPrinter, HelpId::PageSetup, TextId::PageSetupPrinterHint });
    BtOk = NewButton(this, "BtOk", { TextId::PageSetupOk, HelpId::PageSetup, TextId::PageSetupOkHint });
    BtCancel = NewButton(this, "BtCancel", { TextId::PageSetupCancel, HelpId::PageSetup, TextId::PageSetupCancelHint });
    BtHelp = NewButton(this, "BtHelp", { TextId::PageSetupHelp, HelpId::PageSetup, TextId::PageSetupHelpHint });
    BtOk->setDefault(true);
    connect(BtOk, &QPushButton::clicked, this, [this] { OnOk(); });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtPrinter, &QPushButton::clicked, this, [this] { OnPrinter(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
}

void FmPageSetup::BuildLayout()
{
    auto* papers = new QGridLayout;
    AddRow(*papers, 0, NewLabel(this, "LbPrinterName", { TextId::PrintSetupPrinter }), LbPrinter);
    paper_.PlaceCombos(*papers, 1);
    papers->setColumnStretch(1, 1);
    auto* frames = new QHBoxLayout;
    frames->addWidget(paper_.Orientation(), 1);
    frames->addWidget(FrMargins, 1);
    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(papers);
    form->addLayout(frames);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(NewButtonRow({ BtOk, BtCancel, BtHelp }, { BtPrinter }));
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmPageSetup::OnLoad()
{
    setup_ = PageSetupNow();
    ShowSetup();
    DialogPush(*this, false);
    findChild<QWidget*>(QStringLiteral("CbPaper"))->setFocus();
    return true;
}

void FmPageSetup::ShowSetup()
{
    LbPrinter->setText(setup_.Choice.Printer);
    LbPrinter->setAccessibleName(setup_.Choice.Printer);
    paper_.Fill(ThePrinterSystem()->AbilitiesOf(setup_.Choice.Printer).value_or(PrinterAbilities()), setup_.Choice);
    LimitMargins();
    for (size_t edge = 0; edge < TbMargin.size(); ++edge)
        TbMargin[edge]->setValue(setup_.Margins[edge] * ShownUnit());
}

/// The least margins are those of the printer and the paper as chosen.
void FmPageSetup::LimitMargins()
{
    const PrinterChoice choice = SetupAsShown().Choice;
    const auto least = LeastMargins(choice);
    for (size_t edge = 0; edge < TbMargin.size(); ++edge)
        TbMargin[edge]->setRange(least[edge] * ShownUnit(), MostMargin(choice) * ShownUnit());
}

PageSetup FmPageSetup::SetupAsShown() const
{
    PageSetup shown = setup_;
    paper_.Read(shown.Choice);
    for (size_t edge = 0; edge < TbMargin.size(); ++edge)
        shown.Margins[edge] = qRound(TbMargin[edge]->value() / ShownUnit());
    return shown;
}

void FmPageSetup::OnOk()
{
    ApplyPageSetup(SetupAsShown());
    Unload();
}

void FmPageSetup::OnPrinter()
{
    setup_ = SetupAsShown();
    FmPrintSetup form(setup_.Choice, this);
    DialogShow(form);
    setup_.Choice = form.Choice();
    ShowSetup();
}

void ShowPageSetup()
{
    FmPageSetup form(QApplication::activeWindow());
    DialogShow(form);
    StatusClear();
}

} // namespace tarvik
