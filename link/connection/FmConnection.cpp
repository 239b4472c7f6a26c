#include "link/connection/FmConnection.h"

#include "app/forms/focusRules.h"
#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/textId.h"
#include "link/connection/connectDialog.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarvik {

namespace {

/// The longest name that the settings file can hold; address and port also have room for invalid texts.
constexpr int kNameLength = 230;
constexpr int kAddressLength = 39;
constexpr int kPortLength = 8;
constexpr int kWidthCharacters = 34;

} // namespace

FmConnection::FmConnection(QWidget* parent)
    : FormBase("FmConnection", parent)
{
    LngSetForm(this, TextId::ConnectionTitle);
    SetHelpNumber(TextId::ConnectionTitle);
    QVBoxLayout* form = NewFormColumn(this);
    form->addLayout(BuildFields());
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(BuildButtons());
    form->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout* FmConnection::BuildFields()
{
    auto* fields = new QGridLayout;
    const auto add = [this, fields](const char* label, const char* name, TextNumber<0> text, int length) {
        QLabel* caption = NewLabel(this, label, { text });
        QLineEdit* textBox = NewTextBox(this, name, text, length);
        BindLabel(caption, textBox);
        SelectAllOnFocus(textBox);
        const int row = fields->rowCount();
        fields->addWidget(caption, row, 0);
        fields->addWidget(textBox, row, 1);
        return textBox;
    };
    TbConnectionName = add("LbConnectionName", "TbConnectionName", TextId::ConnectionName, kNameLength);
    TbIpAddress = add("LbIpAddress", "TbIpAddress", TextId::ConnectionAddress, kAddressLength);
    TbIpPort = add("LbIpPort", "TbIpPort", TextId::ConnectionPort, kPortLength);
    TbConnectionName->setMinimumWidth(kWidthCharacters * fontMetrics().averageCharWidth());
    return fields;
}

QLayout* FmConnection::BuildButtons()
{
    QPushButton* BtDefault = NewButton(
        this, "BtDefault", { TextId::ConnectionDefault, TextId::ConnectionDefault, TextId::ConnectionDefaultHint });
    QPushButton* BtOk =
        NewButton(this, "BtOk", { TextId::ConnectionOk, TextId::ConnectionOk, TextId::ConnectionOkHint });
    QPushButton* BtCancel = NewButton(
        this, "BtCancel", { TextId::ConnectionCancel, TextId::ConnectionCancel, TextId::ConnectionCancelHint });
    QPushButton* BtHelp =
        NewButton(this, "BtHelp", { TextId::ConnectionHelp, TextId::ConnectionHelp, TextId::WindowHelpHint });
    BtOk->setDefault(true);
    QHBoxLayout* buttons = NewButtonRow({ BtOk, BtCancel, BtHelp }, { BtDefault });
    connect(BtDefault, &QPushButton::clicked, this, [this] { ShowFields(conFieldsOf(conDefaultEntry())); });
    connect(BtOk, &QPushButton::clicked, this, [this] { OnOk(); });
    connect(BtCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
    return buttons;
}

bool FmConnection::OnLoad()
{
    ShowFields(conFieldsOf(Connection().SelectedEntry));
    DialogPush(*this, false);
    TbConnectionName->setFocus(Qt::TabFocusReason);
    return true;
}

void FmConnection::ShowFields(const ConnectionFields& fields)
{
    TbConnectionName->setText(fields.Name);
    TbIpAddress->setText(fields.Address);
    TbIpPort->setText(fields.Port);
}

void FmConnection::OnOk()
{
    const ConnectionFields fields{ TbConnectionName->text(), TbIpAddress->text(), TbIpPort->text() };
    if (conEntryAccept(fields)) {
        Unload();
        return;
    }
    const ConnectField fault = conFieldAtFault(fields);
    QLineEdit* field = fault == ConnectField::Name ? TbConnectionName
        : fault == ConnectField::Address           ? TbIpAddress
                                                   : TbIpPort;
    field->setFocus(Qt::TabFocusReason);
}

} // namespace tarvik
