// bench/bench_editor.cpp: the memory editor on a full list: opening to the first picture, and Page Down to the finished
// repaint. Prints one JSON object with medians in ms. Takes the list as its argument.
#include "bench/firstPaint.h"
#include "closed/loader.h"
#include "composition.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/FmEditorMemory.h"
#include "lists/values/limits.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace tarvik {

namespace {

constexpr int kOpenings = 15;
constexpr int kPages = 45;
constexpr double kNsPerMs = 1e6;

/// Counts the cells that are painted.
class PaintCount final : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        Cells += event->type() == QEvent::Paint && watched->objectName().startsWith(QLatin1String("TbCol3[")) ? 1 : 0;
        return false;
    }

    int Cells = 0;
};

double Median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// Opens the editor and closes it when it has been painted; `opened` runs in between.
double OpenMs(const QString& list, const std::function<void(FmEditorMemory&)>& opened)
{
    QElapsedTimer timer;
    double ms = 0;
    timer.start();
    Editor().EditorOpenFile = list;
    FmEditorMemory form;
    const FirstPaint first(form, [&] {
        ms = static_cast<double>(timer.nsecsElapsed()) / kNsPerMs;
        opened(form);
        form.Unload();
    });
    DialogShow(form);
    return ms;
}

/// Page Down through the list, then up again to go on.
std::vector<double> PageMs(FmEditorMemory& form)
{
    std::vector<double> times;
    PaintCount painted;
    for (QLineEdit* cell : form.findChildren<QLineEdit*>())
        cell->installEventFilter(&painted);
    form.CellSetFocus(0, 3);
    for (int page = 0; page < kPages; ++page) {
        QCoreApplication::processEvents();
        painted.Cells = 0;
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
        QCoreApplication::processEvents();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / kNsPerMs);
        if (painted.Cells == 0)
            qFatal("page %d was not painted", page);
    }
    return times;
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    ComposeProgram();
    for (const Module module : kModulesCheckedAtStart) {
        if (!ModuleLoad(module, QApplication::applicationDirPath() + QLatin1Char('/')))
            return 1;
    }
    ReadInstrumentLimits();
    std::vector<double> openings;
    std::vector<double> pages;
    for (int opening = 0; opening < kOpenings; ++opening) {
        const bool last = opening + 1 == kOpenings;
        openings.push_back(OpenMs(QString::fromLocal8Bit(argv[1]), [&pages, last](FmEditorMemory& form) {
            if (last)
                pages = PageMs(form);
        }));
    }
    std::printf("{\"open\": %.3f, \"pageDown\": %.3f, \"slowestPageDown\": %.3f}\n", Median(openings), Median(pages),
        *std::max_element(pages.begin(), pages.end()));
    return 0;
}
