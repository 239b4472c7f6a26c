#include "app/about/FmInfo.h"

#include "app/about/info.h"
#include "app/forms/controlValues.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/textId.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextOption>

namespace tarvik {

namespace {

constexpr int kColumnGapPx = 28;

} // namespace

FmInfo::FmInfo(QWidget* parent)
    : FormBase("FmInfo", parent)
{
    LngSetForm(this, TextId::InfoTitle);
    SetHelpNumber(HelpId::Info);
    BuildControls();
    BuildLayout();
    FillInfo();
}

void FmInfo::BuildControls()
{
    LbFileName = NewLabel(this, "LbFileName", { TextId::InfoFile, TextId::InfoFile, TextId::InfoFileHint });
    LbFileVer =
        NewLabel(this, "LbFileVer", { TextId::InfoFileVersion, TextId::InfoFileVersion, TextId::InfoFileVersionHint });
    LbProdVer = NewLabel(
        this, "LbProdVer", { TextId::InfoProductVersion, TextId::InfoProductVersion, TextId::InfoProductVersionHint });
    TbInfo = new QPlainTextEdit(this);
    NameControl(TbInfo, QStringLiteral("TbInfo"));
    TbInfo->setAccessibleName(windowTitle());
    TbInfo->setReadOnly(true);
    TbInfo->setTabChangesFocus(true);
    TbInfo->setLineWrapMode(QPlainTextEdit::NoWrap);
    TbInfo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // as high as its lines, and more if dragged
    SetControlHelp(TbInfo, HelpId::Info);
    BtHelp = NewButton(this, "BtHelp", { TextId::InfoHelp, TextId::InfoHelp, TextId::WindowHelpHint });
    BtClose = NewButton(this, "BtClose", { TextId::InfoClose, TextId::InfoClose, TextId::CloseWindowHint });
    BtClose->setDefault(true);
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
    connect(BtClose, &QPushButton::clicked, this, [this] { Unload(); });
}

/// The widest entries set the tab stops, and the headings align with them.
void FmInfo::FillInfo()
{
    QStringList names{ LbFileName->text() };
    QStringList versions{ LbFileVer->text() };
    const std::vector<InfoRow> rows = InfoRows();
    for (const InfoRow& row : rows) {
        names.append(row.Name);
        versions.append(row.FileVersion);
    }
    const int first = StrMaxWidth(TbInfo, names, static_cast<int>(names.size())) + kColumnGapPx;
    const int second = first + StrMaxWidth(TbInfo, versions, static_cast<int>(versions.size())) + kColumnGapPx;
    QTextOption option = TbInfo->document()->defaultTextOption();
    option.setTabs({ QTextOption::Tab(first, QTextOption::LeftTab), QTextOption::Tab(second, QTextOption::LeftTab) });
    TbInfo->document()->setDefaultTextOption(option);
    TbInfo->setPlainText(InfoText());

    const int edge = TbInfo->frameWidth() + static_cast<int>(TbInfo->document()->documentMargin());
    LbFileName->setContentsMargins(edge, 0, 0, 0);
    LbFileName->setFixedWidth(edge + first);
    LbFileVer->setFixedWidth(second - first);
    const int lines = TbInfo->blockCount() + 1; // a spare line avoids the scroll bar
    TbInfo->setMinimumSize(second + LbProdVer->sizeHint().width() + 2 * edge + kColumnGapPx,
        lines * TbInfo->fontMetrics().lineSpacing() + 2 * edge);
}

void FmInfo::BuildLayout()
{
    auto* headings = new QHBoxLayout;
    headings->setSpacing(0);
    headings->addWidget(LbFileName);
    headings->addWidget(LbFileVer);
    headings->addWidget(LbProdVer, 1);

    QHBoxLayout* buttons = NewButtonRow({ BtHelp, BtClose });

    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(headings);
    form->addWidget(TbInfo, 1);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(buttons);
    BtClose->setFocus();
}

bool FmInfo::OnLoad()
{
    DialogPush(*this, false);
    return true;
}

} // namespace tarvik
