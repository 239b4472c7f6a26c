// bench/print_bench.cpp: pages with one screen of 1280 x 720 to PDF, compared with bare pages of the same picture by
// the same toolkit; the preview of 100 windows, and its redraw after a drag. Prints one JSON object: shortest times in
// ms, and the growth of the peak memory by ten and by a hundred pages in MiB.
//
// bench_print FOLDER
#include "bench/benchFrame.h"
#include "bench/paintWatch.h"
#include "bench/receiverScreen.h"
#include "bench/timing.h"
#include "closed/loader.h"
#include "composition.h"
#include "print/page/pageLayout.h"
#include "print/page/printOutput.h"
#include "print/preview/FmPreview.h"
#include "print/preview/SheetView.h"
#include "screen/window/screenWindow.h"

#include <QApplication>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <vector>

#include <sys/resource.h>

namespace tarvik {

namespace {

constexpr int kRounds = 7;
constexpr int kFewPages = 10;
constexpr int kManyPages = 100;
constexpr int kDrags = 200;
constexpr int kDotsPerInch = 300;

double PeakMiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

class Watcher final : public PrintWatcher {
public:
    bool MayPrint(int, int) override
    {
        return true;
    }
};

Sheet PdfSheet()
{
    Sheet sheet;
    sheet.DotsPerInch = { kDotsPerInch, kDotsPerInch };
    sheet.Offset = { 0.25F, 0.25F };
    return sheet;
}

void OpenWindows()
{
    for (int number = 0; number < kManyPages; ++number) {
        const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::File);
        ScreenCreate(slot, { ReceiverScreen(static_cast<unsigned>(number)), {}, QStringLiteral("screen.png"), false });
    }
    QCoreApplication::processEvents();
}

PrintRun RunOf(int pages)
{
    const QVector<WindowId> windows = WindowsFor(MaskAll, true).first(pages);
    return { PagesOfWindows(PageWindowsOf(windows), PdfSheet()), PdfSheet(), QStringLiteral("bench") };
}

double Print(int pages, const QString& path)
{
    const PrintRun run = RunOf(pages);
    Watcher watcher;
    PrintOutcome outcome;
    const double ms = MsOf([&] { outcome = PrintToFile(run, path, watcher); });
    if (outcome.Result != PrintResult::Printed)
        qFatal("not printed");
    return ms;
}

/// The same pictures in the same places, without title, box and layout, into a file that is flushed and renamed.
double PrintBare(int pages, const QString& path)
{
    const PrintRun run = RunOf(pages);
    return MsOf([&] {
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("no bare file");
        {
            QPdfWriter writer(&file);
            writer.setPageSize(
                QPageSize(QSizeF(run.Paper.Paper.X, run.Paper.Paper.Y), QPageSize::Inch, {}, QPageSize::ExactMatch));
            writer.setPageMargins({});
            writer.setResolution(kDotsPerInch);
            QPainter painter(&writer);
            painter.setRenderHint(QPainter::LosslessImageRendering);
            for (int page = 0; page < pages; ++page) {
                if (page > 0)
                    writer.newPage();
                const PageEntry& entry = run.Pages[static_cast<size_t>(page)].Entries[0];
                painter.drawImage(DeviceRectangle(entry.Rectangle, run.Paper), ScreenOf(entry.Window)->Master);
            }
        }
        if (!file.commit())
            qFatal("no bare file");
    });
}

/// Shortest times, taken by turns.
struct Compared {
    double Own = std::numeric_limits<double>::max();
    double Bare = std::numeric_limits<double>::max();
};

Compared Compare(int pages, int rounds, const QString& folder)
{
    Compared times;
    for (int round = 0; round < rounds; ++round) {
        times.Own = std::min(times.Own, Print(pages, folder + QStringLiteral("/own.pdf")));
        times.Bare = std::min(times.Bare, PrintBare(pages, folder + QStringLiteral("/bare.pdf")));
    }
    return times;
}

double OpenPreview(QWidget& frame)
{
    PaintWatch painted(QStringLiteral("PbPreview"));
    double shortest = std::numeric_limits<double>::max();
    for (int round = 0; round < kRounds; ++round) {
        shortest = std::min(shortest, painted.Ms([&frame] {
            FmPreview form(&frame);
            DialogShow(form);
        }));
    }
    return shortest;
}

/// From the end of a drag to the finished repaint.
std::vector<double> RedrawPreview(QWidget& frame)
{
    std::vector<double> times;
    FmPreview form(&frame);
    form.RunDialog(false);
    if (!QTest::qWaitForWindowExposed(&form))
        qFatal("no preview");
    auto* view = form.findChild<SheetView*>();
    for (int drag = 0; drag < kDrags; ++drag) {
        const QPoint from = view->Edit().SelectedPixels().center();
        const QPoint to = from + (drag % 2 == 0 ? QPoint(3, 5) : QPoint(-3, -5));
        view->Show(view->Edit().Press(from));
        view->Show(view->Edit().DragTo(to));
        view->repaint();
        times.push_back(MsOf([view] {
            view->Show(view->Edit().Release());
            view->repaint();
        }));
    }
    form.Unload();
    return times;
}

int Run(const QString& target)
{
    ComposeProgram();
    const QString folder = QApplication::applicationDirPath() + QLatin1Char('/');
    for (const Module module : { Module::General, Module::Language, Module::Pictures }) {
        if (!ModuleLoad(module, folder))
            return EXIT_FAILURE;
    }
    MfMain frame(folder);
    if (!ShowBenchFrame(frame))
        return EXIT_FAILURE;
    OpenWindows();
    Compare(1, 1, target); // the first time also loads fonts
    const double start = PeakMiB();
    Print(kFewPages, target + QStringLiteral("/own.pdf"));
    const double few = PeakMiB();
    Print(kManyPages, target + QStringLiteral("/own.pdf"));
    const double many = PeakMiB();
    const Compared one = Compare(1, kRounds, target);
    const Compared hundred = Compare(kManyPages, 1, target);
    const double open = OpenPreview(frame);
    const std::vector<double> redraw = RedrawPreview(frame);
    std::printf("{\"page\": %.3f, \"barePage\": %.3f, \"pages\": %.3f, \"barePages\": %.3f, \"growthOfFew\": %.2f, "
                "\"growth\": %.2f, \"open\": %.3f, \"redraw\": %.3f, \"slowestRedraw\": %.3f}\n",
        one.Own, one.Bare, hundred.Own, hundred.Bare, few - start, many - few, open, Median(redraw),
        *std::max_element(redraw.begin(), redraw.end()));
    return EXIT_SUCCESS;
}

} // namespace

} // namespace tarvik

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 2)
        return tarvik::Run(arguments[1]);
    (void)std::fprintf(stderr, "usage: bench_print FOLDER\n");
    return 2;
}
