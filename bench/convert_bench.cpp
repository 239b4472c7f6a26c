// bench/convert_bench.cpp: the command Convert Files in the frame, beside windows that are tiled automatically. Prints
// one JSON object: the time of the batch in ms, and the growth of the peak memory by it in MiB.
//
// bench_convert EXTENSION WINDOWS FOLDER FILE...
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "bench/benchFrame.h"
#include "bench/timing.h"
#include "closed/loader.h"
#include "composition.h"
#include "link/documents/FmConvertProgress.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"

#include <QApplication>

#include <cstdio>

#include <sys/resource.h>

namespace tarvik {

namespace {

double PeakMiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Opens the first `count` of the sources.
bool OpenWindows(int count)
{
    Program().AutoTile = true;
    for (int at = 0; at < count; ++at) {
        if (!FileOpen(FileConvert().Sources.value(at), true, true))
            return false;
    }
    QCoreApplication::processEvents();
    return true;
}

int Run(const QStringList& arguments)
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

    FileConvert().TargetFolder = arguments[3];
    FileConvert().TargetExtension = u'.' + arguments[1];
    FileConvert().Sources = arguments.mid(4);
    if (!OpenWindows(arguments[2].toInt()))
        return EXIT_FAILURE;
    const double before = PeakMiB();
    BatchResult result;
    const double ms = MsOf([&result] {
        const BusyScope busy;
        FmConvertProgress form(QApplication::activeWindow());
        DialogShow(form);
        result = form.Result();
    });
    std::printf("{\"ms\": %.1f, \"growth\": %.1f}\n", ms, PeakMiB() - before);
    return result.Converted == result.Total ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace tarvik

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 4)
        return tarvik::Run(arguments);
    (void)std::fprintf(stderr, "usage: bench_convert EXTENSION WINDOWS FOLDER FILE...\n");
    return 2;
}
