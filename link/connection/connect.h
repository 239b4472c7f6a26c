// link/connection/connect.h: the list of instrument addresses and what is known of the instrument that answered last.
//
// An entry is one text, "name:address:port". A name therefore holds no colon.
#pragma once

#include "app/platform/port.h"

#include <QString>

#include <array>
#include <functional>

namespace tarvik {

inline constexpr int kLanEntries = 9;

struct ConnectionState {
    std::array<QString, kLanEntries> LanEntries; ///< packed: valid entries first, in their order
    QString UsbEntry; ///< the one entry of the USB adapter, which the user can neither add nor remove
    QString SelectedEntry; ///< what a connect uses; empty while an entry is being added
    bool ConnectInProgress = false; ///< from the opening of FmConnecting to the end of the procedure
    int InstrumentAccepted = 0; ///< 1 when the instrument that answered last was recognised
    QString InstrumentSerial;
    double InstrumentFirmware = 0; ///< 0 for a version that is no number
};
ConnectionState& Connection();

/// What an entry is made of; all empty for a text that has not three fields.
struct ConnectionFields {
    QString Name;
    QString Address;
    QString Port;
};
ConnectionFields conFieldsOf(const QString& entry);
QString conEntryOf(const ConnectionFields& fields);

/// The address of a valid entry as the channel takes it: without the blanks and leading zeros that people type. Any
/// other text as it is.
QString conPlainAddress(const QString& address);

/// The address that instruments have on delivery.
QString conDefaultEntry();

/// Reads the entries, drops invalid ones, and puts the USB entry in order. A missing first LAN entry is the factory
/// address; one that is there but empty stays empty. Stores whether the link was up into `Program().ConnectedAtExit`.
void conLoadSettings(const QString& iniFile);

/// Writes the entries, and whether the link is up at this moment.
void conSaveSettings(const QString& iniFile);

/// True for name, an address of four numbers from 0 to 255 and a port of at most four digits. The name is not looked
/// at and may be empty.
bool conEntryValid(const QString& entry);

/// Stores a new entry in the first free slot and selects it. False for an invalid entry or without a free slot.
[[nodiscard]] bool conEntryAdd(const QString& name, const QString& address, const QString& port);

/// Replaces the selected entry and selects the new one. False for an invalid entry, or if none of the slots holds the
/// selected one.
[[nodiscard]] bool conEntryReplace(const QString& name, const QString& address, const QString& port);

/// Empties every slot of that name, case included.
void conEntryRemove(const QString& name);

/// Moves valid entries together and drops all others.
void conEntriesCompact();

/// True unless a LAN slot bears that name, case included.
bool conNameFree(const QString& name);

/// The USB address is fixed: another one loses its port and is no valid entry until the next start, which restores the
/// default.
void conUsbEntryCheck();

/// The instrument as texts name it: by `accepted` the one that was recognised, or instruments in general.
QString conInstrumentName(bool accepted);

/// The forms that this module opens, each until it has closed.
class ConnectForms {
public:
    virtual void ShowDialog() = 0; ///< FmConnect
    virtual void ShowConnecting() = 0; ///< FmConnecting, which runs the connect procedure

protected:
    ~ConnectForms() = default;
};
Port<ConnectForms>& TheConnectForms(); ///< without an implementation nothing is shown

/// Opens the list of connections as one command.
void conShowDialog();

/// Connects to the selected entry, with a form that shows how it goes. Nothing while a connect runs.
void conShowConnecting();

/// Reconnects if asked to, and offers the list of connections where there is no link then, unless the program has been
/// asked to end meanwhile.
void conStart(bool reconnect);

/// Where the connect procedure tells how far it is.
using ConnectDisplay = std::function<void(const QString& text)>;

/// The connect procedure: connects to the selected entry and ends the link again unless maker and model of the
/// instrument that answers are known. `status` is for the user, `debug` for whoever looks for a fault. Blocks for up
/// to about 6 s, and lets events run between its steps.
void conHandleConnection(const ConnectDisplay& status, const ConnectDisplay& debug);

} // namespace tarvik
