#include "link/documents/FmFileConvert.h"

#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "link/documents/fileConvert.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kPathLength = 4096;
constexpr int kMinDirCharacters = 48;
constexpr int kMaxDirCharacters = 96;

} // namespace

FmFileConvert::FmFileConvert(QWidget* parent)
    : FormBase("FmFileConvert", parent)
{
    LngSetForm(this, TextId::ConvertTitle);
    SetHelpNumber(HelpId::Convert);
    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(BuildFields());
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(BuildButtons());
    form->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout* FmFileConvert::BuildFields()
{
    QLabel* LbType = NewLabel(this, "LbType", { TextId::ConvertType });
    CbType = NewCombo(this, "CbType", HelpId::Convert);
    SetControlHint(CbType, TextId::ConvertTypeHint);
    BindLabel(LbType, CbType);
    QLabel* LbDir = NewLabel(this, "LbDir", { TextId::ConvertFolder });
    TbDir = NewTextBox(this, "TbDir", HelpId::Convert, kPathLength);
    SetControlHint(TbDir, TextId::ConvertFolderHint);
    BindLabel(LbDir, TbDir);
    BtBrowse = NewButton(this, "BtBrowse", { TextId::ConvertBrowse, HelpId::Convert, TextId::ConvertBrowseHint });
    BtBrowse->setAutoDefault(false);
    connect(BtBrowse, &QPushButton::clicked, this, [this] { Browse(); });

    CkBlackAndWhite = NewCheckBox(
        this, "CkBlackAndWhite", { TextId::ConvertBlackAndWhite, HelpId::Convert, TextId::ConvertBlackAndWhiteHint });

    auto* fields = new QGridLayout;
    fields->addWidget(LbType, 0, 0);
    fields->addWidget(CbType, 0, 1, Qt::AlignLeft);
    fields->addWidget(LbDir, 1, 0);
    fields->addWidget(TbDir, 1, 1);
    fields->addWidget(BtBrowse, 1, 2);
    fields->addWidget(CkBlackAndWhite, 2, 1, Qt::AlignLeft);
    return fields;
}

QLayout* FmFileConvert::BuildButtons()
{
    QPushButton* BtClose = NewButton(this, "BtClose", { TextId::ConvertOk, HelpId::Convert, TextId::ConvertOkHint });
    QPushButton* BtCancel =
        NewButton(this, "BtCancel", { TextId::ConvertCancel, HelpId::Convert, TextId::ConvertCancelHint });
    QPushButton* BtHelp = NewButton(this, "BtHelp", { TextId::ConvertHelp, HelpId::Convert, TextId::ConvertHelpHint });
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
    for (const TextNumber<0> type : proposal.Types)
        CbType->addItem(LngStr(type), type.Number);
    CbType->setCurrentIndex(proposal.Selected);
    ShowFolder(proposal.Folder);
    CkBlackAndWhite->setChecked(proposal.BlackAndWhite);
    CbType->setFocus(Qt::TabFocusReason);
    return true;
}

void FmFileConvert::Browse()
{
    const QString folder = BrowseFolder(LngStr(TextId::ChooseTargetFolder), TbDir->text());
    if (!folder.isEmpty())
        ShowFolder(folder);
}

/// Widens the form to show the whole path within limits.
void FmFileConvert::ShowFolder(const QString& folder)
{
    const QFontMetrics metrics = TbDir->fontMetrics();
    const int character = metrics.averageCharWidth();
    TbDir->setText(folder);
    TbDir->setMinimumWidth(std::clamp(metrics.horizontalAdvance(folder) + 3 * character, kMinDirCharacters * character,
        kMaxDirCharacters * character));
}

void FmFileConvert::Accept()
{
    TbDir->setText(TbDir->text().trimmed());
    if (!FileConvertAccept(TbDir->text(), CbType->currentData().toInt(), CkBlackAndWhite->isChecked())) {
        TbDir->setFocus();
        return;
    }
    accepted_ = true;
    Unload();
}

} // namespace tarvik
