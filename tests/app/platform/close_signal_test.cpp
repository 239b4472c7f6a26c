#include "app/platform/closeSignal.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#if defined(Q_OS_UNIX)

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace tarvik {

// Each test runs in its own process, since signal handlers are process-wide.

namespace {

int requests = 0;

void Watch(RepeatedSignal repeated = RepeatedSignal::Requests)
{
    OnCloseSignal([] { ++requests; }, repeated);
}

int RequestsAfterEvents()
{
    for (int at = 0; at < 3; ++at)
        QCoreApplication::processEvents();
    return requests;
}

void ExitWith(bool holds)
{
    std::_Exit(holds ? EXIT_SUCCESS : EXIT_FAILURE);
}

const auto kHolds = testing::ExitedWithCode(EXIT_SUCCESS);

} // namespace

TEST(CloseSignal, RunsFromTheMessageLoop)
{
    for (const int signal : { SIGTERM, SIGINT, SIGHUP }) {
        const auto run = [signal] {
            Watch();
            std::raise(signal);
            const bool isPending = requests == 0;
            ExitWith(isPending && RequestsAfterEvents() == 1);
        };
        EXPECT_EXIT(run(), kHolds, "") << signal;
    }
}

TEST(CloseSignal, SignalsBeforeTheMessageLoopRequestCloseOnce)
{
    const auto run = [] {
        Watch();
        std::raise(SIGTERM);
        std::raise(SIGHUP);
        std::raise(SIGTERM);
        ExitWith(RequestsAfterEvents() == 1);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

TEST(CloseSignal, EachLaterSignalIsANewRequest)
{
    const auto run = [] {
        Watch();
        int expected = 0;
        for (const int signal : { SIGTERM, SIGTERM, SIGINT, SIGHUP, SIGHUP, SIGINT, SIGTERM }) {
            std::raise(signal);
            if (RequestsAfterEvents() != ++expected)
                ExitWith(false);
        }
        ExitWith(true);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

TEST(CloseSignal, NoNumberOfSignalsStopsTheProcess)
{
    const auto run = [] {
        Watch();
        for (int at = 0; at < 100'000; ++at) // more than a pipe holds
            std::raise(SIGTERM);
        ExitWith(RequestsAfterEvents() == 1);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

TEST(CloseSignal, EndsTheProcessOnTheSameSignalAgainIfAskedTo)
{
    const auto run = [] {
        Watch(RepeatedSignal::Kills);
        std::raise(SIGTERM);
        static_cast<void>(RequestsAfterEvents());
        std::raise(SIGTERM);
        ExitWith(false);
    };
    EXPECT_EXIT(run(), testing::KilledBySignal(SIGTERM), "");
}

TEST(CloseSignal, KeepsIgnoredSignalsIgnored)
{
    const auto run = [] {
        std::signal(SIGHUP, SIG_IGN);
        Watch();
        std::raise(SIGHUP);
        std::raise(SIGHUP);
        const int before = RequestsAfterEvents();
        std::raise(SIGTERM);
        ExitWith(before == 0 && RequestsAfterEvents() == 1);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

TEST(CloseSignal, PreservesTheErrorOfTheInterruptedCode)
{
    const auto run = [] {
        Watch();
        for (int handle = 3; handle < 256; ++handle)
            ::close(handle); // makes the handler fail
        errno = ENOTDIR;
        std::raise(SIGTERM);
        ExitWith(errno == ENOTDIR);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

} // namespace tarvik

#endif
