// tools/instrument/descriptor.h: an owning file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace tarvik {

class Descriptor {
public:
    Descriptor() = default;

    /// Takes ownership of `number`; -1 means none.
    explicit Descriptor(int number)
        : number_(number)
    {
    }

    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1))
    {
    }

    Descriptor& operator=(Descriptor&& other) noexcept
    {
        if (this != &other) {
            Close();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor()
    {
        Close();
    }

    bool IsOpen() const
    {
        return number_ >= 0;
    }

    int Number() const
    {
        return number_;
    }

    void Close()
    {
        if (number_ >= 0)
            ::close(std::exchange(number_, -1));
    }

    /// Returns the descriptor without closing it.
    int Release()
    {
        return std::exchange(number_, -1);
    }

private:
    int number_ = -1;
};

} // namespace tarvik
