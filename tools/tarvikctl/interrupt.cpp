#include "tools/tarvikctl/interrupt.h"

#if defined(Q_OS_UNIX)

#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <netinet/in.h>
#include <sys/socket.h>

#endif

namespace tarvik {

#if defined(Q_OS_UNIX)

namespace {

constexpr int kNoSocket = -1;

volatile std::sig_atomic_t linkSocket = kNoSocket;
volatile std::sig_atomic_t arrivedSignal = 0;

/// The channel owns its socket and has no operation that another one may call, so the system is asked for it.
int FindSocket(in_addr_t address, in_port_t port)
{
    constexpr int kMostHandles = 1024;
    for (int handle = 0; handle < kMostHandles; ++handle) {
        sockaddr_in peer{};
        socklen_t size = sizeof peer;
        if (::getpeername(handle, reinterpret_cast<sockaddr*>(&peer), &size) == 0 && peer.sin_family == AF_INET
            && peer.sin_addr.s_addr == address && peer.sin_port == port)
            return handle;
    }
    return kNoSocket;
}

void CloseLink(int signal)
{
    const int interrupted = errno;
    arrivedSignal = signal;
    ::shutdown(linkSocket, SHUT_RDWR);
    errno = interrupted;
}

} // namespace

void InterruptClosesLink(const QString& address, int port)
{
    linkSocket = FindSocket(::inet_addr(address.toLatin1().constData()), htons(static_cast<in_port_t>(port)));
    if (linkSocket == kNoSocket)
        return;
    struct sigaction action { };
    action.sa_handler = CloseLink;
    action.sa_flags = SA_RESETHAND;
    for (const int signal : { SIGTERM, SIGINT, SIGHUP }) {
        struct sigaction before { };
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

void EndIfInterrupted()
{
    if (arrivedSignal == 0)
        return;
    (void)std::fflush(stdout);
    std::signal(arrivedSignal, SIG_DFL);
    (void)std::raise(arrivedSignal);
}

#else

void InterruptClosesLink(const QString&, int) { }

void EndIfInterrupted() { }

#endif

} // namespace tarvik
