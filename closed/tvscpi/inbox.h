// closed/tvscpi/inbox.h: what is received, as lines and blocks.
#pragma once

#include "closed/tvscpi/wire.h"

#include <string>

namespace tvscpi {

/// Every method fails when the connection is lost, the time is over, or what comes has not the form. The stream is then
/// of no more use.
class Inbox {
public:
    /// Works in `buffer`, whose contents do not matter.
    Inbox(Wire& wire, std::span<uint8_t> buffer, const Deadline& deadline)
        : wire_(wire)
        , buffer_(buffer)
        , deadline_(deadline)
    {
    }

    /// The next byte, which stays.
    [[nodiscard]] bool Peek(char& byte);

    /// A line without its end, of at most `longest` characters.
    [[nodiscard]] bool Line(std::string& line, size_t longest);

    /// The head of a block: `#`, the count of digits, the length in bytes.
    [[nodiscard]] bool BlockHead(uint64_t& length);

    /// One to `most` bytes of what comes next, valid until the next call. Empty after a failure.
    [[nodiscard]] ByteView Bytes(uint64_t most);

    /// True if more was received than was read.
    [[nodiscard]] bool HasRest() const
    {
        return begin_ < end_;
    }

private:
    [[nodiscard]] bool Fill();
    [[nodiscard]] bool Exactly(size_t count, std::string& text);

    Wire& wire_;
    std::span<uint8_t> buffer_;
    const Deadline& deadline_;
    size_t begin_ = 0;
    size_t end_ = 0;
};

} // namespace tvscpi
