// link/channel/channel.h: the instrument channel in the program's own types: text as QString, operation and time-out by
// file class.
//
// Remote names that Windows-1252 can't hold are refused and never sent: they would name another file.
#pragma once

#include "link/classes/model.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <vector>

namespace tarvik {

/// How an operation ended: the status word of closed/tvscpi.h.
enum class ChannelStatus : qint16 {
    Success = 0,
    LinkFailed = 1,
    Refused = 2, ///< by the instrument
    LocalFile = 3, ///< the local file can't be read or written
    Unknown = -1 ///< an undefined status word; a failure
};

/// The status of a word; Unknown for any outside 0 to 3.
ChannelStatus ChannelStatusOf(qint16 word);

inline constexpr int kConnectTimeoutMs = 5000;
inline constexpr int kFileTimeoutMs = 10'000; ///< a file of no family
inline constexpr int kListTimeoutMs = 15000; ///< a file of a family
inline constexpr int kPutActiveTimeoutMs = 100000;
inline constexpr int kStreamTimeoutMs = 5000;

/// True while connected; false without the channel module.
bool ChannelIsUp();

/// Connects to an IPv4 address and returns the instrument's identification. `port` is 0 to 65535.
[[nodiscard]] ChannelStatus ChannelConnect(const QString& address, int port, QString& identification);
void ChannelDisconnect();

/// After a failed operation: disconnects if the link is lost; true if it was.
[[nodiscard]] bool ChannelDisconnectIfLost();

/// True for a name that can be sent: 1 to 255 characters of Windows-1252, none of them a control character or one that
/// separates the parts of a path.
bool ChannelIsName(const QString& name);

/// `name` as a quoted string of the command language.
QString ChannelQuoted(const QString& name);

/// Sends a line and reads no answer; ChannelSendCommand is for the commands that lock and unlock files.
ChannelStatus ChannelSend(const QString& text);
ChannelStatus ChannelSendCommand(const QString& text);

[[nodiscard]] ChannelStatus ChannelGetDirectory(QString& path);
[[nodiscard]] ChannelStatus ChannelSetDirectory(const QString& path);
[[nodiscard]] ChannelStatus ChannelCreateDirectory(const QString& name);
[[nodiscard]] ChannelStatus ChannelRemoveDirectory(const QString& name);
[[nodiscard]] ChannelStatus ChannelRename(const QString& oldName, const QString& newName);

/// Type of a directory entry. Other is ignored.
enum class ChannelRowType : qint16 { File = 0, Folder = 1, Other = -1 };

/// The type of a word; Other for any but 0 and 1.
ChannelRowType ChannelRowTypeOf(qint16 word);

/// One directory entry as the instrument sends it.
struct ChannelRow {
    QString Name;
    ChannelRowType Type = ChannelRowType::File;
    bool Last = false; ///< the last row of the walk; valid itself
    qint16 Year = 0; ///< four digits
    qint16 Month = 0;
    qint16 Day = 0;
    qint16 Hour = 0;
    qint16 Minute = 0;
    qint16 Second = 0;
};

/// Starts a walk over the files of a class. `nothing` is set when there are none.
[[nodiscard]] ChannelStatus ChannelStartFind(FileClass fileClass, bool& nothing);
[[nodiscard]] ChannelStatus ChannelNextFile(ChannelRow& row);

/// Date and time of a row, as UTC since the instrument has no time zone; invalid if they are no date.
QDateTime ChannelRowTime(const ChannelRow& row);

/// Walks the files of a class and appends the rows to `rows`, after a failure those received before it.
[[nodiscard]] ChannelStatus ChannelWalk(FileClass fileClass, std::vector<ChannelRow>& rows);

enum class ChannelPresence : qint16 { Missing = 0, Exists = 1, Unknown = -1 };

/// The presence of a word; Unknown for any but 0 and 1.
ChannelPresence ChannelPresenceOf(qint16 word);

/// Result of a find.
struct ChannelFound {
    ChannelPresence Result = ChannelPresence::Missing;
    ChannelRowType Type = ChannelRowType::File;
};

/// Looks for a name in the folder of K-factor tables or correction sets, for any other class in the current directory.
[[nodiscard]] ChannelStatus ChannelFind(FileClass fileClass, const QString& name, ChannelFound& found);

/// Fetches `remote` into the file `local`, which is replaced only by a complete file.
[[nodiscard]] ChannelStatus ChannelGet(FileClass fileClass, const QString& remote, const QString& local);

/// Sends the file `local`. A correction set under a new name has a longer time-out than one that replaces a file.
[[nodiscard]] ChannelStatus ChannelPut(FileClass fileClass, const QString& local, const QString& remote, bool replaces);

[[nodiscard]] ChannelStatus ChannelGetActive(const QString& local);
[[nodiscard]] ChannelStatus ChannelPutActive(const QString& local);

/// Removes a K-factor table or a correction set, for any other class a file of the current directory.
[[nodiscard]] ChannelStatus ChannelRemove(FileClass fileClass, const QString& name);

/// Stores the data block that answers the last ChannelSend.
[[nodiscard]] ChannelStatus ChannelGetStream(const QString& local);

} // namespace tarvik
