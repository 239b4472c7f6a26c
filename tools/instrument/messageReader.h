// tools/instrument/messageReader.h: cuts what a client sends into commands. Nothing of a block is kept, so that memory
// does not grow with a file.
//
// A message is a line; its commands are separated by ";". A block (#, a digit n, n digits of length, as many bytes) may
// be a command's last parameter and may hold any byte. After anything that is no command the rest of that command, or
// where its end can not be known the rest of the line, is passed over.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Longest command, without its block.
inline constexpr size_t kMaxCommandBytes = 4096;

struct CommandParameter {
    enum class Form { Word, Text, Block };

    Form Kind = Form::Word;
    std::string Value; ///< of a text without its quotes; empty for a block
};

struct Command {
    std::string Header; ///< in capitals, without a colon in front and without the question mark
    bool IsQuery = false;
    bool StartsMessage = false; ///< the first one of its line
    bool StartsAtRoot = false; ///< had a colon in front
    std::vector<CommandParameter> Parameters;
};

enum class ReaderEvent {
    NeedsBytes, ///< all was taken; nothing is complete
    Command, ///< Current() is complete, its block included
    BlockBegins, ///< Current() is complete but for its block of BlockLength() bytes
    BlockBytes, ///< BlockPiece() is the next part of the block
    Bad ///< no command; one whose block had begun is to be forgotten
};

class MessageReader {
public:
    /// Takes bytes from the front of `input` up to the next event.
    ReaderEvent Next(std::string_view& input);

    const Command& Current() const
    {
        return current_;
    }

    std::uint64_t BlockLength() const
    {
        return blockLength_;
    }

    /// Part of the input of the last call.
    std::string_view BlockPiece() const
    {
        return piece_;
    }

    /// The next byte belongs to a block.
    bool IsInBlock() const
    {
        return state_ == State::Block;
    }

private:
    enum class State { Text, BlockDigits, BlockLength, Block, BehindBlock, RestOfLine };
    using Event = std::optional<ReaderEvent>;

    Event TakeByte(char byte);
    Event TakeTextByte(char byte);
    Event TakeDigitCount(char byte);
    Event TakeLengthDigit(char byte);
    Event BeginBlock();
    Event TakeBlock(std::string_view& input);
    Event TakeByteBehindBlock(char byte);
    Event EndCommand(bool endsMessage);
    Event GiveUpLine(char byte);
    void StartCommand(bool startsMessage);

    State state_ = State::Text;
    std::string text_; ///< of the command, without its block
    bool inQuotes_ = false;
    bool startsMessage_ = true;
    bool passOver_ = false; ///< the block belongs to no command
    int digitsLeft_ = 0;
    std::uint64_t blockLength_ = 0;
    std::uint64_t blockLeft_ = 0;
    std::string_view piece_;
    Command current_;
};

/// Reads one command without block and without the end of its line. False when it is none.
[[nodiscard]] bool ParseCommand(std::string_view text, Command& command);

} // namespace tarvik
