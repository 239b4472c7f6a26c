// link/connect.h: the list of instrument addresses and what is known of the instrument that answered last.
//
// An entry is one text, "name:address:port". A name therefore holds no colon.
#pragma once

#include <QString>

#include <array>

inline constexpr int kLanEntries = 9;

struct ConnectionState {
    std::array<QString, kLanEntries> LanEntries; ///< packed: valid entries first, in their order
    QString UsbEntry; ///< the one entry of the USB adapter, which the user can neither add nor remove
    QString SelectedEntry; ///< what a connect uses; empty while an entry is being added
    bool ConnectInProgress = false;
    int InstrumentAccepted = 0; ///< 1 when the instrument that answered last was recognised
    QString InstrumentSerial;
    double InstrumentFirmware = 0; ///< 0 for a version that is no number
};
ConnectionState& Connection();
void ConnectionReset();

/// True while the link to an instrument stands.
bool IsConnected();

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
