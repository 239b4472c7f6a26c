#include "screen/window/FmPalette.h"

#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "screen/document/view.h"

#include <QApplication>
#include <QBoxLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace tarvik {

namespace {

constexpr int kTextForm = 13200;
constexpr int kHelpForm = 13201;
constexpr int kTextFrame = 13202;
constexpr int kTextColour = 13203;
constexpr int kTextBlackAndWhite = 13205;
constexpr int kHintFrame = 13216;

QRadioButton* NewOption(QWidget* parent, int index, int text)
{
    auto* option = new QRadioButton(parent);
    LngSetCtrl(option, text);
    option->setAccessibleName(PlainCaption(option->text()));
    NameControl(option, QStringLiteral("OpPalette[%1]").arg(index));
    SetControlHelp(option, text);
    return option;
}

} // namespace

FmPalette::FmPalette(QWidget* parent)
    : FormBase("FmPalette", parent)
{
    LngSetForm(this, kTextForm);
    SetHelpNumber(kHelpForm);
    BuildControls();
    BuildLayout();
}

void FmPalette::BuildControls()
{
    FrPalette = NewFrame(this, "FrPalette", { kTextFrame, kTextFrame, kHintFrame });
    OpPalette = { NewOption(FrPalette, PaletteColour, kTextColour),
        NewOption(FrPalette, PaletteBlackAndWhite, kTextBlackAndWhite) };
    for (QRadioButton* option : OpPalette)
        connect(option, &QRadioButton::clicked, this, [this] { Choose(); });
    BtClose = NewButton(this, "BtClose", { 13207, 13207, 13214 });
    BtCancel = NewButton(this, "BtCancel", { 13210, 13210, 13218 });
    BtHelp = NewButton(this, "BtHelp", { 13212, 13212, 0 });
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
    QRadioButton* present =
        OpPalette[choice_->Remembered() == PaletteBlackAndWhite ? PaletteBlackAndWhite : PaletteColour];
    present->setChecked(true);
    DialogPush(*this, false);
    present->setFocus();
    return true;
}

void FmPalette::Choose()
{
    choice_->Choose(OpPalette[PaletteColour]->isChecked() ? PaletteColour : PaletteBlackAndWhite);
}

void FmPalette::OnUnload()
{
    if (!keeps_)
        choice_->Cancel();
}

void ColorDialog()
{
    const WindowId id = WindowTable().Active;
    if (WindowTypeOf(id) == WindowScreen) {
        FmPalette form(QApplication::activeWindow());
        DialogShow(form);
    }
    StatusClear();
    if (ScreenView* view = ViewOf(id))
        view->Show();
}

} // namespace tarvik
