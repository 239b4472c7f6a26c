// closed/tvscpi/channel.h: one connection to an instrument and the kinds of exchange that all operations use.
// Every exchange but the identification is one round trip: it clears the instrument's error queue, sends the command
// and queries the queue. So an error left by an earlier command is never attributed to this one.
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
    /// Closes an existing connection, connects to an IPv4 address and queries the identification.
    [[nodiscard]] Status Connect(const char* address, uint16_t port, int32_t timeoutMs, std::string& identification);

    /// As above, over an existing connection.
    [[nodiscard]] Status Attach(std::unique_ptr<Wire> wire, const Deadline& deadline, std::string& identification);
    void Disconnect();

    /// Polls the connection; closes it if the instrument has closed its end.
    bool IsConnected();

    /// Sends one line without reading an answer.
    [[nodiscard]] Status Send(std::string_view line);

    /// Sends a command that has no answer.
    [[nodiscard]] Status Command(const std::string& command);

    /// Queries a line of at most `longest` characters. `take` is called with it if the instrument reports no error,
    /// and returns false for an invalid line.
    using Taker = std::function<bool(std::string_view)>;
    [[nodiscard]] Status Ask(const std::string& query, size_t longest, const Taker& take);
    [[nodiscard]] Status Ask(const std::string& query, size_t longest, const Taker& take, const Deadline& deadline);

    /// Queries a block and stores it in the file `local`, which is unchanged unless the whole block arrives.
    [[nodiscard]] Status Download(const std::string& query, const char* local, int32_t timeoutMs);

    /// Stores the block that an earlier line has requested.
    [[nodiscard]] Status DownloadPending(const char* local, int32_t timeoutMs);

    /// Sends a command whose last argument is a block: `start`, then the contents of the file `local`.
    [[nodiscard]] Status Upload(const std::string& start, const char* local, int32_t timeoutMs);

    /// Queries a catalogue, which `NextEntry` then returns entry by entry. The time-out counts from the last byte
    /// received, since a long catalogue takes longer than any short answer.
    [[nodiscard]] Status StartWalk(const std::string& query, Catalogue& totals);
    [[nodiscard]] bool HasNextEntry() const
    {
        return nextEntry_ < walk_.size();
    }
    [[nodiscard]] Status NextEntry(CatalogueEntry& entry);

    /// Closes the connection, whose data can't be trusted any more.
    Status Drop();

    /// For operations without a time-out argument.
    int32_t DefaultTimeoutMs = TVSCPI_DEFAULT_TIMEOUT_MS;

private:
    /// Whether an error after a block may stem from earlier lines.
    enum class OldErrors { None, Possible };

    [[nodiscard]] bool IsReady();
    [[nodiscard]] bool SendAll(std::string_view request, const Deadline& deadline);
    [[nodiscard]] Status StoreAnswer(
        std::string_view request, OldErrors oldErrors, const char* local, const Deadline& deadline);
    [[nodiscard]] Status Outcome(Inbox& inbox);
    [[nodiscard]] Status ReadRefusal(Inbox& inbox);
    [[nodiscard]] Status TakeBlock(Inbox& inbox, tvfile::NewFile& file, uint64_t& length);
    [[nodiscard]] Status SendFile(const std::string& start, tvfile::SourceFile& file, const Deadline& deadline);
    [[nodiscard]] Status Finish(Inbox& inbox, Status status);

    std::unique_ptr<Wire> wire_;
    std::vector<uint8_t> buffer_; ///< used by the outbox, then by the inbox of an exchange
    bool hasUnread_ = false; ///< the last exchange left unread bytes
    std::vector<CatalogueEntry> walk_;
    size_t nextEntry_ = 0;
};

/// The channel of the module's operations.
Channel& TheChannel();

} // namespace tvscpi
