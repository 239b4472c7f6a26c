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

enum Column { ColumnName, ColumnAddress, ColumnPort };

constexpr int kNameCharacters = 34;
constexpr int kColumnGapPx = 24;
constexpr int kIconPx = 20;
constexpr int kRowGapPx = 6;

/// The connected row's is not pale while the list is off: it is the one thing to look at then.
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
    header->setSectionResizeMode(ColumnName, QHeaderView::Stretch);
    const QFontMetrics font = LvIpAddress->fontMetrics();
    const int addressWidth = font.horizontalAdvance(QStringLiteral("255.255.255.255")) + kColumnGapPx;
    const int portWidth = font.horizontalAdvance(LngStr(TextId::ConnectPortColumn)) + 2 * kColumnGapPx;
    header->resizeSection(ColumnAddress, addressWidth);
    header->resizeSection(ColumnPort, portWidth);
    LvIpAddress->setMinimumWidth(kNameCharacters * font.averageCharWidth() + addressWidth + portWidth);
    LvIpAddress->setMinimumHeight(
        header->sizeHint().height() + kLanEntries * (std::max(font.lineSpacing(), kIconPx) + kRowGapPx));
    connect(LvIpAddress, &QTreeWidget::itemDoubleClicked, this, [this] {
        if (TcConnect->currentIndex() == ConnectTabLan)
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
    TcConnect->setCurrentIndex(conStartTab());
    Connection().ConnectInProgress = false;
    ShowTab();
    return true;
}

bool FmConnect::QueryUnload()
{
    return !Connection().ConnectInProgress;
}

/// The first time the rows of the tab before would be counted.
void FmConnect::ShowTab()
{
    Refresh();
    Refresh();
}

void FmConnect::Refresh()
{
    const int tab = TcConnect->currentIndex();
    const ConnectControls controls = conControls(tab, LvIpAddress->topLevelItemCount());
    ApplyControls(controls);
    ShowRows(conRows(tab));
    if (controls.CanConnect)
        LvIpAddress->setFocus();
    else
        BtDisc->setFocus(); // the list is off with its frame
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
        item->setIcon(ColumnName, RowIcon(row, devicePixelRatioF()));
        item->setData(ColumnName, Qt::UserRole, row.Icon);
        if (row.Connected)
            item->setData(ColumnName, Qt::AccessibleDescriptionRole, windowTitle());
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
    return conEntryOf({ row->text(ColumnName), row->text(ColumnAddress), row->text(ColumnPort) });
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

/// Twice, so that room for a new entry is counted in the list without the removed one.
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
