// tests/support/endSignals.h: signals of a test program and of the programs that it starts.
#pragma once

#include <QtGlobal>

#if defined(Q_OS_UNIX)
#include <csignal>
#endif

namespace tarvik {

/// A script that runs the tests in the background, or without its terminal, starts them with some of these ignored.
inline void RestoreEndSignals()
{
#if defined(Q_OS_UNIX)
    for (const int signal : { SIGHUP, SIGINT, SIGQUIT, SIGTERM })
        std::signal(signal, SIG_DFL);
#endif
}

} // namespace tarvik
