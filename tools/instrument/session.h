// tools/instrument/session.h: one client, from its connect to its end.
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

/// Lets so many bytes through in a second.
class RateLimit {
public:
    explicit RateLimit(std::int64_t bytesPerSecond);

    /// Bytes that may pass now, at most `wanted`.
    size_t Allowed(LinkTime now, size_t wanted);

    void Passed(size_t count);

    /// Milliseconds until something may pass; 0 when it may at once.
    int WaitMs(LinkTime now);

private:
    void Refill(LinkTime now);

    double bytesPerSecond_ = 0;
    double saved_ = 0; ///< bytes
    double mostSaved_ = 0;
    LinkTime refilled_{};
};

/// What is still to happen, over all clients.
struct FaultPlan {
    std::vector<Fault> Faults;
    std::uint64_t CommandsSeen = 0;

    /// Counts a command and takes out what happens at it.
    std::vector<FaultKind> CountCommand();
};

class Session {
public:
    /// `instrument`, `plan` and `options` stay the caller's.
    Session(Descriptor socket, Instrument& instrument, FaultPlan& plan, const LinkOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    int Socket() const
    {
        return socket_.Number();
    }

    /// Poll events to wait for, and for how long at most; -1 for ever.
    short WantedEvents(LinkTime now);
    int TimeoutMs(LinkTime now);

    /// Does what can be done without waiting. False when the session is over.
    [[nodiscard]] bool Service(short events, LinkTime now);

    /// The client will send nothing more, but its answers are still on their way.
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
    void Tell(const Command& command);
    bool Send(LinkTime now);

    Descriptor socket_;
    Instrument& instrument_;
    FaultPlan& plan_;
    const LinkOptions& options_;
    MessageReader reader_;
    Answers answers_;
    RateLimit sending_;
    RateLimit receiving_;
    std::string buffer_; ///< what was received last
    std::string_view input_; ///< the part of it that is not yet taken
    LinkTime due_{}; ///< the input is not looked at before
    bool peerIsDone_ = false;
    bool inputEnded_ = false;
    bool isDropped_ = false;
    bool isStalled_ = false;
    bool isCounted_ = false; ///< the command whose block comes
};

} // namespace tarvik
