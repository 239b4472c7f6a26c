// link/connection/connect.h: the list of instrument addresses, and what is known about the last instrument connected.
//
// An entry is one text, "name:address:port", so a name contains no colon.
#pragma once

#include "app/platform/port.h"
#include "app/text/textNumber.h"

#include <QString>

#include <array>
#include <functional>

namespace tarvik {

inline constexpr int kLanEntries = 9;

struct ConnectionState {
    std::array<QString, kLanEntries> LanEntries; ///< packed: valid entries first, in order
    QString UsbEntry; ///< the fixed entry of the USB adapter
    QString SelectedEntry; ///< the entry to connect to; empty while an entry is being added
    bool ConnectInProgress = false; ///< from the opening of FmConnecting to the end of the connect procedure
    int InstrumentAccepted = 0; ///< 1 if the last instrument that replied was recognised
    QString InstrumentSerial;
    double InstrumentFirmware = 0; ///< 0 if the version is no number
};
ConnectionState& Connection();

/// The fields of an entry; all empty for a text that does not have three.
struct ConnectionFields {
    QString Name;
    QString Address;
    QString Port;
};
ConnectionFields conFieldsOf(const QString& entry);
QString conEntryOf(const ConnectionFields& fields);

/// The address of a valid entry without blanks and leading zeros, as the channel requires it. Any other text is
/// returned unchanged.
QString conNormalisedAddress(const QString& address);

/// The entry with the factory address.
QString conDefaultEntry();

/// Reads the entries, drops invalid ones and checks the USB entry. A missing first LAN entry becomes the factory
/// address; an empty one stays empty. Sets `Program().ConnectedAtExit`.
void conLoadSettings(const QString& iniFile);

/// Writes the entries, and whether the link is up now.
void conSaveSettings(const QString& iniFile);

/// True for a name, an address of four numbers from 0 to 255 and a port of at most four digits. The name is not checked
/// and may be empty.
bool conEntryValid(const QString& entry);

/// Stores an entry in the first free slot and selects it. False if it is invalid or no slot is free.
[[nodiscard]] bool conEntryAdd(const QString& name, const QString& address, const QString& port);

/// Replaces the selected entry and selects the new one. False if it is invalid or the selected one is in no slot.
[[nodiscard]] bool conEntryReplace(const QString& name, const QString& address, const QString& port);

/// Clears every slot of that name, case-sensitive.
void conEntryRemove(const QString& name);

/// Packs valid entries and drops all others.
void conEntriesCompact();

/// True unless a LAN entry has that name, case-sensitive.
bool conNameFree(const QString& name);

/// The USB address is fixed: an entry with another one loses its port, so it is invalid until the next start restores
/// the default.
void conUsbEntryCheck();

/// Name of the instrument in texts: of the recognised family if `accepted`, else of any instrument.
QString conInstrumentName(bool accepted);

/// Why an instrument is refused.
struct InstrumentRefusal {
    TextNumber<0> Id; ///< none if it is accepted
    QString Text; ///< of `Id`, with the instrument's maker and model if it says them
};

/// Judges an instrument by its identification, and stores serial number and firmware if its maker is known.
InstrumentRefusal conCheckIdentification(const QString& identification);

/// The forms that this module opens. Each call returns when the form has closed.
class ConnectForms {
public:
    virtual void ShowDialog() = 0; ///< FmConnect
    virtual void ShowConnecting() = 0; ///< FmConnecting, which runs the connect procedure

protected:
    ~ConnectForms() = default;
};
Port<ConnectForms>& TheConnectForms(); ///< without an implementation nothing is shown

/// Opens the list of connections; busy meanwhile.
void conShowDialog();

/// Connects to the selected entry and shows the progress. Does nothing during a connect.
void conShowConnecting();

/// Reconnects if asked to, then opens the list of connections if there is no link, unless the program has been asked to
/// close meanwhile.
void conStart(bool reconnect);

/// Receives the texts of the connect procedure.
using ConnectDisplay = std::function<void(const QString& text)>;

/// The connect procedure: connects to the selected entry, and disconnects again unless maker and model of the
/// instrument are known. `status` is for the user, `debug` for troubleshooting. Blocks for up to about 6 s and
/// processes events between its steps.
void conHandleConnection(const ConnectDisplay& status, const ConnectDisplay& debug);

} // namespace tarvik
