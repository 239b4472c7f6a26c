// bench/firstPaint.h: the moment at which a window has been painted for the first time.
#pragma once

#include <QWidget>

#include <functional>

namespace tarvik {

/// Calls `painted` once, from the message loop, when `window` has been shown and its first picture is complete.
class FirstPaint final : public QObject {
    Q_OBJECT
public:
    FirstPaint(QWidget& window, std::function<void()> painted);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window_;
    std::function<void()> painted_;
};

/// Writes the clock of CLOCK_MONOTONIC in ns, less `withoutNs`, and the peak memory in KiB to standard output and ends
/// the process at once.
[[noreturn]] void ReportStart(qint64 withoutNs);

/// The clock of CLOCK_MONOTONIC in ns.
qint64 MonotonicNs();

} // namespace tarvik
