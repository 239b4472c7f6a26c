// print/printer/jobWatch.h: watches sent jobs until the queue has printed them.
#pragma once

#include <QString>

#include <vector>

namespace tarvik {

struct WatchedJob {
    QString Printer;
    int Job = 0;
    QString Title;
};

struct JobWatch {
    std::vector<WatchedJob> Jobs;
    bool TimerRuns = false;
};
JobWatch& TheJobWatch();

/// Time between two questions to the queue.
inline constexpr int kJobWatchIntervalMs = 2000;

/// Message 13366 if the job is cancelled at the printer, 13367 if it fails there, as soon as no command runs.
void WatchPrintJob(const QString& printer, int job, const QString& title);

} // namespace tarvik
