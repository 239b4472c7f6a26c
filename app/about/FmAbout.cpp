#include "app/about/FmAbout.h"

#include "app/about/FmInfo.h"
#include "app/about/info.h"
#include "app/forms/Pictures.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr int kPicturePx = 64;
constexpr double kProductFontScale = 1.7;

} // namespace

FmAbout::FmAbout(QWidget* parent)
    : FormBase("FmAbout", parent)
{
    LngSetForm(this, TextId::AboutTitle);
    SetHelpNumber(HelpId::About);
    BuildLabels();
    BuildButtons();
    BuildLayout();
}

void FmAbout::BuildLabels()
{
    ImProd = NewLabel(this, "ImProd", {});
    ImProd->setPixmap(ProgramIcon().pixmap(QSize(kPicturePx, kPicturePx), devicePixelRatioF()));
    LbProd = NewLabel(this, "LbProd", { TextId::AboutProduct });
    LbProd->setText(LngUnescapeMenu(LbProd->text()));
    LbProd->setAccessibleName(LbProd->text());
    ImProd->setAccessibleName(LbProd->text());
    QFont font = LbProd->font();
    font.setPointSizeF(font.pointSizeF() * kProductFontScale);
    font.setBold(true);
    LbProd->setFont(font);
    LbUse1 = NewLabel(this, "LbUse1", { TextId::AboutPurpose });
    LbCopy = NewLabel(this, "LbCopy", { TextId::AboutCopyright });
    LbVers = NewLabel(this, "LbVers", { TextId::AboutVersion });
    LbVers->setText(AboutVersionText(Program().PreRelease));
    LbVers->setAccessibleName(LbVers->text());
    LbVers->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void FmAbout::BuildButtons()
{
    BtInfo =
        NewButton(this, "BtInfo", { TextId::AboutVersionInfo, TextId::AboutVersionInfo, TextId::AboutVersionInfoHint });
    BtHelp = NewButton(this, "BtHelp", { TextId::AboutHelp, TextId::AboutHelp, TextId::WindowHelpHint });
    BtClose = NewButton(this, "BtClose", { TextId::AboutClose, TextId::AboutClose, TextId::CloseWindowHint });
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
