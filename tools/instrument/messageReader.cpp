#include "tools/instrument/messageReader.h"

#include <algorithm>

namespace tarvik {

namespace {

bool IsBlank(char byte)
{
    return static_cast<unsigned char>(byte) <= ' ';
}

bool IsDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool IsHeaderByte(char byte)
{
    return IsDigit(byte) || (byte >= 'A' && byte <= 'Z') || byte == ':' || byte == '*' || byte == '_';
}

char Capital(char byte)
{
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Parses the header at the front of `text`.
bool TakeHeader(std::string_view& text, Command& command)
{
    const auto end = std::find_if(text.begin(), text.end(), IsBlank);
    std::string_view header = text.substr(0, static_cast<size_t>(end - text.begin()));
    text.remove_prefix(header.size());
    command.IsQuery = header.ends_with('?');
    if (command.IsQuery)
        header.remove_suffix(1);
    command.StartsAtRoot = header.starts_with(':');
    if (command.StartsAtRoot)
        header.remove_prefix(1);
    command.Header.assign(header);
    std::transform(header.begin(), header.end(), command.Header.begin(), Capital);
    return !header.empty() && std::all_of(command.Header.begin(), command.Header.end(), IsHeaderByte);
}

/// Parses a quoted text; quotes inside are doubled.
bool TakeText(std::string_view& text, std::string& value)
{
    text.remove_prefix(1);
    while (!text.empty()) {
        const char byte = text.front();
        text.remove_prefix(1);
        if (byte == '"') {
            if (!text.starts_with('"'))
                return true;
            text.remove_prefix(1);
        }
        value.push_back(byte);
    }
    return false;
}

bool TakeWord(std::string_view& text, std::string& value)
{
    const std::string_view word = Trimmed(text.substr(0, text.find(',')));
    text.remove_prefix(std::min(text.find(','), text.size()));
    value.assign(word);
    return !word.empty() && word.find('"') == std::string_view::npos;
}

/// Parses one parameter and the blanks around it.
bool TakeParameter(std::string_view& text, Command& command)
{
    text = Trimmed(text);
    CommandParameter parameter;
    const bool isText = text.starts_with('"');
    parameter.Kind = isText ? CommandParameter::Form::Text : CommandParameter::Form::Word;
    const bool taken = isText ? TakeText(text, parameter.Value) : TakeWord(text, parameter.Value);
    text = Trimmed(text);
    command.Parameters.push_back(std::move(parameter));
    return taken && (text.empty() || text.front() == ',');
}

/// The part of a command before its block.
bool ParseCommandOfBlock(std::string_view text, Command& command)
{
    text = Trimmed(text);
    const bool endsInComma = text.ends_with(',');
    if (endsInComma)
        text.remove_suffix(1);
    if (!ParseCommand(text, command) || command.Parameters.empty() == endsInComma)
        return false;
    command.Parameters.push_back({ CommandParameter::Form::Block, {} });
    return true;
}

} // namespace

bool ParseCommand(std::string_view text, Command& command)
{
    text = Trimmed(text);
    command = {};
    if (!TakeHeader(text, command))
        return false;
    text = Trimmed(text);
    if (text.empty())
        return true;
    while (TakeParameter(text, command)) {
        if (text.empty())
            return true;
        text.remove_prefix(1);
    }
    return false;
}

ReaderEvent MessageReader::Next(std::string_view& input)
{
    while (!input.empty()) {
        Event event;
        if (state_ == State::Block) {
            event = TakeBlock(input);
        } else {
            const char byte = input.front();
            input.remove_prefix(1);
            event = TakeByte(byte);
        }
        if (event)
            return *event;
    }
    return ReaderEvent::NeedsBytes;
}

MessageReader::Event MessageReader::TakeByte(char byte)
{
    switch (state_) {
    case State::BlockDigits:
        return TakeDigitCount(byte);
    case State::BlockLength:
        return TakeLengthDigit(byte);
    case State::AfterBlock:
        return TakeByteAfterBlock(byte);
    case State::RestOfLine:
        if (byte == '\n')
            StartCommand(true);
        return {};
    default:
        return TakeTextByte(byte);
    }
}

MessageReader::Event MessageReader::TakeTextByte(char byte)
{
    if (byte == '\n' || (byte == ';' && !inQuotes_))
        return EndCommand(byte == '\n');
    if (byte == '#' && !inQuotes_) {
        state_ = State::BlockDigits;
        return {};
    }
    if (byte == '"')
        inQuotes_ = !inQuotes_;
    text_.push_back(byte);
    if (text_.size() <= kMaxCommandBytes)
        return {};
    return SkipRestOfLine(byte);
}

MessageReader::Event MessageReader::TakeDigitCount(char byte)
{
    // Zero means an indefinite length, whose end can't be found reliably.
    if (!IsDigit(byte) || byte == '0')
        return SkipRestOfLine(byte);
    digitsLeft_ = byte - '0';
    blockLength_ = 0;
    state_ = State::BlockLength;
    return {};
}

MessageReader::Event MessageReader::TakeLengthDigit(char byte)
{
    if (!IsDigit(byte))
        return SkipRestOfLine(byte);
    blockLength_ = blockLength_ * 10 + static_cast<std::uint64_t>(byte - '0');
    return --digitsLeft_ > 0 ? Event() : BeginBlock();
}

MessageReader::Event MessageReader::BeginBlock()
{
    skipBlock_ = !ParseCommandOfBlock(text_, current_);
    current_.StartsMessage = startsMessage_;
    blockLeft_ = blockLength_;
    state_ = blockLeft_ > 0 ? State::Block : State::AfterBlock;
    return skipBlock_ ? ReaderEvent::Bad : ReaderEvent::BlockBegins;
}

MessageReader::Event MessageReader::TakeBlock(std::string_view& input)
{
    piece_ = input.substr(0, static_cast<size_t>(std::min<std::uint64_t>(blockLeft_, input.size())));
    input.remove_prefix(piece_.size());
    blockLeft_ -= piece_.size();
    if (blockLeft_ == 0)
        state_ = State::AfterBlock;
    return skipBlock_ ? Event() : ReaderEvent::BlockBytes;
}

MessageReader::Event MessageReader::TakeByteAfterBlock(char byte)
{
    if (byte != '\n' && IsBlank(byte))
        return {};
    const bool wasSkipped = skipBlock_;
    if (byte == '\n' || byte == ';') {
        StartCommand(byte == '\n');
        return wasSkipped ? Event() : ReaderEvent::Command;
    }
    const Event bad = SkipRestOfLine(byte);
    return wasSkipped ? Event() : bad;
}

MessageReader::Event MessageReader::EndCommand(bool endsMessage)
{
    const bool isEmpty = Trimmed(text_).empty();
    const bool isCommand = !isEmpty && ParseCommand(text_, current_);
    current_.StartsMessage = startsMessage_;
    StartCommand(endsMessage || (isEmpty && startsMessage_));
    if (isEmpty)
        return {};
    return isCommand ? ReaderEvent::Command : ReaderEvent::Bad;
}

MessageReader::Event MessageReader::SkipRestOfLine(char byte)
{
    StartCommand(true);
    if (byte != '\n')
        state_ = State::RestOfLine;
    return ReaderEvent::Bad;
}

void MessageReader::StartCommand(bool startsMessage)
{
    state_ = State::Text;
    text_.clear();
    inQuotes_ = false;
    skipBlock_ = false;
    startsMessage_ = startsMessage;
}

} // namespace tarvik
