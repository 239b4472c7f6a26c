#include "tools/tarvikctl/print.h"

#include "app/platform/NewFileDevice.h"
#include "app/platform/closeSignal.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "print/page/printJob.h"
#include "print/page/printSettings.h"
#include "print/preview/pagination.h"
#include "print/printer/PdfPages.h"
#include "screen/diagram/datasetViewer.h"
#include "screen/document/screenTable.h"
#include "screen/files/documentFiles.h"
#include "screen/window/closing.h"
#include "tools/tarvikctl/layoutText.h"
#include "tools/tarvikctl/pictures.h"
#include "tools/tarvikctl/readList.h"

#include <QFileInfo>

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
    StoreLayout();
    return PagesOfPreview(sheet);
}

void WritePdf(const PrintArguments& arguments, const std::vector<PageRecord>& pages, Terminal& terminal)
{
    terminal.SetFile(arguments.Pdf);
    if (!MayWriteFile(arguments.Pdf)) {
        terminal.SetFailed();
        return;
    }
    NewFileDevice file(arguments.Pdf);
    if (!file.open(QIODevice::WriteOnly)) {
        terminal.Refuse(QStringLiteral("can't be written"));
        return;
    }
    PrintResult result = PrintResult::Failed;
    {
        PdfPages pdf(file, arguments.Paper);
        TerminalPrintWatcher watcher(terminal);
        const QString title = QFileInfo(arguments.Files.front()).completeBaseName();
        result = PrintPages(pdf, pages, arguments.Paper, title, watcher);
    }
    terminal.ShowProgress({});
    if (result == PrintResult::Cancelled)
        terminal.Refuse(QStringLiteral("stopped, nothing is written"));
    else if (result == PrintResult::Failed || !file.Commit())
        terminal.Refuse(QStringLiteral("can't be written"));
}

} // namespace

void CtlRunPrint(const PrintArguments& arguments, Terminal& terminal)
{
    ReadInstrumentLimits();
    OnCloseSignal([] { Program().CloseRequested = true; }, RepeatedSignal::Kills);
    BindDocumentFiles();
    if (!LoadSettings(arguments, terminal))
        return;
    const QVector<WindowId> windows = OpenAll(arguments, terminal);
    if (windows.isEmpty())
        return;
    const std::vector<PageRecord> pages = LayOutPages(arguments, windows, arguments.Paper);
    if (arguments.Layout)
        TerminalWrite(stdout, LayoutText(arguments.Paper, pages, windows, arguments.Files));
    else if (!pages.empty())
        WritePdf(arguments, pages, terminal);
}

} // namespace tarvik
