#include "link/connection/FmConnect.h"

#include "app/forms/Pictures.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"
#include "link/connection/FmConnection.h"
#include "link/connection/connectDialog.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTreeWidget>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kNameColumn = 0;
constexpr int kAddressColumn = 1;
constexpr int kPortColumn = 2;

constexpr int kNameCharacters = 34;
constexpr int kColumnGapPx = 24;
constexpr int kIconPx = 20;
constexpr int kRowGapPx = 6;

/// The icon of the connected row keeps its colours while the list is disabled.
QIcon RowIcon(const ConnectRow& row, qreal devicePixelRatio)
{
    QIcon icon = PictureIcon(row.Icon);
    if (!row.Connected)
        return icon;
    const QPixmap picture = icon.pixmap(QSize(kIconPx, kIconPx), devicePixelRatio);
    QIcon connected(picture);
    connected.addPixmap(picture, QIcon::Disabled);
    return connected;
}

} // namespace

FmConnect::FmConnect(QWidget* parent)
    : FormBase("FmConnect", parent)
{
    LngSetForm(this, TextId::ConnectTitle);
    SetHelpNumber(HelpId::Connect);
    BuildTabs();
    BuildFrame();
    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(TcConnect);
    form->addSpacing(kRowGapPx);
    form->addWidget(FrIpConfig, 1);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(BuildButtons());
    WatchButtons();
}

void FmConnect::BuildTabs()
{
    TcConnect = new QTabBar(this);
    NameControl(TcConnect, QStringLiteral("TcConnect"));
    TcConnect->setAccessibleName(windowTitle());
    SetControlHelp(TcConnect, HelpId::ConnectTabs);
    TcConnect->addTab(PictureIcon(QStringLiteral("UsbNotConnected")), LngStr(TextId::ConnectUsb));
    TcConnect->addTab(PictureIcon(QStringLiteral("LanNotConnected")), LngStr(TextId::ConnectLan));
    TcConnect->setExpanding(false);
    connect(TcConnect, &QTabBar::currentChanged, this, [this] { ShowTab(); });
}

void FmConnect::BuildList()
{
    LvIpAddress = new QTreeWidget(FrIpConfig);
    NameControl(LvIpAddress, QStringLiteral("LvIpAddress"));
    LvIpAddress->setAccessibleName(FrIpConfig->accessibleName());
    SetControlHelp(LvIpAddress, TextId::ConnectNameColumn);
    SetControlHint(LvIpAddress, TextId::ConnectListHint);
    LvIpAddress->setHeaderLabels(
        { LngStr(TextId::ConnectNameColumn), LngStr(TextId::ConnectAddressColumn), LngStr(TextId::ConnectPortColumn) });
    LvIpAddress->setRootIsDecorated(false);
    LvIpAddress->setUniformRowHeights(true);
    LvIpAddress->setIconSize(QSize(kIconPx, kIconPx));
    LvIpAddress->setAllColumnsShowFocus(true);
    LvIpAddress->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QHeaderView* header = LvIpAddress->header();
    header->setSectionsMovable(false);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    const QFontMetrics font = LvIpAddress->fontMetrics();
    const int addressWidth = font.horizontalAdvance(QStringLiteral("255.255.255.255")) + kColumnGapPx;
    const int portWidth = font.horizontalAdvance(LngStr(TextId::ConnectPortColumn)) + 2 * kColumnGapPx;
    header->resizeSection(kAddressColumn, addressWidth);
    header->resizeSection(kPortColumn, portWidth);
    LvIpAddress->setMinimumWidth(kNameCharacters * font.averageCharWidth() + addressWidth + portWidth);
    LvIpAddress->setMinimumHeight(
        header->sizeHint().height() + kLanEntries * (std::max(font.lineSpacing(), kIconPx) + kRowGapPx));
    connect(LvIpAddress, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (CurrentTab() == ConnectTab::Lan)
            OnEdit();
    });
}

void FmConnect::BuildFrame()
{
    FrIpConfig = new QWidget(this);
    NameControl(FrIpConfig, QStringLiteral("FrIpConfig"));
    FrIpConfig->setAccessibleName(LngStr(TextId::ConnectInstruments));
    SetControlHelp(FrIpConfig, TextId::ConnectInstruments);
    BuildList();
    BtAdd = NewButton(FrIpConfig, "BtAdd", { TextId::ConnectAdd, TextId::ConnectAdd, TextId::ConnectAddHint });
    BtEdit = NewButton(FrIpConfig, "BtEdit", { TextId::ConnectEdit, TextId::ConnectEdit, TextId::ConnectEditHint });
    BtRemove =
        NewButton(FrIpConfig, "BtRemove", { TextId::ConnectRemove, TextId::ConnectRemove, TextId::ConnectRemoveHint });
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : { BtAdd, BtEdit, BtRemove })
        buttons->addWidget(button);
    buttons->addStretch();
    auto* frame = new QHBoxLayout(FrIpConfig);
    frame->setContentsMargins({});
    frame->addWidget(LvIpAddress, 1);
    frame->addLayout(buttons);
}

QLayout* FmConnect::BuildButtons()
{
    BtCon = NewButton(this, "BtCon", { TextId::ConnectConnect, TextId::ConnectConnect, TextId::ConnectConnectHint });
    BtDisc = NewButton(
        this, "BtDisc", { TextId::ConnectDisconnect, TextId::ConnectDisconnect, TextId::ConnectDisconnectHint });
    BtCancel = NewButton(this, "BtCancel", { TextId::ConnectClose, TextId::ConnectClose, TextId::CloseWindowHint });
    BtHelp = NewButton(this, "BtHelp", { TextId::ConnectHelp, TextId::ConnectHelp, TextId::WindowHelpHint });
    QHBoxLayout* buttons = NewButtonRow({ BtCancel, BtHelp }, { BtCon, BtDisc });
    return buttons;
}

void FmConnect::WatchButtons()
{
    connect(BtCon, &QPushButton::clicked, this, [this] { OnConnect(); });
    connect(BtDisc, &QPushButton::clicked, this, [this] { OnDisconnect(); });
    connect(BtAdd, &QPushButton::clicked, this, [this] { OnAdd(); });
    connect(BtEdit, &QPushButton::clicked, this, [this] { OnEdit(); });
    connect(BtRemove, &QPushButton::clicked, this, [this] { OnRemove(); });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] {
        if (!Connection().ConnectInProgress)
            ShowHelp(HelpNumber());
    });
}

bool FmConnect::OnLoad()
{
    DialogPush(*this, false);
    const QSignalBlocker silent(TcConnect);
    TcConnect->setCurrentIndex(static_cast<int>(conStartTab()));
    Connection().ConnectInProgress = false;
    ShowTab();
    return true;
}

bool FmConnect::QueryUnload()
{
    return CanCloseUnasked();
}

bool FmConnect::CanCloseUnasked() const
{
    return !Connection().ConnectInProgress;
}

/// Refreshes twice, since the first time the rows of the previous tab are counted.
void FmConnect::ShowTab()
{
    Refresh();
    Refresh();
}

ConnectTab FmConnect::CurrentTab() const
{
    return static_cast<ConnectTab>(TcConnect->currentIndex());
}

void FmConnect::Refresh()
{
    const ConnectTab tab = CurrentTab();
    const ConnectControls controls = conControls(tab, LvIpAddress->topLevelItemCount());
    ApplyControls(controls);
    ShowRows(conRows(tab));
    if (controls.CanConnect)
        LvIpAddress->setFocus();
    else
        BtDisc->setFocus(); // the list is disabled with its frame
}

void FmConnect::ApplyControls(const ConnectControls& controls)
{
    setWindowTitle(LngStr(controls.Title));
    for (QWidget* control : std::initializer_list<QWidget*>{ BtCon, BtEdit, BtRemove, FrIpConfig, TcConnect })
        control->setEnabled(controls.CanConnect);
    BtDisc->setEnabled(controls.CanDisconnect);
    BtAdd->setEnabled(controls.CanAdd);
    for (QPushButton* button : { BtAdd, BtEdit, BtRemove })
        button->setVisible(controls.HasEditButtons);
    BtCon->setDefault(controls.CanConnect);
    BtDisc->setDefault(controls.CanDisconnect);
}

void FmConnect::ShowRows(const std::vector<ConnectRow>& rows)
{
    LvIpAddress->setUpdatesEnabled(false);
    LvIpAddress->clear();
    for (const ConnectRow& row : rows) {
        auto* item = new QTreeWidgetItem(LvIpAddress, { row.Fields.Name, row.Fields.Address, row.Fields.Port });
        item->setIcon(kNameColumn, RowIcon(row, devicePixelRatioF()));
        item->setData(kNameColumn, Qt::UserRole, row.Icon);
        if (row.Connected)
            item->setData(kNameColumn, Qt::AccessibleDescriptionRole, windowTitle());
        if (row.Selected)
            LvIpAddress->setCurrentItem(item);
    }
    LvIpAddress->setUpdatesEnabled(true);
}

std::optional<QString> FmConnect::SelectedEntry() const
{
    const QTreeWidgetItem* row = LvIpAddress->currentItem();
    if (row == nullptr)
        return std::nullopt;
    return conEntryOf({ row->text(kNameColumn), row->text(kAddressColumn), row->text(kPortColumn) });
}

void FmConnect::OnConnect()
{
    const auto entry = SelectedEntry();
    if (!entry)
        return;
    Connection().SelectedEntry = *entry;
    conShowConnecting();
    if (ChannelIsUp())
        Unload();
    else
        Refresh();
}

void FmConnect::OnDisconnect()
{
    ChannelDisconnect();
    Refresh();
}

void FmConnect::OnAdd()
{
    Connection().SelectedEntry.clear();
    FmConnection connection(this);
    DialogShow(connection);
    Refresh();
}

void FmConnect::OnEdit()
{
    const auto entry = SelectedEntry();
    if (!entry)
        return;
    Connection().SelectedEntry = *entry;
    FmConnection connection(this);
    DialogShow(connection);
    Refresh();
}

/// Refreshes twice, so that room for a new entry is counted without the removed row.
void FmConnect::OnRemove()
{
    const auto entry = SelectedEntry();
    if (!entry)
        return;
    conEntryRemove(conFieldsOf(*entry).Name);
    Refresh();
    Refresh();
}

} // namespace tarvik
