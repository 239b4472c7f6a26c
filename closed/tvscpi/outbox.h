// closed/tvscpi/outbox.h: buffers requests, so that a short one is sent in one piece and a long one in few.
#pragma once

#include "closed/tvscpi/wire.h"

#include <string_view>

namespace tvscpi {

class Outbox {
public:
    /// Uses `buffer` as scratch memory.
    Outbox(Wire& wire, std::span<uint8_t> buffer, const Deadline& deadline)
        : wire_(wire)
        , buffer_(buffer)
        , deadline_(deadline)
    {
    }

    /// False if the buffer had to be sent and sending failed.
    [[nodiscard]] bool Add(std::string_view text);

    /// Free space, made by sending if the buffer is full. Empty if that fails.
    [[nodiscard]] std::span<uint8_t> Room();

    /// Commits the first `count` bytes of `Room`.
    void Advance(size_t count)
    {
        filled_ += count;
    }

    /// Sends everything that is buffered.
    [[nodiscard]] bool Flush();

    /// True once part of the request has been sent and can't be withdrawn.
    [[nodiscard]] bool HasSent() const
    {
        return hasSent_;
    }

private:
    Wire& wire_;
    std::span<uint8_t> buffer_;
    const Deadline& deadline_;
    size_t filled_ = 0;
    bool hasSent_ = false;
};

} // namespace tvscpi
