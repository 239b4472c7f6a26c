// closed/tvfio/bytes.h: little-endian numbers and short texts in a byte buffer.
#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tvfio {

using Bytes = std::vector<uint8_t>;
using ByteView = std::span<const uint8_t>;

/// Stores `value` at `place`, lowest byte first.
template <std::integral Number>
void PutInt(uint8_t* place, Number value)
{
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(place, &value, sizeof value);
    } else {
        for (size_t i = 0; i < sizeof value; ++i)
            place[i] = static_cast<uint8_t>(static_cast<uint64_t>(value) >> (8 * i));
    }
}

/// Appends to its own buffer, which grows ahead of the writing.
class ByteWriter {
public:
    explicit ByteWriter(size_t expectedBytes = 0)
        : bytes_(expectedBytes)
    {
    }

    template <std::integral Number>
    void Int(Number value)
    {
        PutInt(Grow(sizeof(Number)), value);
    }

    void Double(double value)
    {
        Int(std::bit_cast<uint64_t>(value));
    }

    /// Writes a length byte, then the characters; `text` has at most 255.
    void Text(std::string_view text)
    {
        uint8_t* place = Grow(text.size() + 1);
        *place = static_cast<uint8_t>(text.size());
        if (!text.empty())
            std::memcpy(place + 1, text.data(), text.size());
    }

    /// Space for up to `count` bytes after what is written. Bytes count only once `Advance` has accepted them.
    uint8_t* Room(size_t count)
    {
        if (bytes_.size() - size_ < count)
            bytes_.resize(2 * (bytes_.size() + count));
        return bytes_.data() + size_;
    }
    void Advance(const uint8_t* end)
    {
        size_ = static_cast<size_t>(end - bytes_.data());
    }

    /// Reserves space for a number that is known later; returns its offset for `Patch`.
    template <std::integral Number>
    size_t Reserve()
    {
        const size_t at = size_;
        Int(Number{});
        return at;
    }

    /// Stores `value` in the space reserved at `at`.
    template <std::integral Number>
    void Patch(size_t at, Number value)
    {
        PutInt(bytes_.data() + at, value);
    }

    /// Stores in the space reserved at `at` the number of bytes written after it.
    template <std::integral Number>
    void PatchLength(size_t at)
    {
        Patch(at, static_cast<Number>(size_ - at - sizeof(Number)));
    }

    [[nodiscard]] ByteView Written() const
    {
        return ByteView(bytes_).first(size_);
    }

    /// Moves the written bytes out.
    Bytes Take()
    {
        bytes_.resize(std::exchange(size_, 0));
        return std::move(bytes_);
    }

private:
    uint8_t* Grow(size_t count)
    {
        uint8_t* place = Room(count);
        size_ += count;
        return place;
    }

    Bytes bytes_;
    size_t size_ = 0;
};

/// Reads what a ByteWriter wrote. Reading past the end gives zeros and sets `Failed` permanently.
class ByteReader {
public:
    explicit ByteReader(ByteView source)
        : rest_(source)
    {
    }

    [[nodiscard]] bool Failed() const
    {
        return failed_;
    }

    [[nodiscard]] size_t Remaining() const
    {
        return rest_.size();
    }

    template <std::integral Number>
    Number Int()
    {
        const ByteView bytes = Take(sizeof(Number));
        uint64_t value = 0;
        for (size_t i = 0; i < bytes.size(); ++i)
            value |= static_cast<uint64_t>(bytes[i]) << (8 * i);
        return static_cast<Number>(value);
    }

    double Double()
    {
        return std::bit_cast<double>(Int<uint64_t>());
    }

    std::string_view Text()
    {
        const ByteView bytes = Take(Int<uint8_t>());
        return { reinterpret_cast<const char*>(bytes.data()), bytes.size() };
    }

    /// The next `count` bytes; empty if fewer are left.
    ByteView Take(size_t count)
    {
        if (count > rest_.size()) {
            failed_ = true;
            rest_ = {};
            return {};
        }
        const ByteView taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }

private:
    ByteView rest_;
    bool failed_ = false;
};

} // namespace tvfio
