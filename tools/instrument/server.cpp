#include "tools/instrument/server.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

namespace tarvik {

namespace {

constexpr int kWaitingConnections = 16;

void SetOption(int socket, int level, int option, int value)
{
    (void)::setsockopt(socket, level, option, &value, sizeof value);
}

void SwitchOn(int socket, int level, int option)
{
    SetOption(socket, level, option, 1);
}

bool BindAndListen(int socket, const sockaddr_in& address)
{
    return ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0
        && ::listen(socket, kWaitingConnections) == 0;
}

} // namespace

void WatchForLostClient(int socket)
{
    constexpr int kProbes = 4;
    constexpr int kProbeSeconds = kLostClientSeconds / (kProbes + 2);
    SwitchOn(socket, SOL_SOCKET, SO_KEEPALIVE);
    SetOption(socket, IPPROTO_TCP, TCP_KEEPIDLE, kLostClientSeconds - kProbes * kProbeSeconds);
    SetOption(socket, IPPROTO_TCP, TCP_KEEPINTVL, kProbeSeconds);
    SetOption(socket, IPPROTO_TCP, TCP_KEEPCNT, kProbes);
    SetOption(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, kLostClientSeconds * 1000);
}

Server::Server(Instrument& instrument, const LinkOptions& options)
    : instrument_(instrument)
    , options_(options)
    , plan_{ options.Faults }
{
}

bool Server::Listen(const std::string& address, int firstPort, int lastPort)
{
    sockaddr_in socketAddress{};
    socketAddress.sin_family = AF_INET;
    if (::inet_pton(AF_INET, address.c_str(), &socketAddress.sin_addr) != 1) {
        errno = EINVAL;
        return false;
    }
    for (int port = firstPort; port <= lastPort; ++port) {
        // A new socket for each port: a failed one stays bound.
        listener_ = Descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        if (!listener_.IsOpen())
            return false;
        SwitchOn(listener_.Number(), SOL_SOCKET, SO_REUSEADDR);
        socketAddress.sin_port = htons(static_cast<std::uint16_t>(port));
        if (BindAndListen(listener_.Number(), socketAddress))
            return true;
        if (errno != EADDRINUSE)
            return false;
    }
    return false;
}

int Server::Port() const
{
    sockaddr_in address{};
    socklen_t size = sizeof address;
    if (::getsockname(listener_.Number(), reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return 0;
    return ntohs(address.sin_port);
}

bool Server::Serve(int stop)
{
    for (;;) {
        LinkTime now = std::chrono::steady_clock::now();
        // While a client is about to end, the next one waits in the backlog instead of being turned away.
        const bool listens = session_ == nullptr || !session_->IsEnding();
        std::array<pollfd, 3> waits{ { { listener_.Number(), static_cast<short>(listens ? POLLIN : 0), 0 },
            { -1, 0, 0 }, { stop, POLLIN, 0 } } };
        int timeoutMs = -1;
        if (session_ != nullptr) {
            waits[1] = { session_->Socket(), session_->WantedEvents(now), 0 };
            timeoutMs = session_->TimeoutMs(now);
        }
        if (::poll(waits.data(), waits.size(), timeoutMs) < 0) {
            if (errno != EINTR)
                return false;
            continue;
        }
        if (waits[2].revents != 0)
            break;
        now = std::chrono::steady_clock::now();
        if (session_ != nullptr && !session_->Service(waits[1].revents, now))
            session_.reset();
        const bool turnsAway = session_ != nullptr && !session_->IsEnding();
        if ((waits[0].revents & POLLIN) != 0 && (session_ == nullptr || turnsAway))
            AcceptClient();
    }
    session_.reset();
    return true;
}

void Server::AcceptClient()
{
    Descriptor socket(::accept4(listener_.Number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!socket.IsOpen() || session_ != nullptr)
        return;
    SwitchOn(socket.Number(), IPPROTO_TCP, TCP_NODELAY);
    WatchForLostClient(socket.Number());
    session_ = std::make_unique<Session>(std::move(socket), instrument_, plan_, options_);
}

} // namespace tarvik
