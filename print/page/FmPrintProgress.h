// print/page/FmPrintProgress.h: runs a print job and shows its progress.
#pragma once

#include "app/forms/ProgressForm.h"
#include "print/page/printCommand.h"

namespace tarvik {

/// Cancel ends the job before the next page, and nothing of it is printed.
class FmPrintProgress final : public ProgressForm, private PrintWatcher {
    Q_OBJECT
public:
    FmPrintProgress(int pages, PrintProgress::Job job, QWidget* parent = nullptr);

    const PrintOutcome& Outcome() const
    {
        return outcome_;
    }

protected:
    bool OnLoad() override;
    void RunJob() override;
    void RequestStop() override;

private:
    bool MayPrint(int number, int total) override;

    int pages_;
    PrintProgress::Job job_;
    PrintOutcome outcome_{ PrintResult::Cancelled, {}, 0 };
    bool cancelled_ = false;
};

/// Implements ThePrintProgress: the form for jobs of more than one page.
void BindPrintProgress();

} // namespace tarvik
