// bench/file_list_bench.cpp: fills the file list with 10,000 files of the instrument, whose listing takes no time here,
// to the end of the repaint; and selects all of them. Compared with as many names, made and sorted, in a bare view.
// Prints one JSON object with medians and maximum in ms.
#include "bench/timing.h"
#include "closed/loader.h"
#include "composition.h"
#include "link/classes/model.h"
#include "link/control/FileListWidget.h"

#include <QApplication>
#include <QStringListModel>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace tarvik {

namespace {

constexpr int kFiles = 10000;
constexpr int kRounds = 9;
constexpr int kStride = 7919; ///< prime, so each number occurs once

int walked = 0;

/// A listing from memory, unsorted as an instrument's may be.
void BindWalk()
{
    TvScpiApi& scpi = TvScpi();
    scpi.scpiStartFindAllFiles = [](int16_t* err, int16_t* status, int64_t*, int64_t*) {
        *err = *status = 0;
        walked = 0;
    };
    scpi.scpiGetNextFile = [](int16_t* err, int16_t* type, int16_t* last, int16_t* year, int16_t* month, int16_t* day,
                               int16_t* hour, int16_t* minute, int16_t* second, char* name, int32_t size) {
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
double MsUntilPainted(QTreeView& view, Act act)
{
    return MsOf([&] {
        act();
        view.viewport()->repaint();
        QCoreApplication::processEvents();
    });
}

void ShowNames(QStringListModel& model)
{
    QStringList names;
    names.reserve(kFiles);
    for (int file = 0; file < kFiles; ++file)
        names.append(QString::asprintf("shot%05d.png", file * kStride % kFiles));
    names.sort(Qt::CaseInsensitive);
    model.setStringList(names);
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
    QStringListModel names;
    QTreeView bare;
    bare.setModel(&names);
    for (QTreeView* each : { static_cast<QTreeView*>(&view), &bare }) {
        each->resize(400, 500);
        each->show();
        if (!QTest::qWaitForWindowExposed(each))
            return 1;
    }
    std::vector<double> shown;
    std::vector<double> selected;
    std::vector<double> bareShown;
    for (int round = 0; round < kRounds; ++round) {
        bareShown.push_back(MsUntilPainted(bare, [&names] { ShowNames(names); }));
        shown.push_back(MsUntilPainted(view, [&list] { TransferListInstr(list, FileClasses().FileClassMask, true); }));
        selected.push_back(MsUntilPainted(view, [&list] { TransferSelectAllFiles(list); }));
        if (list.Rows.size() != kFiles || TransferCountSelectedFiles(list) != kFiles)
            return 1;
    }
    std::printf("{\"show\": %.3f, \"slowestShow\": %.3f, \"selectAll\": %.3f, \"bareShow\": %.3f}\n", Median(shown),
        *std::max_element(shown.begin(), shown.end()), Median(selected), Median(bareShown));
    return 0;
}
