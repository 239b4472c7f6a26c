#include "link/documents/FmFileConvert.h"

#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "app/values/general.h"
#include "link/documents/fileConvert.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kTextForm = 11400;
constexpr int kHelpForm = 11401;
constexpr int kTextType = 11402;
constexpr int kHintType = 11403;
constexpr int kTextDir = 11404;
constexpr int kHintDir = 11405;
constexpr int kPathLength = 4096;
constexpr int kLeastDirCharacters = 48;
constexpr int kMostDirCharacters = 96;

} // namespace

FmFileConvert::FmFileConvert(QWidget* parent)
    : FormBase("FmFileConvert", parent)
{
    LngSetForm(this, kTextForm);
    SetHelpNumber(kHelpForm);
    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(BuildFields());
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(BuildButtons());
    form->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout* FmFileConvert::BuildFields()
{
    QLabel* LbType = NewLabel(this, "LbType", { kTextType });
    CbType = NewCombo(this, "CbType", kHelpForm);
    SetControlHint(CbType, kHintType);
    BindLabel(LbType, CbType);
    QLabel* LbDir = NewLabel(this, "LbDir", { kTextDir });
    TbDir = NewTextBox(this, "TbDir", kHelpForm, kPathLength);
    SetControlHint(TbDir, kHintDir);
    BindLabel(LbDir, TbDir);
    BtBrowse = NewButton(this, "BtBrowse", { 11406, kHelpForm, 11407 });
    BtBrowse->setAutoDefault(false);
    connect(BtBrowse, &QPushButton::clicked, this, [this] { Browse(); });

    auto* fields = new QGridLayout;
    fields->addWidget(LbType, 0, 0);
    fields->addWidget(CbType, 0, 1, Qt::AlignLeft);
    fields->addWidget(LbDir, 1, 0);
    fields->addWidget(TbDir, 1, 1);
    fields->addWidget(BtBrowse, 1, 2);
    return fields;
}

QLayout* FmFileConvert::BuildButtons()
{
    QPushButton* BtClose = NewButton(this, "BtClose", { 11408, kHelpForm, 11409 });
    QPushButton* BtCancel = NewButton(this, "BtCancel", { 11410, kHelpForm, 11411 });
    QPushButton* BtHelp = NewButton(this, "BtHelp", { 11412, kHelpForm, 11413 });
    BtClose->setDefault(true);
    QHBoxLayout* buttons = NewButtonRow({ BtClose, BtCancel, BtHelp });
    connect(BtClose, &QPushButton::clicked, this, [this] { Accept(); });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
    return buttons;
}

bool FmFileConvert::OnLoad()
{
    accepted_ = false;
    DialogPush(*this, false);
    const FileConvertProposal proposal = FileConvertPropose();
    CbType->clear();
    for (const int type : proposal.Types)
        CbType->addItem(LngStr(type), type);
    CbType->setCurrentIndex(proposal.Selected);
    ShowFolder(proposal.Folder);
    CbType->setFocus(Qt::TabFocusReason);
    return true;
}

void FmFileConvert::Browse()
{
    const QString folder = BrowseFolder(LngStr(kTextChooseTargetFolder), TbDir->text());
    if (!folder.isEmpty())
        ShowFolder(folder);
}

/// The form is as wide as it takes to see all of a usual path.
void FmFileConvert::ShowFolder(const QString& folder)
{
    const QFontMetrics metrics = TbDir->fontMetrics();
    const int character = metrics.averageCharWidth();
    TbDir->setText(folder);
    TbDir->setMinimumWidth(std::clamp(metrics.horizontalAdvance(folder) + 3 * character,
        kLeastDirCharacters * character, kMostDirCharacters * character));
}

void FmFileConvert::Accept()
{
    TbDir->setText(TbDir->text().trimmed());
    if (!FileConvertAccept(TbDir->text(), CbType->currentData().toInt())) {
        TbDir->setFocus();
        return;
    }
    accepted_ = true;
    Unload();
}

} // namespace tarvik
