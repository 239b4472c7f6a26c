// link/channel/channel.h: the instrument channel in the program's own types: which operation and which time-out a file
// class has, and text as QString. Each call answers the status word of closed/tvscpi.h: 0 success, 1 link failed, 2
// refused by the instrument, 3 local file.
//
// Remote names that Windows-1252 can't hold are refused with 2 and never sent: another name would be touched.
#pragma once

#include <QString>

#include <cstdint>

namespace tarvik {

using ChannelStatus = qint16;
inline constexpr ChannelStatus kChannelOk = 0;
inline constexpr ChannelStatus kChannelLinkFailed = 1;
inline constexpr ChannelStatus kChannelRefused = 2;
inline constexpr ChannelStatus kChannelLocalFile = 3;

inline constexpr int kConnectTimeoutMs = 5000;
inline constexpr int kFileTimeoutMs = 10000; ///< a file of no family
inline constexpr int kListTimeoutMs = 15000; ///< a file of a family
inline constexpr int kPutActiveTimeoutMs = 100000;
inline constexpr int kStreamTimeoutMs = 5000;

/// True while the link stands; false without the channel module.
bool ChannelIsUp();

/// Connects to an IPv4 address and stores the identification. `port` is 0 to 65535.
[[nodiscard]] ChannelStatus ChannelConnect(const QString& address, int port, QString& identification);
void ChannelDisconnect();

/// After a failed operation: ends the link if it is gone, and answers whether it was.
[[nodiscard]] bool ChannelEndIfGone();

/// A name as a string of the instrument's command language.
QString ChannelQuoted(const QString& name);

/// Sends a line and reads no answer. The second one is for the commands that lock and unlock files.
ChannelStatus ChannelSend(const QString& text);
ChannelStatus ChannelSendCommand(const QString& text);

[[nodiscard]] ChannelStatus ChannelGetDirectory(QString& path);
[[nodiscard]] ChannelStatus ChannelSetDirectory(const QString& path);
[[nodiscard]] ChannelStatus ChannelCreateDirectory(const QString& name);
[[nodiscard]] ChannelStatus ChannelRemoveDirectory(const QString& name);
[[nodiscard]] ChannelStatus ChannelRename(const QString& oldName, const QString& newName);

inline constexpr qint16 kChannelFile = 0;
inline constexpr qint16 kChannelFolder = 1;

/// One row of a walk as the instrument tells it. Any other `Type` than file and folder is to be passed over.
struct ChannelRow {
    QString Name;
    qint16 Type = kChannelFile;
    bool Last = false; ///< no further row follows; this one is valid
    qint16 Year = 0; ///< four digits
    qint16 Month = 0;
    qint16 Day = 0;
    qint16 Hour = 0;
    qint16 Minute = 0;
    qint16 Second = 0;
};

/// Starts a walk of the files of a class. `nothing` is set where there is nothing to walk.
[[nodiscard]] ChannelStatus ChannelStartFind(int fileClass, bool& nothing);
[[nodiscard]] ChannelStatus ChannelNextFile(ChannelRow& row);

/// The answer of a find: 1 exists, 0 does not; any other is neither.
struct ChannelFound {
    qint16 Result = 0;
    qint16 Type = kChannelFile;
};

/// Looks for a name in the folder of its class: K-factor tables and correction sets in their own, any other class in
/// the current one.
[[nodiscard]] ChannelStatus ChannelFind(int fileClass, const QString& name, ChannelFound& found);

/// Fetches `remote` of a class into the file `local`, which stays as it was unless all of it came.
[[nodiscard]] ChannelStatus ChannelGet(int fileClass, const QString& remote, const QString& local);

/// Sends the file `local`. A correction set that takes a new name has a longer time-out than one that replaces a file.
[[nodiscard]] ChannelStatus ChannelPut(int fileClass, const QString& local, const QString& remote, bool replaces);

[[nodiscard]] ChannelStatus ChannelGetActive(const QString& local);
[[nodiscard]] ChannelStatus ChannelPutActive(const QString& local);

/// Removes a K-factor table, a correction set, or by any other class a file of the current folder.
[[nodiscard]] ChannelStatus ChannelRemove(int fileClass, const QString& name);

/// Stores the block that answers a text that was sent before.
[[nodiscard]] ChannelStatus ChannelGetStream(const QString& local);

} // namespace tarvik
