#include "tools/tarvikctl/print.h"

#include "app/platform/NewFileDevice.h"
#include "app/platform/closeSignal.h"
#include "app/platform/paths.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "print/page/printJob.h"
#include "print/page/printSettings.h"
#include "print/preview/pagination.h"
#include "print/printer/PdfPages.h"
#include "print/printer/cupsPrinters.h"
#include "screen/diagram/datasetViewer.h"
#include "screen/document/screenTable.h"
#include "screen/files/documentFiles.h"
#include "screen/window/closing.h"
#include "tools/tarvikctl/layoutText.h"
#include "tools/tarvikctl/pictures.h"
#include "tools/tarvikctl/readList.h"

#include <QFileInfo>
#include <QTemporaryFile>

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
    StoreLayout();
    return PagesOfPreview(sheet);
}

QString TitleOf(const PrintArguments& arguments)
{
    return QFileInfo(arguments.Files.front()).completeBaseName();
}

/// A PDF of the pages, on an open device. False after a message.
bool WritePages(const PrintArguments& arguments, const std::vector<PageRecord>& pages, const Sheet& sheet,
    QIODevice& device, Terminal& terminal)
{
    PdfPages pdf(device, sheet);
    TerminalPrintWatcher watcher(terminal);
    const PrintResult result = PrintPages(pdf, pages, sheet, TitleOf(arguments), watcher);
    terminal.ShowProgress({});
    if (result == PrintResult::Cancelled)
        terminal.Refuse(QStringLiteral("stopped, nothing is printed"));
    else if (result == PrintResult::Failed)
        terminal.Refuse(QStringLiteral("can't be written"));
    return result == PrintResult::Printed;
}

void WritePdf(const PrintArguments& arguments, const std::vector<PageRecord>& pages, Terminal& terminal)
{
    terminal.SetFile(arguments.Pdf);
    if (IsWriteProtected(arguments.Pdf)) {
        MsgOk1(TextId::FileIsReadOnly, arguments.Pdf);
        return;
    }
    NewFileDevice file(arguments.Pdf);
    if (!file.open(QIODevice::WriteOnly))
        terminal.Refuse(QStringLiteral("can't be written"));
    else if (WritePages(arguments, pages, arguments.Paper, file, terminal) && !file.Commit())
        terminal.Refuse(QStringLiteral("can't be written"));
}

void SendToPrinter(
    const PrintArguments& arguments, const std::vector<PageRecord>& pages, const Sheet& sheet, Terminal& terminal)
{
    terminal.SetFile(ThePrinter().Printer);
    QTemporaryFile file;
    if (!file.open()) {
        terminal.Refuse(QStringLiteral("there is no place for a temporary file"));
        return;
    }
    if (!WritePages(arguments, pages, sheet, file, terminal))
        return;
    file.close();
    const QString error = ThePrinterSystem()->Send(ThePrinter(), TitleOf(arguments), file.fileName());
    if (!error.isEmpty())
        terminal.Refuse(error);
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
    ThePrinterSystem().Implement<CupsPrinters>();
    if (!LoadSettings(arguments, terminal))
        return;
    const auto sheet = SheetOf(arguments, terminal);
    if (!sheet)
        return;
    const QVector<WindowId> windows = OpenAll(arguments, terminal);
    if (windows.isEmpty())
        return;
    const std::vector<PageRecord> pages = LayOutPages(arguments, windows, *sheet);
    if (arguments.Layout)
        TerminalWrite(stdout, LayoutText(*sheet, pages, windows, arguments.Files));
    else if (pages.empty())
        terminal.SetFailed();
    else if (arguments.Pdf.isEmpty())
        SendToPrinter(arguments, pages, *sheet, terminal);
    else
        WritePdf(arguments, pages, terminal);
}

} // namespace tarvik
