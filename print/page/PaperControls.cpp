#include "print/page/PaperControls.h"

#include "app/forms/form.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kComboCharacters = 26;

QComboBox* NewChoice(QWidget* form, const char* name, TextNumber<0> help, TextNumber<0> hint)
{
    QComboBox* combo = NewCombo(form, name, help);
    SetControlHint(combo, hint);
    combo->setMinimumContentsLength(kComboCharacters);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return combo;
}

/// Selects the item of a keyword; the first one if there is none.
void Select(QComboBox* combo, const QString& keyword)
{
    combo->setCurrentIndex(std::max(combo->findData(keyword), 0));
}

} // namespace

PaperControls::PaperControls(QWidget* form)
    : form_(form)
{
    CbPaper = NewChoice(form, "CbPaper", TextId::PageSetupPaper, TextId::PageSetupPaperHint);
    CbBin = NewChoice(form, "CbBin", TextId::PageSetupBin, TextId::PageSetupBinHint);
    FrOrientation = NewFrame(form, "FrOrientation", { TextId::PageSetupOrientation, TextId::PageSetupOrientation });
    OpOrientation = { NewOption(FrOrientation, QStringLiteral("OpOrientation[0]"),
                          { TextId::PageSetupPortrait, TextId::PageSetupOrientation, TextId::PageSetupPortraitHint }),
        NewOption(FrOrientation, QStringLiteral("OpOrientation[1]"),
            { TextId::PageSetupLandscape, TextId::PageSetupOrientation, TextId::PageSetupLandscapeHint }) };
    auto* options = new QVBoxLayout(FrOrientation);
    for (QRadioButton* option : OpOrientation)
        options->addWidget(option, 0, Qt::AlignLeft); // limits the click area to the text
    options->addStretch(1);
}

void PaperControls::PlaceCombos(QGridLayout& grid, int row)
{
    AddRow(grid, row, NewLabel(form_, "LbPaper", { TextId::PageSetupPaper }), CbPaper);
    AddRow(grid, row + 1, NewLabel(form_, "LbBin", { TextId::PageSetupBin }), CbBin);
}

void PaperControls::Fill(const PrinterAbilities& abilities, const PrinterChoice& choice)
{
    CbPaper->clear();
    for (const PaperSize& paper : abilities.Papers)
        CbPaper->addItem(paper.Name, paper.Keyword);
    Select(CbPaper, CbPaper->findData(choice.Paper) < 0 ? abilities.DefaultPaper : choice.Paper);
    CbPaper->setEnabled(CbPaper->count() > 1);
    CbBin->clear();
    CbBin->addItem(LngStr(TextId::PageSetupAutomatic), QString());
    for (const QString& bin : abilities.Bins)
        CbBin->addItem(bin, bin);
    Select(CbBin, choice.Bin);
    CbBin->setEnabled(CbBin->count() > 1);
    OpOrientation[choice.Landscape ? 1 : 0]->setChecked(true);
}

void PaperControls::OnChange(const std::function<void()>& changed)
{
    QObject::connect(CbPaper, &QComboBox::activated, form_, [changed] { changed(); });
    QObject::connect(CbBin, &QComboBox::activated, form_, [changed] { changed(); });
    for (const QRadioButton* option : OpOrientation)
        QObject::connect(option, &QRadioButton::clicked, form_, [changed] { changed(); });
}

void PaperControls::Read(PrinterChoice& choice) const
{
    choice.Paper = CbPaper->currentData().toString();
    choice.Bin = CbBin->currentData().toString();
    choice.Landscape = OpOrientation[1]->isChecked();
}

void AddRow(QGridLayout& grid, int row, QLabel* label, QWidget* control)
{
    BindLabel(label, control);
    grid.addWidget(label, row, 0);
    grid.addWidget(control, row, 1);
}

} // namespace tarvik
