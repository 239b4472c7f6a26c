// closed/tvscpi/wire.h: what bytes travel over: a socket, or in tests anything else.
#pragma once

#include "closed/files/filesystem.h"

#include <algorithm>
#include <chrono>
#include <climits>

namespace tvscpi {

using tvfile::ByteView;

/// The end of the time that one operation has, however many sends and receives it takes.
class Deadline {
public:
    explicit Deadline(int32_t timeoutMs)
        : end_(Clock::now() + std::chrono::milliseconds(std::max(timeoutMs, 0)))
    {
    }

    /// Rounded up, so that a wait of so long does not end early; 0 when the time is over.
    [[nodiscard]] int LeftMs() const
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now()).count();
        return static_cast<int>(std::clamp<int64_t>(left, 0, INT_MAX));
    }

    [[nodiscard]] bool IsOver() const
    {
        return Clock::now() >= end_;
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point end_;
};

enum class WireState { Quiet, HasBytes, Closed };

/// One connection. It is closed when it is destroyed.
class Wire {
public:
    Wire() = default;
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;
    virtual ~Wire() = default;

    /// Sends all of `bytes`. False when the connection is lost or the time is over.
    [[nodiscard]] virtual bool Send(ByteView bytes, const Deadline& deadline) = 0;

    /// Receives at least one byte into `room`, as many as are there at once. False as above.
    [[nodiscard]] virtual bool Receive(std::span<uint8_t> room, size_t& got, const Deadline& deadline) = 0;

    /// Looks without waiting and takes nothing.
    [[nodiscard]] virtual WireState Look() = 0;
};

} // namespace tvscpi
