// tests/support/fakeChannel.h: an instrument channel without an instrument: what was called is written down, and each
// operation answers what the test prepared.
#pragma once

#include "link/channel/channel.h"

#include <QStringList>

#include <functional>
#include <map>
#include <vector>

namespace tarvik {

/// Stands in the channel's place while it lives. One at a time.
///
/// A call is logged as its name without "scpi", then its arguments, then its time-out, parted by blanks:
/// "GetMemoryListFile list.tvm /tmp/x/list.tvm 15000".
class FakeChannel {
public:
    FakeChannel();
    ~FakeChannel();
    FakeChannel(const FakeChannel&) = delete;
    FakeChannel& operator=(const FakeChannel&) = delete;

    QStringList Log;
    bool Connected = true;
    bool Gone = false; ///< what scpiCheckConnection answers; scpiDisconnect clears both
    QString Identification = QStringLiteral("TARVIK,TR-100,123456,4.3");
    QString Directory = QStringLiteral("\\Public\\Screen Shots");
    std::vector<ChannelRow> Rows; ///< of the next walks; `Last` is set by the channel
    bool NothingToWalk = false; ///< an empty `Rows` means the same

    /// Answers of the find operations by name: a name that is not here does not exist.
    std::map<QString, ChannelFound> Exists;

    /// The next call of `operation` (named as in the log) gives `status`; further calls of this method queue up.
    /// An operation without a queued status succeeds.
    void Answer(const QString& operation, ChannelStatus status);

    /// Runs before an operation is carried out, with the line that is logged.
    std::function<void(const QString& call)> OnCall = [](const QString&) {};

    /// What a download stores.
    QByteArray Contents = QByteArrayLiteral("contents");

    /// Calls in the log that begin with `operation`.
    [[nodiscard]] int Count(const QString& operation) const;

    /// Writes the call down and answers the status prepared for it.
    ChannelStatus Take(const QString& operation, const QStringList& arguments);

private:
    friend struct FakeChannelCalls;
    std::map<QString, std::vector<ChannelStatus>> answers_;
    size_t nextRow_ = 0;
};

} // namespace tarvik
