#include "print/page/printOutput.h"

#include "app/platform/NewFileDevice.h"
#include "print/printer/PdfPages.h"
#include "print/printer/printers.h"

#include <QTemporaryFile>

namespace tarvik {

namespace {

PrintResult WritePdf(const PrintRun& run, QIODevice& device, PrintWatcher& watcher)
{
    PdfPages pages(device, run.Paper);
    return PrintPages(pages, run.Pages, run.Paper, run.Title, watcher);
}

} // namespace

PrintOutcome PrintToFile(const PrintRun& run, const QString& path, PrintWatcher& watcher)
{
    NewFileDevice file(path);
    if (!file.open(QIODevice::WriteOnly))
        return { PrintResult::Failed, {}, 0 };
    const PrintResult result = WritePdf(run, file, watcher);
    if (result != PrintResult::Printed)
        return { result, {}, 0 };
    return { file.Commit() ? PrintResult::Printed : PrintResult::Failed, {}, 0 };
}

PrintOutcome PrintToQueue(const PrintRun& run, PrintWatcher& watcher)
{
    QTemporaryFile file;
    if (!file.open())
        return { PrintResult::Failed, file.errorString(), 0 };
    const PrintResult result = WritePdf(run, file, watcher);
    if (result != PrintResult::Printed || !file.flush())
        return { result == PrintResult::Printed ? PrintResult::Failed : result, file.errorString(), 0 };
    const SentJob sent = ThePrinterSystem()->Send(ThePrinter(), run.Title, file.fileName());
    return { sent.Error.isEmpty() ? PrintResult::Printed : PrintResult::Failed, sent.Error, sent.Id };
}

} // namespace tarvik
