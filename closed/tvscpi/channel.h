// closed/tvscpi/channel.h: one connection to an instrument and the few forms of exchange that all operations have.
//
// Every exchange but the identification is one round trip: the instrument's error queue is cleared, the command given
// and the queue asked for, all in one. So an error that an earlier command left behind is never taken for this one's.
#pragma once

#include "closed/files/files.h"
#include "closed/tvscpi.h"
#include "closed/tvscpi/answer.h"
#include "closed/tvscpi/inbox.h"
#include "closed/tvscpi/wire.h"

#include <functional>
#include <memory>

namespace tvscpi {

enum class Status : int16_t {
    Ok = TvScpiOk,
    LinkFailed = TvScpiLinkFailed, ///< the connection is closed
    Refused = TvScpiRefused,
    LocalFile = TvScpiLocalFile
};

class Channel {
public:
    /// Ends a connection that stands, makes one to an IPv4 address and asks who is there.
    [[nodiscard]] Status Connect(const char* address, uint16_t port, int32_t timeoutMs, std::string& identification);

    /// The same over a connection that exists already.
    [[nodiscard]] Status Attach(std::unique_ptr<Wire> wire, const Deadline& deadline, std::string& identification);
    void Disconnect();

    /// Looks at the connection: one that the instrument has closed is closed here too.
    bool IsConnected();

    /// Sends one line and reads nothing.
    [[nodiscard]] Status Send(std::string_view line);

    /// Gives a command that has no answer.
    [[nodiscard]] Status Command(const std::string& command);

    /// Asks for a line of at most `longest` characters. `take` is called with it if the instrument reports no error;
    /// its false means that the line makes no sense.
    using Taker = std::function<bool(std::string_view)>;
    [[nodiscard]] Status Ask(const std::string& query, size_t longest, const Taker& take);

    /// Asks for a block and stores it in the file `local`, which stays as it was unless all of it came.
    [[nodiscard]] Status Download(const std::string& query, const char* local, int32_t timeoutMs);

    /// Stores the block that a line sent before asked for.
    [[nodiscard]] Status DownloadPending(const char* local, int32_t timeoutMs);

    /// Gives a command whose last argument is a block: `start`, then the file `local`.
    [[nodiscard]] Status Upload(const std::string& start, const char* local, int32_t timeoutMs);

    /// Asks for a catalogue, which `NextEntry` then gives entry by entry.
    [[nodiscard]] Status StartWalk(const std::string& query, Catalogue& totals);
    [[nodiscard]] bool HasNextEntry() const
    {
        return nextEntry_ < walk_.size();
    }
    [[nodiscard]] Status NextEntry(CatalogueEntry& entry);

    /// Closes the connection, since what comes over it can't be trusted any more.
    Status Drop();

    /// Of an operation that is given no time-out.
    int32_t DefaultTimeoutMs = TVSCPI_DEFAULT_TIMEOUT_MS;

private:
    /// Whether an error behind a block can be one that lines sent before have left.
    enum class OldErrors { None, MayBeThere };

    [[nodiscard]] bool IsReady();
    [[nodiscard]] bool SendAll(std::string_view request, const Deadline& deadline);
    [[nodiscard]] Status StoreAnswer(
        std::string_view request, OldErrors oldErrors, const char* local, const Deadline& deadline);
    [[nodiscard]] Status Outcome(Inbox& inbox);
    [[nodiscard]] Status ErrorInsteadOfAnswer(Inbox& inbox);
    [[nodiscard]] Status TakeBlock(Inbox& inbox, tvfile::NewFile& file, uint64_t& length);
    [[nodiscard]] Status SendFile(const std::string& start, tvfile::SourceFile& file, const Deadline& deadline);
    [[nodiscard]] Status Finish(Inbox& inbox, Status status);

    std::unique_ptr<Wire> wire_;
    std::vector<uint8_t> buffer_; ///< of the outbox, then of the inbox of an exchange
    bool hasRest_ = false; ///< the last exchange left bytes unread
    std::vector<CatalogueEntry> walk_;
    size_t nextEntry_ = 0;
};

/// The one that the module's operations work on.
Channel& TheChannel();

} // namespace tvscpi
