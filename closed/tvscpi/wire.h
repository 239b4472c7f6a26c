// closed/tvscpi/wire.h: the transport: a socket, or a fake in tests.
#pragma once

#include "closed/files/filesystem.h"

#include <algorithm>
#include <chrono>
#include <climits>

namespace tvscpi {

using tvfile::ByteView;

using Clock = std::chrono::steady_clock;

/// The clock of deadlines, which a test replaces.
inline Clock::time_point (*NowOfDeadlines)() = &Clock::now;

/// Deadline of one operation, however many sends and receives it takes.
class Deadline {
public:
    explicit Deadline(int32_t timeoutMs)
        : Deadline(timeoutMs, timeoutMs)
    {
    }

    /// Passes after `silenceMs` without a received byte, and at the latest after `longestMs`.
    Deadline(int32_t silenceMs, int32_t longestMs)
        : silence_(std::max(silenceMs, 0))
        , last_(NowOfDeadlines() + std::chrono::milliseconds(std::max(longestMs, 0)))
    {
        Restart();
    }

    /// A byte has been received.
    void Restart()
    {
        end_ = std::min(NowOfDeadlines() + silence_, last_);
    }

    /// Rounded up, so that a wait of that time does not end early; 0 after the deadline.
    [[nodiscard]] int LeftMs() const
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - NowOfDeadlines()).count();
        return static_cast<int>(std::clamp<int64_t>(left, 0, INT_MAX));
    }

    [[nodiscard]] bool IsOver() const
    {
        return NowOfDeadlines() >= end_;
    }

private:
    std::chrono::milliseconds silence_;
    Clock::time_point last_;
    Clock::time_point end_;
};

enum class WireState { Quiet, HasBytes, Closed };

/// One connection, closed on destruction.
class Wire {
public:
    Wire() = default;
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;
    virtual ~Wire() = default;

    /// Sends all of `bytes`. False if the connection is lost or the deadline passes.
    [[nodiscard]] virtual bool Send(ByteView bytes, const Deadline& deadline) = 0;

    /// Receives at least one byte, and no more than are available, into `room`. False as above.
    [[nodiscard]] virtual bool Receive(std::span<uint8_t> room, size_t& got, const Deadline& deadline) = 0;

    /// Polls the state without consuming data.
    [[nodiscard]] virtual WireState Look() = 0;
};

} // namespace tvscpi
