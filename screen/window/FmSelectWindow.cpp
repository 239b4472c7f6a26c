#include "screen/window/FmSelectWindow.h"

#include "app/forms/Pictures.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/textId.h"
#include "screen/document/view.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr int kWidthCharacters = 44;
constexpr int kRowsSeen = 8;

QString PictureNameOf(WindowId id)
{
    if (WindowTypeOf(id) == WindowType::DataSet)
        return QStringLiteral("MDI_DIAGRAM");
    return WindowIsFileImage(id) ? QStringLiteral("MDI_IMAGE") : QStringLiteral("MDI_SCREEN");
}

} // namespace

FmSelectWindow::FmSelectWindow(const QVector<WindowId>& offered, WindowId marked, QWidget* parent)
    : FormBase("FmSelectWindow", parent)
    , offered_(offered)
    , marked_(marked)
{
    LngSetForm(this, TextId::SelectWindowsTitle);
    SetHelpNumber(HelpId::SelectWindows);
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
    SetControlHelp(LxWin, TextId::SelectWindowsList);
    SetControlHint(LxWin, TextId::SelectWindowsListHint);
    BtAll =
        NewButton(this, "BtAll", { TextId::SelectWindowsAll, TextId::SelectWindowsAll, TextId::SelectWindowsAllHint });
    BtClear = NewButton(
        this, "BtClear", { TextId::SelectWindowsNone, TextId::SelectWindowsNone, TextId::SelectWindowsNoneHint });
    BtOk = NewButton(this, "BtOk", { TextId::SelectWindowsOk, TextId::SelectWindowsOk, TextId::SelectWindowsOkHint });
    BtCancel = NewButton(this, "BtCancel",
        { TextId::SelectWindowsCancel, TextId::SelectWindowsCancel, TextId::SelectWindowsCancelHint });
    BtHelp = NewButton(
        this, "BtHelp", { TextId::SelectWindowsHelp, TextId::SelectWindowsHelp, TextId::SelectWindowsHelpHint });
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
    QLabel* label = NewLabel(this, "LbWin", { TextId::SelectWindowsList });
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
        auto* row =
            new QListWidgetItem(PictureIcon(PictureNameOf(id)), view == nullptr ? QString() : view->Caption(), LxWin);
        row->setToolTip(PlainTip(row->text())); // long captions are elided
        if (id == marked_)
            LxWin->setCurrentItem(row); // this selects it
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
