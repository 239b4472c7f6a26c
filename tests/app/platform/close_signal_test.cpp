#include "app/platform/closeSignal.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#if defined(Q_OS_UNIX)

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace tarvik {

// Each test in a process of its own: a signal's handler belongs to all of it.

namespace {

int wishes = 0;

void Watch()
{
    OnCloseSignal([] { ++wishes; });
}

int WishesAfterEvents()
{
    for (int at = 0; at < 3; ++at)
        QCoreApplication::processEvents();
    return wishes;
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
            const bool waits = wishes == 0;
            ExitWith(waits && WishesAfterEvents() == 1);
        };
        EXPECT_EXIT(run(), kHolds, "") << signal;
    }
}

TEST(CloseSignal, OneWishIsMadeOfSeveralSignals)
{
    const auto run = [] {
        Watch();
        std::raise(SIGTERM);
        std::raise(SIGHUP);
        const int before = WishesAfterEvents();
        std::raise(SIGINT);
        ExitWith(before == 1 && WishesAfterEvents() == 1);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

TEST(CloseSignal, TheSameSignalAgainEndsTheProcess)
{
    const auto run = [] {
        Watch();
        std::raise(SIGTERM);
        static_cast<void>(WishesAfterEvents());
        std::raise(SIGTERM);
        ExitWith(false);
    };
    EXPECT_EXIT(run(), testing::KilledBySignal(SIGTERM), "");
}

TEST(CloseSignal, ASignalThatIsIgnoredStaysIgnored)
{
    const auto run = [] {
        std::signal(SIGHUP, SIG_IGN);
        Watch();
        std::raise(SIGHUP);
        std::raise(SIGHUP);
        const int before = WishesAfterEvents();
        std::raise(SIGTERM);
        ExitWith(before == 0 && WishesAfterEvents() == 1);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

TEST(CloseSignal, LeavesTheErrorOfWhatItInterrupts)
{
    const auto run = [] {
        Watch();
        for (int handle = 3; handle < 256; ++handle)
            ::close(handle); // so that the handler fails
        errno = ENOTDIR;
        std::raise(SIGTERM);
        ExitWith(errno == ENOTDIR);
    };
    EXPECT_EXIT(run(), kHolds, "");
}

} // namespace tarvik

#endif
