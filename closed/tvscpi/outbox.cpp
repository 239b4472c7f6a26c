#include "closed/tvscpi/outbox.h"

#include <cstring>

namespace tvscpi {

bool Outbox::Add(std::string_view text)
{
    while (!text.empty()) {
        const std::span<uint8_t> room = Room();
        if (room.empty())
            return false;
        const size_t count = std::min(room.size(), text.size());
        std::memcpy(room.data(), text.data(), count);
        Advance(count);
        text.remove_prefix(count);
    }
    return true;
}

std::span<uint8_t> Outbox::Room()
{
    if (filled_ == buffer_.size() && !Flush())
        return {};
    return buffer_.subspan(filled_);
}

bool Outbox::Flush()
{
    hasSent_ = true;
    const ByteView bytes = buffer_.first(filled_);
    filled_ = 0;
    return wire_.Send(bytes, deadline_);
}

} // namespace tvscpi
