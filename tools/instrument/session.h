// tools/instrument/session.h: the connection of one client.
#pragma once

#include "tools/instrument/answers.h"
#include "tools/instrument/descriptor.h"
#include "tools/instrument/instrument.h"
#include "tools/instrument/linkOptions.h"
#include "tools/instrument/messageReader.h"

#include <chrono>
#include <string>
#include <string_view>

namespace tarvik {

using LinkTime = std::chrono::steady_clock::time_point;

/// How long a client that has stopped sending may leave answers unread.
inline constexpr std::chrono::milliseconds kReadingPatience{ 10000 };

/// Limits the rate in bytes per second.
class RateLimit {
public:
    explicit RateLimit(std::int64_t bytesPerSecond);

    /// Bytes allowed now, at most `wanted`.
    size_t Allowed(LinkTime now, size_t wanted);

    void Passed(size_t count);

    /// Milliseconds until bytes are allowed; 0 if they are now.
    int WaitMs(LinkTime now);

private:
    void Refill(LinkTime now);

    double bytesPerSecond_ = 0;
    double allowance_ = 0; ///< bytes
    double maxAllowance_ = 0;
    LinkTime refilled_{};
};

/// Faults still to come, across all clients.
struct FaultPlan {
    std::vector<Fault> Faults;
    std::uint64_t CommandsSeen = 0;

    /// Counts a command, and removes and returns the faults due at it.
    std::vector<FaultKind> CountCommand();
};

class Session {
public:
    /// `instrument`, `plan` and `options` must outlive this.
    Session(Descriptor socket, Instrument& instrument, FaultPlan& plan, const LinkOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    int Socket() const
    {
        return socket_.Number();
    }

    /// Poll events to wait for, and the maximum wait in milliseconds; -1 means no limit.
    short WantedEvents(LinkTime now);
    int TimeoutMs(LinkTime now);

    /// Does all work that does not block. False if the session is over.
    [[nodiscard]] bool Service(short events, LinkTime now);

    /// The client will send no more, but answers are still pending. It keeps its place until it has read them, and for
    /// kReadingPatience after the last byte that it read.
    bool IsEnding() const
    {
        return peerIsDone_;
    }

private:
    bool MayReceive() const;
    bool MayRun(LinkTime now) const;
    bool Receive(LinkTime now);
    void Run(LinkTime now);
    void Handle(ReaderEvent event);
    void CountCommand();
    void LogCommand(const Command& command);
    bool Send(LinkTime now);
    bool HasLostPatience(LinkTime now);

    Descriptor socket_;
    Instrument& instrument_;
    FaultPlan& plan_;
    const LinkOptions& options_;
    MessageReader reader_;
    Answers answers_;
    RateLimit sending_;
    RateLimit receiving_;
    std::string buffer_; ///< bytes received last
    std::string_view input_; ///< the part of it not consumed yet
    LinkTime due_{}; ///< input is not processed before
    LinkTime readUntil_{}; ///< when the client last took bytes or had none to take
    bool peerIsDone_ = false;
    bool inputEnded_ = false;
    bool isDropped_ = false;
    bool isStalled_ = false;
    bool isCounted_ = false; ///< the command of the current block
};

} // namespace tarvik
