// bench/bench_file_list.cpp: a list of 10,000 files of the instrument, whose walk takes no time here, to the finished
// repaint of the list on the screen; and all of them selected. Prints one JSON object with the slowest of its rounds in
// ms.
#include "closed/loader.h"
#include "composition.h"
#include "link/classes/model.h"
#include "link/control/FileListWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>

namespace tarvik {

namespace {

constexpr int kFiles = 10000;
constexpr int kRounds = 9;
constexpr double kNsPerMs = 1e6;

int walked = 0;

/// A walk out of memory: names in no order, as an instrument may tell them.
void BindWalk()
{
    TvScpiApi& scpi = TvScpi();
    scpi.scpiStartFindAllFiles = [](int16_t* err, int16_t* status, int64_t*, int64_t*) {
        *err = *status = 0;
        walked = 0;
    };
    scpi.scpiGetNextFile = [](int16_t* err, int16_t* type, int16_t* last, int16_t* year, int16_t* month, int16_t* day,
                               int16_t* hour, int16_t* minute, int16_t* second, char* name, int32_t size) {
        constexpr int kStride = 7919; // a prime, so that each number comes once
        const int number = walked * kStride % kFiles;
        *err = *type = 0;
        *last = ++walked == kFiles ? 1 : 0;
        *year = 2026;
        *month = static_cast<int16_t>(1 + number % 12);
        *day = static_cast<int16_t>(1 + number % 28);
        *hour = *minute = *second = static_cast<int16_t>(number % 24);
        std::snprintf(name, static_cast<size_t>(size), "shot%05d.png", number);
    };
}

template <typename Act>
double MsUntilPainted(FileListWidget& view, Act act)
{
    QElapsedTimer timer;
    timer.start();
    act();
    view.viewport()->repaint();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / kNsPerMs;
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    if (!ModuleLoad(Module::Language, QApplication::applicationDirPath() + QLatin1Char('/')))
        return 1;
    BindWalk();
    ModFileInit(FileClassScreenShot);
    FileList list;
    FileListWidget view(list, QStringLiteral("LvInstr"), nullptr);
    view.ShowColumns();
    view.resize(400, 500);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view))
        return 1;
    double shown = 0;
    double selected = 0;
    for (int round = 0; round < kRounds; ++round) {
        const double listMs =
            MsUntilPainted(view, [&list] { TransferListInstr(list, FileClasses().FileClassMask, true); });
        shown = std::max(shown, listMs);
        selected = std::max(selected, MsUntilPainted(view, [&list] { TransferSelectAllFiles(list); }));
        if (list.Rows.size() != kFiles || TransferCountSelectedFiles(list) != kFiles)
            return 1;
    }
    std::printf("{\"show\": %.3f, \"selectAll\": %.3f}\n", shown, selected);
    return 0;
}
