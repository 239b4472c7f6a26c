#include "tests/closed/scpiserver.h"

#include <arpa/inet.h>
#include <array>
#include <cstdlib>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr const char* kNoError = "0,\"No error\"\n";

void Require(bool condition)
{
    if (!condition)
        std::abort(); // the machine has no sockets
}

int OpenListener(uint16_t& port)
{
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    Require(listener >= 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    Require(::bind(listener, reinterpret_cast<const sockaddr*>(&place), size) == 0 && ::listen(listener, 8) == 0
        && ::getsockname(listener, reinterpret_cast<sockaddr*>(&place), &size) == 0);
    port = ntohs(place.sin_port);
    return listener;
}

/// Waits for the socket or the wake-up. False if the thread must end.
bool WaitFor(int socket, int wake, int timeoutMs)
{
    std::array<pollfd, 2> entries{ { { socket, POLLIN, 0 }, { wake, POLLIN, 0 } } };
    return ::poll(entries.data(), entries.size(), timeoutMs) >= 0 && entries[1].revents == 0;
}

bool IsClosedByClient(int client)
{
    char byte = 0;
    return ::recv(client, &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 0;
}

} // namespace

ScpiServer::ScpiServer()
    : listener_(OpenListener(port_))
{
    Require(::pipe(wake_) == 0);
    thread_ = std::thread([this] { Serve(); });
}

ScpiServer::~ScpiServer()
{
    (void)!::write(wake_[1], "x", 1);
    {
        const std::lock_guard lock(mutex_);
        if (client_ >= 0)
            (void)::shutdown(client_, SHUT_RDWR); // unblocks a send to a client that does not read
    }
    thread_.join();
    for (const int descriptor : { listener_, wake_[0], wake_[1] })
        (void)::close(descriptor);
}

void ScpiServer::Answer(const std::string& bytes, Afterwards afterwards, size_t most)
{
    const std::lock_guard lock(mutex_);
    replies_.push_back({ bytes.substr(0, most), afterwards });
}

void ScpiServer::Clear()
{
    const std::lock_guard lock(mutex_);
    replies_.clear();
    received_.clear();
}

std::string ScpiServer::Received() const
{
    const std::lock_guard lock(mutex_);
    return received_;
}

void ScpiServer::Serve()
{
    while (WaitFor(listener_, wake_[0], -1)) {
        const int client = ::accept(listener_, nullptr, nullptr);
        if (client < 0)
            continue;
        {
            const std::lock_guard lock(mutex_);
            client_ = client;
        }
        Talk(client);
        const std::lock_guard lock(mutex_);
        client_ = -1;
        (void)::close(client);
    }
}

void ScpiServer::Talk(int client)
{
    std::array<char, 65536> buffer{};
    while (WaitFor(client, wake_[0], -1)) {
        const ssize_t count = ::recv(client, buffer.data(), buffer.size(), 0);
        if (count <= 0)
            return;
        bool isEnd = false;
        {
            const std::lock_guard lock(mutex_);
            received_.append(buffer.data(), static_cast<size_t>(count));
            isEnd = received_.ends_with("SYST:ERR?\n") || received_.ends_with("*IDN?\n");
        }
        if (isEnd && !SendReply(client))
            return;
    }
}

/// False if the connection must be closed.
bool ScpiServer::SendReply(int client)
{
    Reply reply{ kNoError };
    {
        const std::lock_guard lock(mutex_);
        if (!replies_.empty()) {
            reply = std::move(replies_.front());
            replies_.pop_front();
        }
    }
    for (size_t sent = 0; sent < reply.Bytes.size();) {
        const ssize_t count = ::send(client, reply.Bytes.data() + sent, reply.Bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        sent += static_cast<size_t>(count);
    }
    constexpr int kTrickleMs = 1;
    switch (reply.Then) {
    case Afterwards::Drops:
        return false;
    case Afterwards::StopsReading:
        (void)WaitFor(-1, wake_[0], -1);
        return false;
    case Afterwards::Trickles:
        while (!IsClosedByClient(client) && WaitFor(-1, wake_[0], kTrickleMs)
            && ::send(client, "x", 1, MSG_NOSIGNAL) == 1) { }
        return false;
    case Afterwards::ClosesOnNextRequest:
        // Shut down sending first: otherwise the client's next send could end its process.
        (void)WaitFor(client, wake_[0], -1);
        (void)::shutdown(client, SHUT_WR);
        return false;
    case Afterwards::Stalls:
        while (WaitFor(client, wake_[0], -1) && !IsClosedByClient(client)) { }
        return false;
    default:
        return true;
    }
}

int16_t SilentPort()
{
    uint16_t port = 0;
    (void)::close(OpenListener(port));
    return static_cast<int16_t>(port);
}
