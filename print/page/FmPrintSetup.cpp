#include "print/page/FmPrintSetup.h"

#include "app/forms/focusRules.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "print/page/pageSetup.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::array kSides{ Sides::One, Sides::LongEdge, Sides::ShortEdge };
constexpr std::array kQualities{ PrintQuality::Draft, PrintQuality::Normal, PrintQuality::High };

} // namespace

FmPrintSetup::FmPrintSetup(const PrinterChoice& choice, QWidget* parent)
    : FormBase("FmPrintSetup", parent)
    , choice_(choice)
    , shown_(choice)
{
    LngSetForm(this, TextId::PrintSetupTitle);
    SetHelpNumber(HelpId::PrintSetup);
    BuildControls();
    BuildButtons();
    BuildLayout();
}

void FmPrintSetup::BuildControls()
{
    CbPrinter = NewCombo(this, "CbPrinter", TextId::PrintSetupPrinter);
    SetControlHint(CbPrinter, TextId::PrintSetupPrinterHint);
    connect(CbPrinter, &QComboBox::activated, this, [this] {
        shown_ = ChoiceAsShown();
        ShowChoice();
    });
    paper_ = std::make_unique<PaperControls>(this);
    TbCopies = new QSpinBox(this);
    NameControl(TbCopies, QStringLiteral("TbCopies"));
    SetControlHelp(TbCopies, TextId::PrintSetupCopies);
    SetControlHint(TbCopies, TextId::PrintSetupCopiesHint);
    WheelNeedsFocus(TbCopies);
    TbCopies->setMinimum(1);
    CbSides = NewCombo(this, "CbSides", TextId::PrintSetupSides);
    SetControlHint(CbSides, TextId::PrintSetupSidesHint);
    for (size_t at = 0; at < kSides.size(); ++at)
        CbSides->addItem(LngStr(TextId::PrintSetupSideNames + static_cast<int>(at)));
    CbQuality = NewCombo(this, "CbQuality", TextId::PrintSetupQuality);
    SetControlHint(CbQuality, TextId::PrintSetupQualityHint);
    for (size_t at = 0; at < kQualities.size(); ++at)
        CbQuality->addItem(LngStr(TextId::PrintSetupQualityNames + static_cast<int>(at)));
    ChColour = NewCheckBox(
        this, "ChColour", { TextId::PrintSetupColour, TextId::PrintSetupColour, TextId::PrintSetupColourHint });
}

void FmPrintSetup::BuildButtons()
{
    BtOk = NewButton(this, "BtOk", { TextId::PageSetupOk, HelpId::PrintSetup, TextId::PageSetupOkHint });
    BtCancel =
        NewButton(this, "BtCancel", { TextId::PageSetupCancel, HelpId::PrintSetup, TextId::PageSetupCancelHint });
    BtHelp = NewButton(this, "BtHelp", { TextId::PageSetupHelp, HelpId::PrintSetup, TextId::PageSetupHelpHint });
    BtOk->setDefault(true);
    connect(BtOk, &QPushButton::clicked, this, [this] { OnOk(); });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
}

void FmPrintSetup::BuildLayout()
{
    auto* choices = new QGridLayout;
    AddRow(*choices, 0, NewLabel(this, "LbPrinter", { TextId::PrintSetupPrinter }), CbPrinter);
    paper_->PlaceCombos(*choices, 1);
    choices->setColumnStretch(1, 1);
    auto* print = new QGridLayout;
    AddRow(*print, 0, NewLabel(this, "LbCopies", { TextId::PrintSetupCopies }), TbCopies);
    AddRow(*print, 1, NewLabel(this, "LbSides", { TextId::PrintSetupSides }), CbSides);
    AddRow(*print, 2, NewLabel(this, "LbQuality", { TextId::PrintSetupQuality }), CbQuality);
    print->addWidget(ChColour, 3, 1, Qt::AlignLeft); // limits the click area to the text
    auto* groups = new QHBoxLayout;
    groups->addWidget(paper_->Orientation());
    groups->addLayout(print, 1);
    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(choices);
    form->addLayout(groups);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(NewButtonRow({ BtOk, BtCancel, BtHelp }));
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmPrintSetup::OnLoad()
{
    FillPrinters();
    ShowChoice();
    DialogPush(*this, false);
    CbPrinter->setFocus();
    return true;
}

/// A printer in use that has vanished is still shown, until another one is chosen.
void FmPrintSetup::FillPrinters()
{
    QStringList names = ThePrinterSystem()->Names();
    if (!choice_.Printer.isEmpty() && !names.contains(choice_.Printer))
        names.prepend(choice_.Printer);
    CbPrinter->clear();
    CbPrinter->addItems(names);
    CbPrinter->setCurrentText(choice_.Printer);
}

void FmPrintSetup::ShowChoice()
{
    const PrinterAbilities abilities =
        ThePrinterSystem()->AbilitiesOf(CbPrinter->currentText()).value_or(PrinterAbilities());
    paper_->Fill(abilities, shown_);
    TbCopies->setMaximum(abilities.MostCopies);
    TbCopies->setValue(shown_.Copies);
    TbCopies->setEnabled(abilities.MostCopies > 1);
    CbSides->setCurrentIndex(abilities.TwoSided ? static_cast<int>(shown_.Side) : 0);
    CbSides->setEnabled(abilities.TwoSided);
    const auto quality = std::find(kQualities.begin(), kQualities.end(), shown_.Quality);
    CbQuality->setCurrentIndex(static_cast<int>(quality - kQualities.begin()));
    CbQuality->setEnabled(abilities.Qualities.size() > 1);
    ChColour->setChecked(shown_.Colour);
    ChColour->setEnabled(abilities.Colour);
}

PrinterChoice FmPrintSetup::ChoiceAsShown() const
{
    PrinterChoice shown = shown_;
    shown.Printer = CbPrinter->currentText();
    paper_->Read(shown);
    if (TbCopies->isEnabled())
        shown.Copies = TbCopies->value();
    if (CbSides->isEnabled())
        shown.Side = kSides[static_cast<size_t>(CbSides->currentIndex())];
    if (CbQuality->isEnabled())
        shown.Quality = kQualities[static_cast<size_t>(CbQuality->currentIndex())];
    if (ChColour->isEnabled())
        shown.Colour = ChColour->isChecked();
    return shown;
}

void FmPrintSetup::OnOk()
{
    choice_ = ChoiceAsShown();
    Unload();
}

void ShowPrintSetup()
{
    FmPrintSetup form(ThePrinter(), QApplication::activeWindow());
    DialogShow(form);
    ApplyPrinterChoice(form.Choice());
    StatusClear();
}

} // namespace tarvik
