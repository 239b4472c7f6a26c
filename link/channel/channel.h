// link/channel/channel.h: the instrument channel in the program's own types: which operation and which time-out a file
// class has, and text as QString.
//
// Remote names that Windows-1252 can't hold are refused and never sent: another name would be touched.
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
    LocalFile = 3, ///< the file of this side can't be read or written
    Unknown = -1 ///< a word that no channel should answer; a failure
};

/// The status of a word; Unknown for any outside 0 to 3.
ChannelStatus ChannelStatusOf(qint16 word);

inline constexpr int kConnectTimeoutMs = 5000;
inline constexpr int kFileTimeoutMs = 10'000; ///< a file of no family
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

/// What a name of the instrument is. Other is to be passed over.
enum class ChannelRowType : qint16 { File = 0, Folder = 1, Other = -1 };

/// The type of a word; Other for any but 0 and 1.
ChannelRowType ChannelRowTypeOf(qint16 word);

/// One row of a walk as the instrument sends it.
struct ChannelRow {
    QString Name;
    ChannelRowType Type = ChannelRowType::File;
    bool Last = false; ///< no further row follows; this one is valid
    qint16 Year = 0; ///< four digits
    qint16 Month = 0;
    qint16 Day = 0;
    qint16 Hour = 0;
    qint16 Minute = 0;
    qint16 Second = 0;
};

/// Starts a walk of the files of a class. `nothing` is set where there is nothing to walk.
[[nodiscard]] ChannelStatus ChannelStartFind(FileClass fileClass, bool& nothing);
[[nodiscard]] ChannelStatus ChannelNextFile(ChannelRow& row);

/// The date and time of a row as UTC, since the instrument knows no time zone; invalid where they are no date.
QDateTime ChannelRowTime(const ChannelRow& row);

/// Walks the files of a class and appends its rows to `rows`; those that came before a failure stay there.
[[nodiscard]] ChannelStatus ChannelWalk(FileClass fileClass, std::vector<ChannelRow>& rows);

enum class ChannelPresence : qint16 { Missing = 0, Exists = 1, Unknown = -1 };

/// The presence of a word; Unknown, which is neither, for any but 0 and 1.
ChannelPresence ChannelPresenceOf(qint16 word);

/// The answer of a find.
struct ChannelFound {
    ChannelPresence Result = ChannelPresence::Missing;
    ChannelRowType Type = ChannelRowType::File;
};

/// Looks for a name in the folder of its class: K-factor tables and correction sets in their own, any other class in
/// the current one.
[[nodiscard]] ChannelStatus ChannelFind(FileClass fileClass, const QString& name, ChannelFound& found);

/// Fetches `remote` of a class into the file `local`, which stays as it was unless all of it came.
[[nodiscard]] ChannelStatus ChannelGet(FileClass fileClass, const QString& remote, const QString& local);

/// Sends the file `local`. A correction set that takes a new name has a longer time-out than one that replaces a file.
[[nodiscard]] ChannelStatus ChannelPut(FileClass fileClass, const QString& local, const QString& remote, bool replaces);

[[nodiscard]] ChannelStatus ChannelGetActive(const QString& local);
[[nodiscard]] ChannelStatus ChannelPutActive(const QString& local);

/// Removes a K-factor table, a correction set, or by any other class a file of the current folder.
[[nodiscard]] ChannelStatus ChannelRemove(FileClass fileClass, const QString& name);

/// Stores the block that answers a text that was sent before.
[[nodiscard]] ChannelStatus ChannelGetStream(const QString& local);

} // namespace tarvik
