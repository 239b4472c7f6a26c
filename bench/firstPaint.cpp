#include "bench/firstPaint.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/resource.h>
#include <utility>

namespace tarvik {

FirstPaint::FirstPaint(QWidget& window, std::function<void()> painted)
    : window_(window)
    , painted_(std::move(painted))
{
    window_.installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &window_ && event->type() == QEvent::Paint && painted_) {
        // The children are painted after the window, in the same iteration of the event loop.
        QTimer::singleShot(0, std::exchange(painted_, {}));
    }
    return false;
}

qint64 MonotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64{ now.tv_sec } * 1000000000 + now.tv_nsec;
}

void ReportStart(qint64 withoutNs)
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%lld %ld\n", static_cast<long long>(MonotonicNs() - withoutNs), usage.ru_maxrss);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}

} // namespace tarvik
