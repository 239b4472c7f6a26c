#include "closed/tvscpi/inbox.h"

#include "closed/tvscpi/answer.h"

#include <limits>

namespace tvscpi {

bool Inbox::Fill()
{
    if (HasUnread())
        return true;
    size_t got = 0;
    if (!wire_.Receive(buffer_, got, deadline_))
        return false;
    deadline_.Restart();
    begin_ = 0;
    end_ = got;
    return true;
}

ByteView Inbox::Bytes(uint64_t most)
{
    if (!Fill())
        return {};
    const auto count = static_cast<size_t>(std::min<uint64_t>(most, end_ - begin_));
    const ByteView bytes = buffer_.subspan(begin_, count);
    begin_ += count;
    return bytes;
}

bool Inbox::Peek(char& byte)
{
    if (!Fill())
        return false;
    byte = static_cast<char>(buffer_[begin_]);
    return true;
}

bool Inbox::Line(std::string& line, size_t longest)
{
    line.clear();
    for (;;) {
        if (!Fill())
            return false;
        const ByteView waiting = buffer_.subspan(begin_, end_ - begin_);
        const auto lineEnd = std::find(waiting.begin(), waiting.end(), '\n');
        const auto count = static_cast<size_t>(lineEnd - waiting.begin());
        if (line.size() + count > longest + 1) // one of them may be a carriage return
            return false;
        line.append(waiting.begin(), lineEnd);
        begin_ += count;
        if (lineEnd != waiting.end())
            break;
    }
    ++begin_;
    if (line.ends_with('\r'))
        line.pop_back();
    return line.size() <= longest;
}

bool Inbox::ReadExactly(size_t count, std::string& text)
{
    text.clear();
    while (text.size() < count) {
        const ByteView bytes = Bytes(count - text.size());
        if (bytes.empty())
            return false;
        text.append(bytes.begin(), bytes.end());
    }
    return true;
}

bool Inbox::BlockHead(uint64_t& length)
{
    std::string text;
    if (!ReadExactly(2, text))
        return false;
    const std::optional<size_t> digits = ParseBlockDigits(text);
    if (!digits || !ReadExactly(*digits, text))
        return false;
    const std::optional<int64_t> number = ParseNumber(text, std::numeric_limits<int64_t>::max());
    length = static_cast<uint64_t>(number.value_or(0));
    return number.has_value();
}

} // namespace tvscpi
