#include "screen/window/FmPalette.h"

#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "screen/document/view.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace tarvik {

namespace {

constexpr size_t IndexOf(PaletteNumber number)
{
    return static_cast<size_t>(number);
}

QRadioButton* NewPaletteOption(QWidget* parent, PaletteNumber number, TextNumber<0> text)
{
    return NewOption(parent, QStringLiteral("OpPalette[%1]").arg(IndexOf(number)), { text, text });
}

} // namespace

FmPalette::FmPalette(QWidget* parent)
    : FormBase("FmPalette", parent)
{
    LngSetForm(this, TextId::PaletteTitle);
    SetHelpNumber(HelpId::Palette);
    BuildControls();
    BuildLayout();
}

void FmPalette::BuildControls()
{
    FrPalette = NewFrame(this, "FrPalette", { TextId::PaletteFrame, TextId::PaletteFrame, TextId::PaletteFrameHint });
    OpPalette = { NewPaletteOption(FrPalette, PaletteNumber::Colour, TextId::PaletteColour),
        NewPaletteOption(FrPalette, PaletteNumber::BlackAndWhite, TextId::PaletteBlackAndWhite) };
    for (QRadioButton* option : OpPalette)
        connect(option, &QRadioButton::clicked, this, [this] { Choose(); });
    BtClose = NewButton(this, "BtClose", { TextId::PaletteClose, TextId::PaletteClose, TextId::PaletteCloseHint });
    BtCancel = NewButton(this, "BtCancel", { TextId::PaletteCancel, TextId::PaletteCancel, TextId::PaletteCancelHint });
    BtHelp = NewButton(this, "BtHelp", { TextId::PaletteHelp, TextId::PaletteHelp });
    BtHelp->setEnabled(false);
    BtClose->setDefault(true);
    connect(BtClose, &QPushButton::clicked, this, [this] {
        keeps_ = true;
        Unload();
    });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
}

void FmPalette::BuildLayout()
{
    auto* options = new QVBoxLayout(FrPalette);
    for (QRadioButton* option : OpPalette)
        options->addWidget(option, 0, Qt::AlignLeft); // limits the click area to the text
    QHBoxLayout* buttons = NewButtonRow({ BtClose, BtCancel, BtHelp });
    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(FrPalette);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmPalette::OnLoad()
{
    keeps_ = false;
    choice_.emplace(WindowTable().Active);
    QRadioButton* present = OpPalette[IndexOf(
        choice_->Remembered() == PaletteNumber::BlackAndWhite ? PaletteNumber::BlackAndWhite : PaletteNumber::Colour)];
    present->setChecked(true);
    DialogPush(*this, false);
    present->setFocus();
    return true;
}

void FmPalette::Choose()
{
    const bool isColour = OpPalette[IndexOf(PaletteNumber::Colour)]->isChecked();
    choice_->Choose(isColour ? PaletteNumber::Colour : PaletteNumber::BlackAndWhite);
}

void FmPalette::OnUnload()
{
    if (!keeps_)
        choice_->Cancel();
}

void ColorDialog()
{
    const WindowId id = WindowTable().Active;
    if (PictureOf(id) != nullptr) {
        FmPalette form(QApplication::activeWindow());
        DialogShow(form);
    }
    StatusClear();
    if (ScreenView* view = ViewOf(id))
        view->Show();
}

} // namespace tarvik
