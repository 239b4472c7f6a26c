#include "link/connection/connectDialog.h"

#include "app/message/message.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"

#include <algorithm>

namespace tarvik {

namespace {

std::vector<QString> EntriesOf(int tab)
{
    const ConnectionState& state = Connection();
    if (tab == ConnectTabUsb)
        return { state.UsbEntry };
    return { state.LanEntries.begin(), state.LanEntries.end() };
}

QString IconOf(int tab, bool isConnected)
{
    if (tab == ConnectTabUsb)
        return isConnected ? QStringLiteral("UsbConnected") : QStringLiteral("UsbNotConnected");
    return isConnected ? QStringLiteral("LanConnected") : QStringLiteral("LanNotConnected");
}

/// A connection that keeps its name needs no other.
bool NameMayBeUsed(const QString& name)
{
    const QString& selected = Connection().SelectedEntry;
    const bool keepsName = !selected.isEmpty() && name == conFieldsOf(selected).Name;
    return keepsName || conNameFree(name);
}

} // namespace

int conStartTab()
{
    const ConnectionState& state = Connection();
    const bool isLan =
        std::find(state.LanEntries.begin(), state.LanEntries.end(), state.SelectedEntry) != state.LanEntries.end();
    const bool isUsed = ChannelIsUp() || Program().ConnectedAtExit;
    return isUsed && isLan && state.SelectedEntry != state.UsbEntry ? ConnectTabLan : ConnectTabUsb;
}

ConnectControls conControls(int tab, int rowsShown)
{
    ConnectControls controls;
    controls.CanDisconnect = ChannelIsUp();
    controls.CanConnect = !controls.CanDisconnect;
    controls.CanAdd = controls.CanConnect && rowsShown < kLanEntries;
    controls.HasEditButtons = tab == ConnectTabLan;
    controls.Title = controls.CanDisconnect ? TextId::ConnectTitleConnected : TextId::ConnectTitle;
    return controls;
}

std::vector<ConnectRow> conRows(int tab)
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
    if (!NameMayBeUsed(fields.Name)) {
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
    if (!NameMayBeUsed(fields.Name) || fields.Name.contains(u':'))
        return ConnectField::Name;
    if (!isValid(fields.Address, QStringLiteral("0")))
        return ConnectField::Address;
    return isValid(fields.Address, fields.Port) ? ConnectField::Name : ConnectField::Port;
}

} // namespace tarvik
