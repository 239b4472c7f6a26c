#include "app/about/FmAbout.h"

#include "app/about/FmInfo.h"
#include "app/about/info.h"
#include "app/forms/Pictures.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/state/project.h"
#include "app/text/lang.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr int kTextForm = 10000;
constexpr int kHelpForm = 10001;
constexpr int kPicturePx = 64;
constexpr double kProductFontScale = 1.7;

} // namespace

FmAbout::FmAbout(QWidget* parent)
    : FormBase("FmAbout", parent)
{
    LngSetForm(this, kTextForm);
    SetHelpNumber(kHelpForm);
    BuildLabels();
    BuildButtons();
    BuildLayout();
}

void FmAbout::BuildLabels()
{
    ImProd = NewLabel(this, "ImProd", {});
    ImProd->setPixmap(ProgramIcon().pixmap(QSize(kPicturePx, kPicturePx), devicePixelRatioF()));
    LbProd = NewLabel(this, "LbProd", { 10002, 0, 0 });
    LbProd->setText(LngUnescapeMenu(LbProd->text()));
    LbProd->setAccessibleName(LbProd->text());
    ImProd->setAccessibleName(LbProd->text());
    QFont font = LbProd->font();
    font.setPointSizeF(font.pointSizeF() * kProductFontScale);
    font.setBold(true);
    LbProd->setFont(font);
    LbUse1 = NewLabel(this, "LbUse1", { 10003, 0, 0 });
    LbCopy = NewLabel(this, "LbCopy", { 10012, 0, 0 });
    LbVers = NewLabel(this, "LbVers", { 10013, 0, 0 });
    LbVers->setText(AboutVersionText(ProductPreRelease()));
    LbVers->setAccessibleName(LbVers->text());
    LbVers->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void FmAbout::BuildButtons()
{
    BtInfo = NewButton(this, "BtInfo", { 10009, 10009, 10010 });
    BtHelp = NewButton(this, "BtHelp", { 10006, 10006, 10007 });
    BtClose = NewButton(this, "BtClose", { 10004, 10004, 10005 });
    BtClose->setDefault(true);
    connect(BtInfo, &QPushButton::clicked, this, [this] {
        FmInfo info(this);
        DialogShow(info);
    });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
    connect(BtClose, &QPushButton::clicked, this, [this] { Unload(); });
}

void FmAbout::BuildLayout()
{
    auto* labels = new QVBoxLayout;
    labels->addWidget(LbProd);
    labels->addWidget(LbUse1);
    labels->addSpacing(LbUse1->fontMetrics().height());
    labels->addWidget(LbVers);
    labels->addWidget(LbCopy);
    labels->addStretch();

    auto* top = new QHBoxLayout;
    top->setSpacing(kPicturePx / 4);
    top->addWidget(ImProd, 0, Qt::AlignTop);
    top->addLayout(labels, 1);

    QHBoxLayout* buttons = NewButtonRow({ BtHelp, BtClose }, { BtInfo });

    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(top);
    form->addSpacing(kFormMarginPx);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
    BtClose->setFocus();
}

bool FmAbout::OnLoad()
{
    DialogPush(*this, false);
    return true;
}

} // namespace tarvik
