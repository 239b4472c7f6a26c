// tools/instrument/answers.h: what waits to be sent to the client. A file is read while it is sent.
#pragma once

#include "tools/instrument/descriptor.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace tarvik {

class Answers {
public:
    /// A line; its end is added.
    void Line(std::string_view text);

    /// A block of bytes.
    void Block(std::string bytes);

    /// A block of the first `size` bytes of an open file.
    void FileBlock(Descriptor file, std::uint64_t size);

    /// The next answer will be random bytes instead.
    void SpoilNext()
    {
        spoilNext_ = true;
    }

    /// The next block that is not empty will end after half of its bytes.
    void CutNextBlock()
    {
        cutNext_ = true;
    }

    /// The next bytes to send, at most `limit`; empty when there are none or IsBroken().
    std::string_view Peek(size_t limit);

    /// Forgets bytes that were sent.
    void Sent(size_t count);

    bool IsEmpty() const
    {
        return items_.empty();
    }

    /// So much is waiting that no further command should be run.
    bool IsFull() const;

    /// A file ended before its announced length: the rest can never be sent.
    bool IsBroken() const
    {
        return isBroken_;
    }

private:
    struct Item {
        std::string Bytes;
        size_t Sent = 0; ///< of Bytes
        Descriptor File;
        std::uint64_t FileLeft = 0; ///< behind Bytes
    };

    void PutBytes(std::string bytes);
    void ReadFile(Item& item);
    bool TakeSpoiled();
    bool TakeCut(std::uint64_t size);

    std::deque<Item> items_;
    size_t bytesWaiting_ = 0; ///< in memory
    size_t filesWaiting_ = 0; ///< of which something is still to be read
    std::uint32_t spoiled_ = 0; ///< counts, so that no two spoiled answers are alike
    bool spoilNext_ = false;
    bool cutNext_ = false;
    bool isBroken_ = false;
};

/// The start of a block of `size` bytes: `#`, the number of digits, the digits.
std::string BlockHeader(std::uint64_t size);

} // namespace tarvik
