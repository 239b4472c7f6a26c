#include "tools/tarvikctl/print.h"

#include "app/platform/closeSignal.h"
#include "app/platform/paths.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "print/page/printOutput.h"
#include "print/page/printSettings.h"
#include "print/preview/pagination.h"
#include "print/printer/queues.h"
#include "screen/diagram/datasetViewer.h"
#include "screen/document/screenTable.h"
#include "screen/files/documentFiles.h"
#include "screen/window/closing.h"
#include "tools/tarvikctl/layoutText.h"
#include "tools/tarvikctl/pictures.h"
#include "tools/tarvikctl/readList.h"

#include <QFileInfo>

#include <optional>

namespace tarvik {

namespace {

/// Shows the progress, and stops on an end signal.
class TerminalPrintWatcher final : public PrintWatcher {
public:
    explicit TerminalPrintWatcher(Terminal& terminal)
        : terminal_(terminal)
    {
    }

    bool MayPrint(int number, int total) override
    {
        terminal_.ShowProgress(QStringLiteral("page %1 of %2").arg(number).arg(total));
        return !Program().CloseRequested;
    }

private:
    Terminal& terminal_;
};

/// The window of a list's diagram; 0 after a message.
WindowId OpenDiagram(const QString& path, Terminal& terminal)
{
    const ReadList read = ReadListFile(path, terminal);
    if (read.List == nullptr)
        return 0;
    if (read.Class != FileClassKfactorTable) {
        terminal.Refuse(QStringLiteral("this kind of list can't be printed"));
        return 0;
    }
    if (!read.List->MayBeSaved() || !read.List->Sort(0))
        return 0;
    const WindowId id = DatasetOpen(read.List->DiagramInput(false).value());
    if (id == 0)
        terminal.Refuse(QStringLiteral("there is nothing to show"));
    return id;
}

/// The windows of all files in their order; empty after a message.
QVector<WindowId> OpenAll(const PrintArguments& arguments, Terminal& terminal)
{
    QVector<WindowId> windows;
    for (const QString& file : arguments.Files) {
        terminal.SetFile(file);
        const WindowId id = CtlIsPictureName(file) ? CtlOpenPicture(file, arguments.Description, terminal)
                                                   : OpenDiagram(file, terminal);
        if (id == 0)
            return {};
        windows.append(id);
    }
    return windows;
}

bool LoadSettings(const PrintArguments& arguments, Terminal& terminal)
{
    if (!arguments.Settings.isEmpty()) {
        terminal.SetFile(arguments.Settings);
        if (!ListFileExists(arguments.Settings))
            return false;
        PrintLoadSettings(arguments.Settings);
    }
    if (arguments.Margins)
        PresentPage().Margins = *arguments.Margins;
    PrintSettings& settings = ThePrintSettings();
    settings.Title = arguments.Title.value_or(settings.Title);
    settings.Border = arguments.Outline.value_or(settings.Border);
    for (PageRecord& page : ThePages().Table)
        page.BlackAndWhite = arguments.BlackAndWhite;
    return true;
}

/// The pages as printed; with a number of windows on a page, or arranged, as the preview prints them.
std::vector<PageRecord> LayOutPages(
    const PrintArguments& arguments, const QVector<WindowId>& windows, const Sheet& sheet)
{
    const std::vector<PageWindow> shown = PageWindowsOf(windows);
    if (arguments.PerPage == 0 && !arguments.Arrange)
        return PagesOfWindows(shown, sheet);
    BuildPages(shown, sheet);
    if (arguments.PerPage == 0)
        ArrangePages(sheet);
    else if (!Repaginate(arguments.PerPage, sheet))
        return {};
    StoreLayout(sheet);
    return PagesOfPreview(sheet);
}

QString TitleOf(const PrintArguments& arguments)
{
    return QFileInfo(arguments.Files.front()).completeBaseName();
}

/// Reports what did not print.
void Tell(const PrintOutcome& outcome, Terminal& terminal)
{
    terminal.ShowProgress({});
    if (outcome.Result == PrintResult::Cancelled)
        terminal.Refuse(QStringLiteral("stopped, nothing is printed"));
    else if (outcome.Result == PrintResult::Failed)
        terminal.Refuse(outcome.Reason.isEmpty() ? QStringLiteral("can't be written") : outcome.Reason);
}

void WritePdf(const QString& path, const PrintRun& run, Terminal& terminal)
{
    terminal.SetFile(path);
    if (IsWriteProtected(path)) {
        MsgOk1(TextId::FileIsReadOnly, path);
        return;
    }
    TerminalPrintWatcher watcher(terminal);
    Tell(PrintToFile(run, path, watcher), terminal);
}

void SendToPrinter(const PrintRun& run, Terminal& terminal)
{
    terminal.SetFile(ThePrinter().Printer);
    TerminalPrintWatcher watcher(terminal);
    Tell(PrintToQueue(run, watcher), terminal);
}

/// The sheet of the PDF or of the chosen printer; nothing after a message.
std::optional<Sheet> SheetOf(const PrintArguments& arguments, Terminal& terminal)
{
    if (!arguments.Pdf.isEmpty() || (arguments.Layout && arguments.Printer.isEmpty()))
        return arguments.Paper;
    terminal.SetFile(arguments.Printer.isEmpty() ? QStringLiteral("tarvikctl") : arguments.Printer);
    if (!arguments.Printer.isEmpty())
        ThePrinter().Printer = arguments.Printer;
    ThePrinter().Paper = arguments.PaperKeyword;
    ThePrinter().Landscape = arguments.Landscape;
    if (!CheckPrinter())
        return {};
    return PrinterSheet();
}

} // namespace

void CtlRunPrint(const PrintArguments& arguments, Terminal& terminal)
{
    ReadInstrumentLimits();
    OnCloseSignal([] { Program().CloseRequested = true; }, RepeatedSignal::Kills);
    BindDocumentFiles();
    UsePrinters(SystemQueues());
    if (!LoadSettings(arguments, terminal))
        return;
    const auto sheet = SheetOf(arguments, terminal);
    if (!sheet)
        return;
    const QVector<WindowId> windows = OpenAll(arguments, terminal);
    if (windows.isEmpty())
        return;
    const PrintRun run{ LayOutPages(arguments, windows, *sheet), *sheet, TitleOf(arguments) };
    if (arguments.Layout)
        TerminalWrite(stdout, LayoutText(*sheet, run.Pages, windows, arguments.Files));
    else if (run.Pages.empty())
        terminal.SetFailed();
    else if (arguments.Pdf.isEmpty())
        SendToPrinter(run, terminal);
    else
        WritePdf(arguments.Pdf, run, terminal);
}

} // namespace tarvik
