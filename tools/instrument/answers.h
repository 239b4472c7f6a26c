// tools/instrument/answers.h: the queue of answers to the client. Files are read while they are sent.
#pragma once

#include "tools/instrument/descriptor.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace tarvik {

class Answers {
public:
    /// Queues a line; its terminator is added.
    void Line(std::string_view text);

    /// Queues a block of bytes.
    void Block(std::string bytes);

    /// Queues a block of the first `size` bytes of an open file.
    void FileBlock(Descriptor file, std::uint64_t size);

    /// Replaces the next answer by random bytes.
    void SpoilNext()
    {
        spoilNext_ = true;
    }

    /// Ends the next non-empty block after half of its bytes.
    void CutNextBlock()
    {
        cutNext_ = true;
    }

    /// The next bytes to send, at most `limit`; empty if there are none or IsBroken().
    std::string_view Peek(size_t limit);

    /// Removes bytes that were sent.
    void Sent(size_t count);

    bool IsEmpty() const
    {
        return items_.empty();
    }

    /// So much is queued that no further command should run.
    bool IsFull() const;

    /// A file was shorter than announced: the rest can never be sent.
    bool IsBroken() const
    {
        return isBroken_;
    }

private:
    struct Item {
        std::string Bytes;
        size_t Sent = 0; ///< of Bytes
        Descriptor File;
        std::uint64_t FileLeft = 0; ///< after Bytes
    };

    void PutBytes(std::string bytes);
    void ReadFile(Item& item);
    bool TakeSpoiled();
    bool TakeCut(std::uint64_t size);

    std::deque<Item> items_;
    size_t queuedBytes_ = 0; ///< in memory
    size_t queuedFiles_ = 0; ///< not completely read yet
    std::uint32_t spoiled_ = 0; ///< seed, so that no two spoiled answers are equal
    bool spoilNext_ = false;
    bool cutNext_ = false;
    bool isBroken_ = false;
};

/// The header of a block of `size` bytes: `#`, the number of digits, the digits.
std::string BlockHeader(std::uint64_t size);

} // namespace tarvik
