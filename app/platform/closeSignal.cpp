#include "app/platform/closeSignal.h"

#include <QtGlobal>

#if defined(Q_OS_UNIX)

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace tarvik {

namespace {

/// A signal handler may do very little: it writes a byte here, and the message loop reads it.
std::array<int, 2>& Pipe()
{
    static std::array<int, 2> pipe{ -1, -1 };
    return pipe;
}

void Wake(int)
{
    const int interrupted = errno; // the interrupted code may be about to read it
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(Pipe()[1], &byte, 1);
    errno = interrupted;
}

void Drain()
{
    std::array<char, 64> bytes{};
    while (::read(Pipe()[0], bytes.data(), bytes.size()) > 0) { }
}

/// True for a background job of a script, or a program that outlives its terminal.
bool IsIgnored(int signal)
{
    struct sigaction current { };
    return ::sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

} // namespace

void OnCloseSignal(std::function<void()> close, RepeatedSignal repeated)
{
    if (Pipe()[0] >= 0 || ::pipe(Pipe().data()) != 0)
        return;
    for (const int end : Pipe()) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK); // a full pipe must not stop the handler
    }
    auto* notifier = new QSocketNotifier(Pipe()[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [run = std::move(close)] {
        Drain();
        run();
    });
    struct sigaction action { };
    action.sa_handler = Wake;
    action.sa_flags = SA_RESTART;
    if (repeated == RepeatedSignal::Kills)
        action.sa_flags |= static_cast<int>(SA_RESETHAND); // the second signal gets the default handler
    for (const int signal : { SIGTERM, SIGINT, SIGHUP }) {
        if (!IsIgnored(signal))
            ::sigaction(signal, &action, nullptr);
    }
}

} // namespace tarvik

#else

namespace tarvik {

void OnCloseSignal(std::function<void()>, RepeatedSignal) { }

} // namespace tarvik

#endif
