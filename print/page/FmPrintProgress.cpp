#include "print/page/FmPrintProgress.h"

#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>

#include <utility>

namespace tarvik {

namespace {

class OnePageWatcher final : public PrintWatcher {
public:
    bool MayPrint(int, int) override
    {
        return true;
    }
};

class ProgressForms final : public PrintProgress {
public:
    PrintOutcome Run(int pages, const Job& job) override
    {
        if (pages == 1) {
            OnePageWatcher watcher;
            return job(watcher);
        }
        FmPrintProgress form(pages, job, QApplication::activeWindow());
        DialogShow(form);
        return form.Outcome();
    }
};

} // namespace

FmPrintProgress::FmPrintProgress(int pages, PrintProgress::Job job, QWidget* parent)
    : ProgressForm(
        "FmPrintProgress", "LbPage", { TextId::PrintRunStop, HelpId::PrintRun, TextId::PrintRunStopHint }, parent)
    , pages_(pages)
    , job_(std::move(job))
{
    LngSetForm(this, TextId::PrintRunTitle);
    SetHelpNumber(HelpId::PrintRun);
}

bool FmPrintProgress::OnLoad()
{
    BeginJob(pages_);
    ShowLine({});
    return true;
}

void FmPrintProgress::RunJob()
{
    outcome_ = job_(*this);
}

void FmPrintProgress::RequestStop()
{
    cancelled_ = true;
    ShowLine(LngStr(TextId::PrintRunStopping));
}

bool FmPrintProgress::MayPrint(int number, int total)
{
    progressBar->setValue(number - 1);
    ShowLine(LngStr2(TextId::StatusPrintingPages, QString::number(number), QString::number(total)));
    TheSeams().PumpEvents();
    return !cancelled_;
}

void BindPrintProgress()
{
    ThePrintProgress().Implement<ProgressForms>();
}

} // namespace tarvik
