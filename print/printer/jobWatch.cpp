#include "print/printer/jobWatch.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "print/printer/printers.h"

#include <utility>

namespace tarvik {

namespace {

/// True while the job has to be watched.
bool Tell(const WatchedJob& job)
{
    switch (ThePrinterSystem()->StateOf(job.Printer, job.Job)) {
    case JobState::Waiting:
        return true;
    case JobState::Cancelled:
        MsgOk2(TextId::PrintJobCancelled, job.Title, job.Printer);
        return false;
    case JobState::Failed:
        MsgOk2(TextId::PrintJobFailed, job.Title, job.Printer);
        return false;
    default:
        return false;
    }
}

void StartTimer();

void AskQueues()
{
    TheJobWatch().TimerRuns = false;
    if (CanAct()) {
        const std::vector<WatchedJob> jobs = std::exchange(TheJobWatch().Jobs, {});
        for (const WatchedJob& job : jobs) {
            if (Tell(job))
                TheJobWatch().Jobs.push_back(job);
        }
    }
    StartTimer();
}

void StartTimer()
{
    JobWatch& watch = TheJobWatch();
    if (watch.TimerRuns || watch.Jobs.empty())
        return;
    watch.TimerRuns = true;
    TheSeams().StartTimer(kJobWatchIntervalMs, AskQueues);
}

} // namespace

JobWatch& TheJobWatch()
{
    static ProcessState<JobWatch> watch;
    return watch.Get();
}

void WatchPrintJob(const QString& printer, int job, const QString& title)
{
    TheJobWatch().Jobs.push_back({ printer, job, title });
    StartTimer();
}

} // namespace tarvik
