// closed/tvscpi/inbox.h: received data as lines and blocks.
#pragma once

#include "closed/tvscpi/wire.h"

#include <string>

namespace tvscpi {

/// Every method fails when the connection is lost, the deadline has passed, or the data is invalid. The stream can't
/// be used any more then.
class Inbox {
public:
    /// Uses `buffer` as scratch memory. Received bytes restart the deadline.
    Inbox(Wire& wire, std::span<uint8_t> buffer, const Deadline& deadline)
        : wire_(wire)
        , buffer_(buffer)
        , deadline_(deadline)
    {
    }

    /// The next byte, without consuming it.
    [[nodiscard]] bool Peek(char& byte);

    /// A line without its terminator, of at most `longest` characters.
    [[nodiscard]] bool Line(std::string& line, size_t longest);

    /// The header of a block: `#`, the digit count, the length in bytes.
    [[nodiscard]] bool BlockHead(uint64_t& length);

    /// The next 1 to `most` bytes, valid until the next call. Empty after a failure.
    [[nodiscard]] ByteView Bytes(uint64_t most);

    /// True if received bytes are still unread.
    [[nodiscard]] bool HasUnread() const
    {
        return begin_ < end_;
    }

private:
    [[nodiscard]] bool Fill();
    [[nodiscard]] bool ReadExactly(size_t count, std::string& text);

    Wire& wire_;
    std::span<uint8_t> buffer_;
    Deadline deadline_;
    size_t begin_ = 0;
    size_t end_ = 0;
};

} // namespace tvscpi
