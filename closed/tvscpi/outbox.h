// closed/tvscpi/outbox.h: what is sent, collected so that a short request leaves in one piece and a long one in few.
#pragma once

#include "closed/tvscpi/wire.h"

#include <string_view>

namespace tvscpi {

class Outbox {
public:
    /// Works in `buffer`, whose contents do not matter.
    Outbox(Wire& wire, std::span<uint8_t> buffer, const Deadline& deadline)
        : wire_(wire)
        , buffer_(buffer)
        , deadline_(deadline)
    {
    }

    /// False when something had to be sent for it and could not.
    [[nodiscard]] bool Add(std::string_view text);

    /// Room for more, made by sending if there is none left. Empty when that fails.
    [[nodiscard]] std::span<uint8_t> Room();

    /// Takes the first `count` bytes of `Room` as filled.
    void Advance(size_t count)
    {
        filled_ += count;
    }

    /// Sends all that was collected.
    [[nodiscard]] bool Flush();

    /// True once a part of the request is under way and can't be taken back.
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
