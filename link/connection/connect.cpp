#include "link/connection/connect.h"

#include "app/platform/processState.h"
#include "app/settings/ini.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"
#include "link/channel/channel.h"

#include <QStringList>

#include <algorithm>

namespace tarvik {

namespace {

const QString kSection = QStringLiteral("connection");
const QString kDefaultLanEntry = QStringLiteral("Default:172.17.75.1:5555");
const QString kDefaultUsbEntry = QStringLiteral("USB (only 1 instance):169.254.1.1:5555");

constexpr int kFields = 3;

QString LanKey(int slot)
{
    return QStringLiteral("ipAddressLan%1").arg(slot);
}

bool HasName(const QString& entry, const QString& name)
{
    const QStringList fields = entry.split(u':');
    return fields.size() == kFields && fields[0] == name;
}

/// A whole number in the range; a sign or a point among the digits makes it invalid.
bool IsWholeInRange(const QString& text, int low, int high)
{
    bool ok = false;
    const QString trimmed = text.trimmed();
    const int number = trimmed.toInt(&ok);
    const bool hasSign = trimmed.startsWith(u'+') || trimmed.startsWith(u'-');
    return IsNumberText(text) && ok && !hasSign && InRange(number, low, high);
}

bool IsAddress(const QString& text)
{
    constexpr int kNumbers = 4;
    const QStringList numbers = text.split(u'.');
    return numbers.size() == kNumbers
        && std::all_of(numbers.begin(), numbers.end(), [](const QString& at) { return IsWholeInRange(at, 0, 255); });
}

bool IsPort(const QString& text)
{
    constexpr int kMostCharacters = 4;
    return text.size() <= kMostCharacters && IsWholeInRange(text, 0, 9999);
}

QString ReadText(const QString& iniFile, const QString& key, const QString& fallback)
{
    QString text;
    IniReadString(iniFile, kSection, key, fallback, text);
    const bool isQuoted = text.size() > 1 && text.startsWith(u'"') && text.endsWith(u'"');
    return isQuoted ? text.sliced(1, text.size() - 2) : text;
}

/// An entry with blanks around it is quoted, since the settings file drops them.
void WriteText(const QString& iniFile, const QString& key, const QString& text)
{
    IniWriteString(iniFile, kSection, key, text.trimmed() == text ? text : u'"' + text + u'"');
}

} // namespace

ConnectionState& Connection()
{
    static ProcessState<ConnectionState> state;
    return state.Get();
}

ConnectionFields conFieldsOf(const QString& entry)
{
    const QStringList fields = entry.split(u':');
    return fields.size() == kFields ? ConnectionFields{ fields[0], fields[1], fields[2] } : ConnectionFields();
}

QString conEntryOf(const ConnectionFields& fields)
{
    return fields.Name + u':' + fields.Address + u':' + fields.Port;
}

QString conNormalisedAddress(const QString& address)
{
    if (!IsAddress(address))
        return address;
    QStringList numbers = address.split(u'.');
    for (QString& number : numbers)
        number = QString::number(number.toInt());
    return numbers.join(u'.');
}

QString conDefaultEntry()
{
    return kDefaultLanEntry;
}

void conLoadSettings(const QString& iniFile)
{
    ConnectionState& state = Connection();
    Program().ConnectedAtExit = IniReadBool(iniFile, kSection, QStringLiteral("Connected"), false);
    for (int slot = 0; slot < kLanEntries; ++slot)
        state.LanEntries[static_cast<size_t>(slot)] =
            ReadText(iniFile, LanKey(slot), slot == 0 ? kDefaultLanEntry : QString());
    state.UsbEntry = ReadText(iniFile, QStringLiteral("ipAddressUsb0"), kDefaultUsbEntry);
    state.SelectedEntry = ReadText(iniFile, QStringLiteral("ipAddressSelected"), {});
    conEntriesCompact();
    conUsbEntryCheck();
}

void conSaveSettings(const QString& iniFile)
{
    const ConnectionState& state = Connection();
    IniWriteBool(iniFile, kSection, QStringLiteral("Connected"), ChannelIsUp());
    for (int slot = 0; slot < kLanEntries; ++slot)
        WriteText(iniFile, LanKey(slot), state.LanEntries[static_cast<size_t>(slot)]);
    WriteText(iniFile, QStringLiteral("ipAddressUsb0"), state.UsbEntry);
    WriteText(iniFile, QStringLiteral("ipAddressSelected"), state.SelectedEntry);
}

bool conEntryValid(const QString& entry)
{
    const QStringList fields = entry.split(u':');
    return fields.size() == kFields && IsAddress(fields[1]) && IsPort(fields[2]);
}

bool conEntryAdd(const QString& name, const QString& address, const QString& port)
{
    ConnectionState& state = Connection();
    const QString entry = conEntryOf({ name, address, port });
    const auto free = std::find_if_not(state.LanEntries.begin(), state.LanEntries.end(), conEntryValid);
    if (!conEntryValid(entry) || free == state.LanEntries.end())
        return false;
    *free = entry;
    state.SelectedEntry = entry;
    return true;
}

bool conEntryReplace(const QString& name, const QString& address, const QString& port)
{
    ConnectionState& state = Connection();
    const QString entry = conEntryOf({ name, address, port });
    const auto slot = std::find(state.LanEntries.begin(), state.LanEntries.end(), state.SelectedEntry);
    if (!conEntryValid(entry) || slot == state.LanEntries.end())
        return false;
    *slot = entry;
    state.SelectedEntry = entry;
    return true;
}

void conEntryRemove(const QString& name)
{
    for (QString& entry : Connection().LanEntries) {
        if (HasName(entry, name))
            entry.clear();
    }
    conEntriesCompact();
}

void conEntriesCompact()
{
    auto& entries = Connection().LanEntries;
    const auto end = std::stable_partition(entries.begin(), entries.end(), conEntryValid);
    std::fill(end, entries.end(), QString());
}

bool conNameFree(const QString& name)
{
    const auto& entries = Connection().LanEntries;
    return std::none_of(entries.begin(), entries.end(), [&name](const QString& entry) { return HasName(entry, name); });
}

void conUsbEntryCheck()
{
    QString& entry = Connection().UsbEntry;
    const QStringList fields = entry.split(u':');
    const QString defaultAddress = kDefaultUsbEntry.split(u':')[1];
    if (fields.size() != kFields)
        entry = kDefaultUsbEntry;
    else if (fields[1] != defaultAddress)
        entry = fields[0] + u':' + defaultAddress;
}

QString conInstrumentName(bool accepted)
{
    return LngStr(accepted ? TextId::FamilyInstrument : TextId::OtherInstrument);
}

} // namespace tarvik
