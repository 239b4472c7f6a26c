#include "screen/window/FmDescription.h"

#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "screen/window/ColumnsBox.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarvik {

FmDescription::FmDescription(WindowId id, QWidget* parent)
    : FormBase("FmDescription", parent)
    , choice_(id)
{
    LngSetForm(this, TextId::DescriptionTitle);
    SetHelpNumber(HelpId::Description);
    BuildControls();
    BuildButtons();
    BuildLayout();
}

void FmDescription::BuildControls()
{
    LbText1 = NewLabel(this, "LbText1", { TextId::DescriptionColumns });
    UpDown = new ColumnsBox(this);
    BindLabel(LbText1, UpDown);
    UpDown->TextBox()->setAccessibleName(UpDown->accessibleName());
    for (QWidget* control : { static_cast<QWidget*>(UpDown), static_cast<QWidget*>(UpDown->TextBox()) }) {
        SetControlHelp(control, TextId::DescriptionColumns);
        SetControlHint(control, TextId::DescriptionColumnsHint);
    }
    LbDefault = NewLabel(this, "LbDefault", { TextId::DescriptionDefaultWidth });
    LbText2 = NewLabel(this, "LbText2", { TextId::DescriptionLines });
}

void FmDescription::BuildButtons()
{
    BtDefault = NewButton(
        this, "BtDefault", { TextId::DescriptionDefault, TextId::DescriptionDefault, TextId::DescriptionDefaultHint });
    BtApply = NewButton(
        this, "BtApply", { TextId::DescriptionApply, TextId::DescriptionApply, TextId::DescriptionApplyHint });
    BtClose = NewButton(this, "BtClose", { TextId::DescriptionOk, TextId::DescriptionOk, TextId::DescriptionOkHint });
    BtCancel = NewButton(
        this, "BtCancel", { TextId::DescriptionCancel, TextId::DescriptionCancel, TextId::DescriptionCancelHint });
    BtHelp =
        NewButton(this, "BtHelp", { TextId::DescriptionHelp, TextId::DescriptionHelp, TextId::DescriptionHelpHint });
    BtClose->setDefault(true);
    connect(BtDefault, &QPushButton::clicked, this, [this] { UpDown->SetValue(choice_.Limits().Default); });
    connect(BtApply, &QPushButton::clicked, this, [this] { Apply(); });
    connect(BtClose, &QPushButton::clicked, this, [this] {
        keeps_ = Apply();
        if (keeps_)
            Unload();
    });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
}

void FmDescription::BuildLayout()
{
    auto* fields = new QGridLayout;
    fields->addWidget(LbText1, 0, 0);
    fields->addWidget(UpDown, 0, 1);
    fields->addWidget(LbDefault, 1, 0);
    fields->addWidget(BtDefault, 1, 1);
    fields->setColumnStretch(2, 1);
    QHBoxLayout* buttons = NewButtonRow({ BtApply, BtClose, BtCancel, BtHelp });
    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(fields);
    form->addSpacing(kFormMarginPx / 2);
    form->addWidget(LbText2);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmDescription::OnLoad()
{
    keeps_ = false;
    const DescriptionColumns limits = choice_.Limits();
    LbDefault->setText(LngStr(TextId::DescriptionDefaultWidth) + u' ' + QString::number(limits.Default));
    UpDown->SetRange(limits.Least, limits.Most);
    UpDown->SetValue(choice_.Columns());
    DialogPush(*this, false);
    UpDown->setFocus();
    UpDown->selectAll();
    return true;
}

bool FmDescription::Apply()
{
    const QString typed = UpDown->TextBox()->text();
    if (!choice_.Apply(typed)) {
        UpDown->setFocus();
        UpDown->selectAll();
        return false;
    }
    UpDown->SetValue(choice_.Columns());
    return true;
}

void FmDescription::OnUnload()
{
    if (!keeps_)
        choice_.Cancel();
}

} // namespace tarvik
