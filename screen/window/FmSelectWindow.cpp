#include "screen/window/FmSelectWindow.h"

#include "app/forms/Pictures.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "screen/document/view.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr int kTextForm = 13400;
constexpr int kHelpForm = 13401;
constexpr int kWidthCharacters = 44;
constexpr int kRowsSeen = 8;

} // namespace

FmSelectWindow::FmSelectWindow(const QVector<WindowId>& offered, QWidget* parent)
    : FormBase("FmSelectWindow", parent)
    , offered_(offered)
{
    LngSetForm(this, kTextForm);
    SetHelpNumber(kHelpForm);
    BuildControls();
    BuildLayout();
}

void FmSelectWindow::BuildControls()
{
    LxWin = new QListWidget(this);
    NameControl(LxWin, QStringLiteral("LxWin"));
    LxWin->setSelectionMode(QAbstractItemView::ExtendedSelection);
    LxWin->setUniformItemSizes(true);
    LxWin->setTextElideMode(Qt::ElideMiddle);
    LxWin->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    SetControlHelp(LxWin, 13402);
    SetControlHint(LxWin, 13403);
    BtAll = NewButton(this, "BtAll", { 13404, 13404, 13405 });
    BtClear = NewButton(this, "BtClear", { 13406, 13406, 13407 });
    BtOk = NewButton(this, "BtOk", { 13408, 13408, 13409 });
    BtCancel = NewButton(this, "BtCancel", { 13410, 13410, 13411 });
    BtHelp = NewButton(this, "BtHelp", { 13412, 13412, 13413 });
    BtOk->setDefault(true);
    connect(LxWin, &QListWidget::itemSelectionChanged, this,
        [this] { BtOk->setEnabled(!LxWin->selectedItems().isEmpty()); });
    connect(LxWin, &QListWidget::itemDoubleClicked, BtOk, &QPushButton::click); // ignored while none is selected
    connect(BtAll, &QPushButton::clicked, LxWin, &QListWidget::selectAll);
    connect(BtClear, &QPushButton::clicked, LxWin, &QListWidget::clearSelection);
    connect(BtOk, &QPushButton::clicked, this, [this] { OnOk(); });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
}

void FmSelectWindow::BuildLayout()
{
    QLabel* label = NewLabel(this, "LbWin", { 13402 });
    BindLabel(label, LxWin);
    const QFontMetrics font = LxWin->fontMetrics();
    LxWin->setMinimumSize(kWidthCharacters * font.averageCharWidth(), kRowsSeen * (font.lineSpacing() + 2));
    QHBoxLayout* buttons = NewButtonRow({ BtOk, BtCancel, BtHelp }, { BtAll, BtClear });
    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(label);
    form->addWidget(LxWin, 1);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(buttons);
}

void FmSelectWindow::FillList()
{
    LxWin->clear();
    for (const WindowId id : offered_) {
        const ScreenView* view = ViewOf(id);
        const QString picture = WindowIsFileImage(id) ? QStringLiteral("MDI_IMAGE") : QStringLiteral("MDI_SCREEN");
        auto* row = new QListWidgetItem(PictureIcon(picture), view == nullptr ? QString() : view->Caption(), LxWin);
        row->setToolTip(PlainTip(row->text())); // long captions are elided
        if (id == WindowTable().Active)
            LxWin->setCurrentItem(row); // the most likely choice; this selects it
    }
    BtOk->setEnabled(!LxWin->selectedItems().isEmpty());
}

bool FmSelectWindow::OnLoad()
{
    chosen_.clear();
    FillList();
    DialogPush(*this, false);
    LxWin->setFocus();
    return true;
}

void FmSelectWindow::OnOk()
{
    for (qsizetype at = 0; at < offered_.size(); ++at) {
        if (LxWin->item(static_cast<int>(at))->isSelected())
            chosen_.append(offered_[at]);
    }
    Unload();
}

} // namespace tarvik
