// bench/editor_bench.cpp LIST: the memory editor with a full list: from opening to the first paint, and from Page Down
// to the end of the repaint; compared with a bare dialog of the same widgets. Prints one JSON object with medians in
// ms.
#include "bench/bareForm.h"
#include "bench/firstPaint.h"
#include "bench/timing.h"
#include "closed/loader.h"
#include "composition.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/FmEditorMemory.h"
#include "lists/values/limits.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace tarvik {

namespace {

constexpr int kOpenings = 15;
constexpr int kPages = 45;
constexpr double kNsPerMs = 1e6;

/// Counts the paint events of line edits.
class PaintCount final : public QObject {
public:
    explicit PaintCount(const QWidget& form)
    {
        for (QLineEdit* edit : form.findChildren<QLineEdit*>())
            edit->installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        edits_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    /// Duration of `act` and the repaint that it causes.
    template <typename Act>
    double Ms(Act act)
    {
        QCoreApplication::processEvents();
        edits_ = 0;
        const double ms = MsOf([&act] {
            act();
            QCoreApplication::processEvents();
        });
        if (edits_ == 0)
            qFatal("the page was not painted");
        return ms;
    }

private:
    int edits_ = 0;
};

struct Figures {
    std::vector<double> Open;
    std::vector<double> BareOpen;
    std::vector<double> Page;
    std::vector<double> BarePage;
};

/// Opens the editor, calls `opened` when it has been painted, and closes it.
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

/// Reads the file and shows a bare dialog.
double BareOpenMs(const QString& list, const BareFormPlan& plan)
{
    bool isPainted = false;
    QElapsedTimer timer;
    double ms = 0;
    timer.start();
    QFile file(list);
    if (!file.open(QIODevice::ReadOnly) || file.readAll().isEmpty())
        qFatal("no list");
    BareForm form(plan);
    const FirstPaint first(form, [&] {
        ms = static_cast<double>(timer.nsecsElapsed()) / kNsPerMs;
        isPainted = true;
    });
    form.show();
    while (!isPainted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return ms;
}

/// Alternates Page Down in the editor with setting the texts of two pages in a bare dialog.
void MeasurePages(FmEditorMemory& form, Figures& figures)
{
    const auto pageDown = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown); };
    PaintCount cells(form);
    form.CellSetFocus(0, 3);
    std::array<BareFormPlan, 2> plans{ PlanOf(form) };
    (void)cells.Ms(pageDown);
    plans[1] = PlanOf(form);
    BareForm bare(plans[1]);
    bare.setAttribute(Qt::WA_ShowWithoutActivating);
    bare.show();
    if (!QTest::qWaitForWindowExposed(&bare))
        qFatal("no bare page");
    PaintCount bareCells(bare);
    form.activateWindow();
    if (!QTest::qWaitForWindowActive(&form))
        qFatal("the editor is not active");
    for (int page = 0; page < kPages; ++page) {
        figures.Page.push_back(cells.Ms(pageDown));
        figures.BarePage.push_back(
            bareCells.Ms([&] { bare.ShowTexts(plans[static_cast<size_t>(page) % plans.size()]); }));
    }
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
    const QString list = QString::fromLocal8Bit(argv[1]);
    Figures figures;
    BareFormPlan plan;
    (void)OpenMs(list, [&plan](FmEditorMemory& form) { plan = PlanOf(form); }); // also loads fonts and pictures
    for (int opening = 0; opening < kOpenings; ++opening) {
        const bool last = opening + 1 == kOpenings;
        figures.BareOpen.push_back(BareOpenMs(list, plan));
        figures.Open.push_back(OpenMs(list, [&figures, last](FmEditorMemory& form) {
            if (last)
                MeasurePages(form, figures);
        }));
    }
    std::printf(
        "{\"open\": %.3f, \"bareOpen\": %.3f, \"pageDown\": %.3f, \"slowestPageDown\": %.3f, \"barePage\": %.3f}\n",
        Median(figures.Open), Median(figures.BareOpen), Median(figures.Page),
        *std::max_element(figures.Page.begin(), figures.Page.end()), Median(figures.BarePage));
    return 0;
}
