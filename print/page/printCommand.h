// print/page/printCommand.h: the print commands.
#pragma once

#include "app/platform/port.h"
#include "print/page/printOutput.h"

#include <functional>

namespace tarvik {

struct PrintCommandState {
    QString PdfFolder; ///< of the last PDF file of this run; empty before the first
};
PrintCommandState& ThePrintCommand();

enum class PrintMode {
    Chosen = 0, ///< the windows that the user chooses
    Active = 1, ///< the active window
    Preview = 2 ///< the pages of the preview as they are
};

/// Prints on the printer in use. Message 12708 or 12709 without it, 13364 or 13365 if the job fails. A printer that
/// prints to a file asks for it first.
void PrintWindows(PrintMode mode);

/// Shows the progress of a job.
class PrintProgress {
public:
    using Job = std::function<PrintOutcome(PrintWatcher& watcher)>;

    /// Runs a job of that many pages once, and returns its outcome.
    virtual PrintOutcome Run(int pages, const Job& job) = 0;

protected:
    ~PrintProgress() = default;
};

/// Without an implementation a job runs without being shown and can't be cancelled.
Port<PrintProgress>& ThePrintProgress();

} // namespace tarvik
