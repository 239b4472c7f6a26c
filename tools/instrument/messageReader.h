// tools/instrument/messageReader.h: splits the bytes from a client into commands. Blocks are not buffered, so that
// memory does not grow with a file.
// A message is a line; its commands are separated by ";". A block (#, a digit n, n digits of length, that many bytes)
// may be the last parameter of a command and may contain any byte. After a syntax error the rest of the command is
// skipped, or the rest of the line if the end of the command is unknown.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Maximum length of a command, without its block.
inline constexpr size_t kMaxCommandBytes = 4096;

struct CommandParameter {
    enum class Form { Word, Text, Block };

    Form Kind = Form::Word;
    std::string Value; ///< of a text without its quotes; empty for a block
};

struct Command {
    std::string Header; ///< in capitals, without leading colon and question mark
    bool IsQuery = false;
    bool StartsMessage = false; ///< the first command of its line
    bool StartsAtRoot = false; ///< had a leading colon
    std::vector<CommandParameter> Parameters;
};

enum class ReaderEvent {
    NeedsBytes, ///< all input is consumed; nothing is complete
    Command, ///< Current() is complete, its block included
    BlockBegins, ///< Current() is complete except for its block of BlockLength() bytes
    BlockBytes, ///< BlockPiece() is the next part of the block
    Bad ///< syntax error; a block that had started is to be dropped
};

class MessageReader {
public:
    /// Consumes bytes from the front of `input` up to the next event.
    ReaderEvent Next(std::string_view& input);

    const Command& Current() const
    {
        return current_;
    }

    std::uint64_t BlockLength() const
    {
        return blockLength_;
    }

    /// A view into the input of the last call.
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
    enum class State { Text, BlockDigits, BlockLength, Block, AfterBlock, RestOfLine };
    using Event = std::optional<ReaderEvent>;

    Event TakeByte(char byte);
    Event TakeTextByte(char byte);
    Event TakeDigitCount(char byte);
    Event TakeLengthDigit(char byte);
    Event BeginBlock();
    Event TakeBlock(std::string_view& input);
    Event TakeByteAfterBlock(char byte);
    Event EndCommand(bool endsMessage);
    Event SkipRestOfLine(char byte);
    void StartCommand(bool startsMessage);

    State state_ = State::Text;
    std::string text_; ///< of the command, without its block
    bool inQuotes_ = false;
    bool startsMessage_ = true;
    bool skipBlock_ = false; ///< the block belongs to an invalid command
    int digitsLeft_ = 0;
    std::uint64_t blockLength_ = 0;
    std::uint64_t blockLeft_ = 0;
    std::string_view piece_;
    Command current_;
};

/// Parses one command without block and without line terminator. False if it is invalid.
[[nodiscard]] bool ParseCommand(std::string_view text, Command& command);

} // namespace tarvik
