// print/page/printOutput.h: sends pages to a PDF file or to the queue of the printer in use.
#pragma once

#include "print/page/printJob.h"

#include <QString>

#include <vector>

namespace tarvik {

/// A job: its pages, laid out for the sheet.
struct PrintRun {
    std::vector<PageRecord> Pages;
    Sheet Paper;
    QString Title; ///< of the document and in the queue
};

struct PrintOutcome {
    PrintResult Result = PrintResult::Printed;
    QString Reason; ///< of a failure, if it is known
    int Job = 0; ///< number in the queue; 0 for a file
};

/// Replaces `path` whole, or leaves it unchanged.
PrintOutcome PrintToFile(const PrintRun& run, const QString& path, PrintWatcher& watcher);

/// Sends the whole job once all its pages are drawn.
PrintOutcome PrintToQueue(const PrintRun& run, PrintWatcher& watcher);

} // namespace tarvik
