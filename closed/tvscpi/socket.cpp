#include "closed/tvscpi/socket.h"

#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace tvscpi {

namespace {

#if defined(_WIN32)

using Handle = SOCKET;
using Count = int;
constexpr Handle kNoHandle = INVALID_SOCKET;
constexpr int kSendFlags = 0;

/// Winsock must be started before the first socket.
Handle OpenSocket()
{
    static const bool isStarted = [] {
        WSADATA data{};
        return WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }();
    return isStarted ? ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP) : kNoHandle;
}

void CloseSocket(Handle handle)
{
    (void)::closesocket(handle);
}

bool SetNonBlocking(Handle handle)
{
    u_long on = 1;
    return ::ioctlsocket(handle, FIONBIO, &on) == 0;
}

bool WouldBlock()
{
    return WSAGetLastError() == WSAEWOULDBLOCK;
}

bool WasInterrupted()
{
    return false;
}

int Poll(Handle handle, short events, int timeoutMs)
{
    WSAPOLLFD entry{ handle, events, 0 };
    return ::WSAPoll(&entry, 1, timeoutMs);
}

Count SendSome(Handle handle, ByteView bytes)
{
    const auto count = static_cast<int>(std::min<size_t>(bytes.size(), INT_MAX));
    return ::send(handle, reinterpret_cast<const char*>(bytes.data()), count, kSendFlags);
}

Count ReceiveSome(Handle handle, std::span<uint8_t> room, int flags)
{
    const auto count = static_cast<int>(std::min<size_t>(room.size(), INT_MAX));
    return ::recv(handle, reinterpret_cast<char*>(room.data()), count, flags);
}

#else

using Handle = int;
using Count = ssize_t;
constexpr Handle kNoHandle = -1;
#if defined(MSG_NOSIGNAL)
constexpr int kSendFlags = MSG_NOSIGNAL; // a lost connection must not end the process
#else
constexpr int kSendFlags = 0;
#endif

Handle OpenSocket()
{
    const Handle handle = ::socket(AF_INET, SOCK_STREAM, 0);
    if (handle == kNoHandle)
        return kNoHandle;
    (void)::fcntl(handle, F_SETFD, FD_CLOEXEC);
#if defined(SO_NOSIGPIPE)
    const int on = 1;
    (void)::setsockopt(handle, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
    return handle;
}

void CloseSocket(Handle handle)
{
    (void)::close(handle);
}

bool SetNonBlocking(Handle handle)
{
    const int flags = ::fcntl(handle, F_GETFL);
    return flags >= 0 && ::fcntl(handle, F_SETFL, flags | O_NONBLOCK) == 0;
}

bool WouldBlock()
{
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINPROGRESS;
}

bool WasInterrupted()
{
    return errno == EINTR;
}

int Poll(Handle handle, short events, int timeoutMs)
{
    pollfd entry{ handle, events, 0 };
    return ::poll(&entry, 1, timeoutMs);
}

Count SendSome(Handle handle, ByteView bytes)
{
    return ::send(handle, bytes.data(), bytes.size(), kSendFlags);
}

Count ReceiveSome(Handle handle, std::span<uint8_t> room, int flags)
{
    return ::recv(handle, room.data(), room.size(), flags);
}

#endif

/// Waits until the socket is ready or has failed, which the next call reports. False after the deadline.
bool Wait(Handle handle, short events, const Deadline& deadline)
{
    for (;;) {
        const int count = Poll(handle, events, deadline.LeftMs());
        if (count > 0)
            return true;
        if (count == 0 ? deadline.IsOver() : !WasInterrupted())
            return false;
    }
}

class Socket final : public Wire {
public:
    explicit Socket(Handle handle)
        : handle_(handle)
    {
    }
    ~Socket() override
    {
        CloseSocket(handle_);
    }

    [[nodiscard]] bool Connect(const sockaddr_in& address, const Deadline& deadline) const
    {
        // Commands are a few bytes that must not wait for Nagle's algorithm.
        const int on = 1;
        (void)::setsockopt(handle_, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
        if (!SetNonBlocking(handle_))
            return false;
        if (::connect(handle_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return true;
        if (!(WouldBlock() || WasInterrupted()) || !Wait(handle_, POLLOUT, deadline))
            return false;
        int error = 0;
        socklen_t size = sizeof error;
        return ::getsockopt(handle_, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size) == 0 && error == 0;
    }

    bool Send(ByteView bytes, const Deadline& deadline) override
    {
        while (!bytes.empty()) {
            if (deadline.IsOver())
                return false;
            const Count count = SendSome(handle_, bytes);
            if (count >= 0)
                bytes = bytes.subspan(static_cast<size_t>(count));
            else if (!WasInterrupted() && !(WouldBlock() && Wait(handle_, POLLOUT, deadline)))
                return false;
        }
        return true;
    }

    bool Receive(std::span<uint8_t> room, size_t& got, const Deadline& deadline) override
    {
        while (!deadline.IsOver()) {
            const Count count = ReceiveSome(handle_, room, 0);
            if (count > 0) {
                got = static_cast<size_t>(count);
                return true;
            }
            if (count == 0)
                return false;
            if (!WasInterrupted() && !(WouldBlock() && Wait(handle_, POLLIN, deadline)))
                return false;
        }
        return false;
    }

    WireState Look() override
    {
        uint8_t byte = 0;
        for (;;) {
            const Count count = ReceiveSome(handle_, { &byte, 1 }, MSG_PEEK);
            if (count > 0)
                return WireState::HasBytes;
            if (count == 0)
                return WireState::Closed;
            if (!WasInterrupted())
                return WouldBlock() ? WireState::Quiet : WireState::Closed;
        }
    }

private:
    Handle handle_;
};

/// Consumes a decimal number up to 255 from `text`. Leading zeros do not mean octal: displays show 172.017.075.001.
bool TakeNumber(const char*& text, uint32_t& number)
{
    constexpr uint32_t kMost = 255;
    const char* const start = text;
    number = 0;
    while (*text >= '0' && *text <= '9' && number <= kMost)
        number = number * 10 + static_cast<uint32_t>(*text++ - '0');
    return text != start && number <= kMost;
}

/// Parses a dotted IPv4 address, in host byte order.
bool ReadAddress(const char* text, uint32_t& address)
{
    address = 0;
    for (int part = 0; part < 4; ++part) {
        uint32_t number = 0;
        if ((part > 0 && *text++ != '.') || !TakeNumber(text, number))
            return false;
        address = address << 8 | number;
    }
    return *text == '\0';
}

} // namespace

std::unique_ptr<Wire> ConnectSocket(const char* address, uint16_t port, const Deadline& deadline)
{
    uint32_t host = 0;
    if (!ReadAddress(address, host))
        return nullptr;
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(port);
    place.sin_addr.s_addr = htonl(host);
    const Handle handle = OpenSocket();
    if (handle == kNoHandle)
        return nullptr;
    auto socket = std::make_unique<Socket>(handle);
    if (!socket->Connect(place, deadline))
        return nullptr;
    return socket;
}

} // namespace tvscpi
