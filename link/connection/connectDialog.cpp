#include "link/connection/connectDialog.h"

#include "app/message/message.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"

#include <algorithm>

namespace tarvik {

namespace {

std::vector<QString> EntriesOf(ConnectTab tab)
{
    const ConnectionState& state = Connection();
    if (tab == ConnectTab::Usb)
        return { state.UsbEntry };
    return { state.LanEntries.begin(), state.LanEntries.end() };
}

QString IconOf(ConnectTab tab, bool isConnected)
{
    if (tab == ConnectTab::Usb)
        return isConnected ? QStringLiteral("UsbConnected") : QStringLiteral("UsbNotConnected");
    return isConnected ? QStringLiteral("LanConnected") : QStringLiteral("LanNotConnected");
}

/// True also for the unchanged name of the edited connection.
bool CanUseName(const QString& name)
{
    const QString& selected = Connection().SelectedEntry;
    const bool keepsName = !selected.isEmpty() && name == conFieldsOf(selected).Name;
    return keepsName || conNameFree(name);
}

} // namespace

ConnectTab conStartTab()
{
    const ConnectionState& state = Connection();
    const bool isLan =
        std::find(state.LanEntries.begin(), state.LanEntries.end(), state.SelectedEntry) != state.LanEntries.end();
    const bool isUsed = ChannelIsUp() || Program().ConnectedAtExit;
    return isUsed && isLan && state.SelectedEntry != state.UsbEntry ? ConnectTab::Lan : ConnectTab::Usb;
}

ConnectControls conControls(ConnectTab tab, int rowsShown)
{
    ConnectControls controls;
    controls.CanDisconnect = ChannelIsUp();
    controls.CanConnect = !controls.CanDisconnect;
    controls.CanAdd = controls.CanConnect && rowsShown < kLanEntries;
    controls.HasEditButtons = tab == ConnectTab::Lan;
    controls.Title = controls.CanDisconnect ? TextId::ConnectTitleConnected : TextId::ConnectTitle;
    return controls;
}

std::vector<ConnectRow> conRows(ConnectTab tab)
{
    std::vector<ConnectRow> rows;
    size_t selected = 0;
    const bool isUp = ChannelIsUp();
    for (const QString& entry : EntriesOf(tab)) {
        if (!conEntryValid(entry))
            continue;
        const bool isSelected = entry == Connection().SelectedEntry;
        if (isSelected)
            selected = rows.size();
        const bool isConnected = isSelected && isUp;
        rows.push_back({ conFieldsOf(entry), IconOf(tab, isConnected), isConnected, false });
    }
    if (!rows.empty())
        rows[selected].Selected = true;
    return rows;
}

bool conEntryAccept(const ConnectionFields& fields)
{
    if (!CanUseName(fields.Name)) {
        MsgOk(TextId::ConnectionNameInUse);
        return false;
    }
    const bool isNew = Connection().SelectedEntry.isEmpty();
    const bool isStored = isNew ? conEntryAdd(fields.Name, fields.Address, fields.Port)
                                : conEntryReplace(fields.Name, fields.Address, fields.Port);
    if (!isStored)
        MsgOk(TextId::ConnectionNotStored);
    return isStored;
}

ConnectField conFieldAtFault(const ConnectionFields& fields)
{
    const auto isValid = [](const QString& address, const QString& port) {
        return conEntryValid(conEntryOf({ {}, address, port }));
    };
    if (!CanUseName(fields.Name) || fields.Name.contains(u':'))
        return ConnectField::Name;
    if (!isValid(fields.Address, QStringLiteral("0")))
        return ConnectField::Address;
    return isValid(fields.Address, fields.Port) ? ConnectField::Name : ConnectField::Port;
}

} // namespace tarvik
