#include "print/page/printCommand.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/documents/fileKind.h"
#include "print/printer/jobWatch.h"
#include "print/printer/printers.h"
#include "screen/document/view.h"
#include "screen/window/arrange.h"

#include <QFileInfo>

namespace tarvik {

namespace {

class SilentWatcher final : public PrintWatcher {
public:
    bool MayPrint(int, int) override
    {
        return true;
    }
};

class NoProgress final : public PrintProgress {
public:
    PrintOutcome Run(int, const Job& job) override
    {
        SilentWatcher watcher;
        return job(watcher);
    }
};

/// Shows the page on the status line as well.
class StatusWatcher final : public PrintWatcher {
public:
    explicit StatusWatcher(PrintWatcher& shown)
        : shown_(shown)
    {
    }

    bool MayPrint(int number, int total) override
    {
        StatusSet(total == 1 ? LngStr(TextId::StatusPrintingPage)
                             : LngStr2(TextId::StatusPrintingPages, QString::number(number), QString::number(total)));
        return shown_.MayPrint(number, total);
    }

private:
    PrintWatcher& shown_;
};

QVector<WindowId> WindowsToPrint(PrintMode mode)
{
    if (mode == PrintMode::Active)
        return WindowInUse(WindowTable().Active) ? QVector<WindowId>{ WindowTable().Active } : QVector<WindowId>();
    ChooseWindows(MaskAll, true);
    return TheScreenWindows().Chosen;
}

std::vector<PageRecord> PagesToPrint(PrintMode mode, const Sheet& sheet)
{
    return mode == PrintMode::Preview ? PagesOfPreview(sheet)
                                      : PagesOfWindows(PageWindowsOf(WindowsToPrint(mode)), sheet);
}

/// The caption of the first window that is printed.
QString TitleOf(const std::vector<PageRecord>& pages)
{
    const ScreenView* view = ViewOf(pages.front().Entries.front().Window);
    return view == nullptr ? Program().ProgramTitle : view->Caption();
}

/// A proposal without an ending, so that it gets that of PDF files.
QString FileNameOf(const QString& title)
{
    static const QString kForbidden = QStringLiteral("/\\:*?\"<>|.");
    QString name = FileKindOf(title).IsPicture() ? QFileInfo(title).completeBaseName() : title;
    for (QChar& character : name) {
        if (kForbidden.contains(character) || !character.isPrint())
            character = u'-';
    }
    return name;
}

QString AskForFile(const QString& title)
{
    const QString& folder = ThePrintCommand().PdfFolder;
    SaveFileQuestion question;
    question.Title = LngStr(TextId::PdfSaveTitle);
    question.InitialFolder = folder.isEmpty() ? Program().LastFile.Folder : folder;
    question.FileName = FileNameOf(title);
    question.Filters = { LngStr(TextId::PdfFileType) + u'|' + u'*' + LngStr(TextId::PdfExtension) };
    question.HelpNumber = HelpId::PrintRun;
    return TheSeams().SaveFile(question).trimmed();
}

PrintOutcome RunJob(const PrintRun& run, const std::function<PrintOutcome(PrintWatcher&)>& print)
{
    const PrintOutcome outcome =
        ThePrintProgress()->Run(static_cast<int>(run.Pages.size()), [&print](PrintWatcher& shown) {
            StatusWatcher watcher(shown);
            return print(watcher);
        });
    StatusClear();
    return outcome;
}

void PrintIntoFile(const PrintRun& run)
{
    const QString path = AskForFile(run.Title);
    if (path.isEmpty())
        return;
    ThePrintCommand().PdfFolder = QFileInfo(path).absolutePath();
    if (IsWriteProtected(path)) {
        MsgOk1(TextId::FileIsReadOnly, path);
        return;
    }
    const PrintOutcome outcome = RunJob(run, [&](PrintWatcher& watcher) { return PrintToFile(run, path, watcher); });
    if (outcome.Result == PrintResult::Failed)
        MsgOk2(TextId::PdfNotWritten, path, outcome.Reason);
}

void PrintOnQueue(const PrintRun& run)
{
    const PrintOutcome outcome = RunJob(run, [&run](PrintWatcher& watcher) { return PrintToQueue(run, watcher); });
    if (outcome.Result == PrintResult::Failed)
        MsgOk2(TextId::PagesNotPrinted, ThePrinter().Printer, outcome.Reason);
    else if (outcome.Result == PrintResult::Printed)
        WatchPrintJob(ThePrinter().Printer, outcome.Job, run.Title);
}

} // namespace

PrintCommandState& ThePrintCommand()
{
    static ProcessState<PrintCommandState> state;
    return state.Get();
}

Port<PrintProgress>& ThePrintProgress()
{
    static PortOr<PrintProgress, NoProgress> port;
    return port;
}

void PrintWindows(PrintMode mode)
{
    if (!CheckPrinter())
        return;
    PrintRun run;
    run.Paper = PrinterSheet();
    run.Pages = PagesToPrint(mode, run.Paper);
    if (run.Pages.empty())
        return;
    run.Title = TitleOf(run.Pages);
    if (ThePrinterSystem()->PrintsToFile(ThePrinter().Printer))
        PrintIntoFile(run);
    else
        PrintOnQueue(run);
}

} // namespace tarvik
