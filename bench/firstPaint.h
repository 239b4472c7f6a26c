// bench/firstPaint.h: reports when a window has been painted for the first time.
#pragma once

#include <QWidget>

#include <functional>

namespace tarvik {

/// Calls `painted` once, from the event loop, when `window` and its children have been painted.
class FirstPaint final : public QObject {
    Q_OBJECT
public:
    FirstPaint(QWidget& window, std::function<void()> painted);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window_;
    std::function<void()> painted_;
};

/// Writes CLOCK_MONOTONIC in ns, less `withoutNs`, and the peak memory in KiB to standard output and exits immediately.
[[noreturn]] void ReportStart(qint64 withoutNs);

/// CLOCK_MONOTONIC.
qint64 MonotonicNs();

} // namespace tarvik
