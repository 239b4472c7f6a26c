// bench/tables_bench.cpp FOLDER [TURNS]: the editors of all lists but the memory list with full lists: opening; and
// with 1000 rows sorting, saving and viewing, to the finished repaint. Each is compared with a bare dialog of the same
// widgets, which does the same work on plain records. Prints one JSON object with medians in ms. With TURNS, opens a
// table, views its diagram and closes both so many times instead, and prints how memory (MiB) and time of a turn (ms)
// grow.
#include "app/frame/MfMain.h"
#include "app/message/message.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "bench/bareForm.h"
#include "bench/firstPaint.h"
#include "bench/paintWatch.h"
#include "bench/tableLists.h"
#include "bench/timing.h"
#include "closed/loader.h"
#include "composition.h"
#include "link/classes/model.h"
#include "lists/antenna/FmEditorAntenna.h"
#include "lists/correction/FmEditorCorrectionSet.h"
#include "lists/correction/correctionDiagram.h"
#include "lists/kfactor/FmEditorKfactor.h"
#include "lists/kfactor/kfactorDiagram.h"
#include "lists/suppress/FmEditorSuppress.h"
#include "lists/values/limits.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QtTest/QTest>

#include <cstdio>
#include <map>
#include <unistd.h>

namespace tarvik {

namespace {

constexpr int kOpenings = 15;
constexpr int kTables = 3; ///< of a correction set
constexpr double kMebibyte = 1024.0 * 1024.0;

/// Durations in ms by the names of the figures.
using Figures = std::map<QByteArray, std::vector<double>>;

class YesPresenter final : public MessagePresenter {
public:
    void Present(MessageRequest& request) override
    {
        request.Result = MsgResult::Yes;
    }
};

/// Duration of `act` and of the repaint that it causes.
template <typename Act>
double RepaintMs(Act act)
{
    QCoreApplication::processEvents();
    return MsOf([&act] {
        act();
        QCoreApplication::processEvents();
    });
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no list");
    return file.readAll();
}

/// Opens an editor, calls `opened` when it has been painted, and closes it without saving.
template <typename Form>
double OpenMs(const QString& list, const std::function<void(Form&)>& opened)
{
    double ms = 0;
    const auto start = std::chrono::steady_clock::now();
    Editor().EditorOpenFile = list;
    Form form;
    const FirstPaint first(form, [&] {
        ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
        opened(form);
        Editor().EditorDirty = false;
        form.Unload();
    });
    DialogShow(form);
    return ms;
}

/// Reads the file and shows a bare dialog, which is then given to `shown`.
double BareOpenMs(const QString& list, const BareFormPlan& plan, const std::function<void(BareForm&)>& shown)
{
    bool isPainted = false;
    double ms = 0;
    const auto start = std::chrono::steady_clock::now();
    (void)BytesOf(list);
    BareForm form(plan);
    const FirstPaint first(form, [&] {
        ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
        isPainted = true;
    });
    form.show();
    while (!isPainted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    shown(form);
    return ms;
}

/// The rows of a table of three columns as an editor shows them.
struct BareTable {
    std::vector<std::array<QString, 3>> Texts;

    /// Reads all texts as numbers, sorts the rows and writes them as texts.
    void Sort()
    {
        std::vector<std::array<double, 3>> rows;
        for (const auto& texts : Texts)
            rows.push_back({ texts[0].toDouble() * 1e6, texts[1].toDouble(), texts[2].toDouble() });
        std::stable_sort(
            rows.begin(), rows.end(), [](const auto& left, const auto& right) { return left[0] < right[0]; });
        for (size_t row = 0; row < rows.size(); ++row)
            Texts[row] = { QString::number(rows[row][0] / 1e6, 'f', 6), QString::number(rows[row][1], 'f', 2),
                QString::number(rows[row][2], 'f', 2) };
    }
};

BareTable BareTableOf(const MultiTraceInput& input)
{
    BareTable table;
    for (int row = 0; row < input.PointCount; ++row) {
        const MultiTracePoint& point = input.Points[static_cast<size_t>(row)];
        table.Texts.push_back({ QString::number(point.X / 1e6, 'f', 6), QString::number(point.Y[0], 'f', 2),
            QString::number(point.Y[1], 'f', 2) });
    }
    return table;
}

/// What is measured on a table of 1000 rows.
struct TableCase {
    QByteArray Name; ///< start of the names of its figures
    QString List;
    QString SavedList;
    QString CellName; ///< of the first frequency
    QString SortName;
    QString ViewName;
    int TablesToSave = 1;
    MultiTraceInput Diagram;
};

void Click(QWidget& form, const QString& name)
{
    form.findChild<QPushButton*>(name)->click();
}

QString FirstFrequency(QWidget& form, const TableCase& table)
{
    return form.findChild<QLineEdit*>(table.CellName)->text();
}

/// Moves the first row to the end with the next sort.
void TypeLastFrequency(QWidget& form, const TableCase& table, int round)
{
    auto* cell = form.findChild<QLineEdit*>(table.CellName);
    cell->setFocus();
    QTest::keyClick(cell, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(cell, QString::number(7000 + round));
}

template <typename Form>
void MeasureTable(Form& form, const TableCase& table, int round, PaintWatch& watch, Figures& figures)
{
    TypeLastFrequency(form, table, round);
    figures[table.Name + "Sort"].push_back(RepaintMs([&] { Click(form, table.SortName); }));
    if (!FirstFrequency(form, table).startsWith(QLatin1String("30."))
        && !FirstFrequency(form, table).startsWith(QLatin1String("31.")))
        qFatal("not sorted");
    figures[table.Name + "View"].push_back(watch.Ms([&] { Click(form, table.ViewName); }));
    TypeLastFrequency(form, table, round + kOpenings);
    figures[table.Name + "Save"].push_back(RepaintMs([&] { Click(form, QStringLiteral("BtSave")); }));
    if (Editor().EditorDirty)
        qFatal("not saved");
}

void MeasureBareTable(BareForm& form, const TableCase& table, std::array<BareFormPlan, 2>& plans, PaintWatch& watch,
    QWidget* frame, Figures& figures)
{
    BareTable rows = BareTableOf(table.Diagram);
    const auto sort = [&](const BareFormPlan& plan) {
        rows.Texts[0][0] = QStringLiteral("7000.000000");
        rows.Sort();
        form.ShowTexts(plan);
    };
    figures[table.Name + "BareSort"].push_back(RepaintMs([&] { sort(plans[1]); }));
    const OwnedTraces traces = *ConvertTraces(table.Diagram);
    figures[table.Name + "BareView"].push_back(watch.Ms([&] {
        rows.Sort();
        ShowBareDiagram(traces.Set, frame);
    }));
    const QByteArray bytes = BytesOf(table.List);
    figures[table.Name + "BareSave"].push_back(RepaintMs([&] {
        for (int at = 0; at < table.TablesToSave; ++at)
            sort(plans[0]);
        QFile file(table.SavedList + QStringLiteral(".new"));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()
            || fsync(file.handle()) != 0)
            qFatal("not written");
        file.close();
        std::rename(qPrintable(file.fileName()), qPrintable(table.SavedList + QStringLiteral(".bare")));
    }));
}

/// The texts of a form at its first row, and one page on.
template <typename Form>
std::array<BareFormPlan, 2> PlansOf(const QString& list)
{
    std::array<BareFormPlan, 2> plans;
    (void)OpenMs<Form>(list, [&plans](Form& form) {
        plans[0] = plans[1] = PlanOf(form);
        for (BareControl& control : plans[1].Controls)
            control.Text.replace(u'0', u'1');
    });
    return plans;
}

/// Opens the editor of a list and the bare dialog by turns; `table` is null for a list that is only opened.
template <typename Form>
void MeasureEditor(
    const QByteArray& name, const QString& list, const TableCase* table, QWidget* frame, Figures& figures)
{
    std::array<BareFormPlan, 2> plans = PlansOf<Form>(list); // also loads fonts and pictures
    PaintWatch watch(QStringLiteral("PbGraph"));
    PaintWatch bareWatch(QStringLiteral("BareDiagram"));
    for (int round = 0; round < kOpenings; ++round) {
        figures[name + "BareOpen"].push_back(BareOpenMs(list, plans[0], [&](BareForm& form) {
            if (table != nullptr)
                MeasureBareTable(form, *table, plans, bareWatch, frame, figures);
        }));
        figures[name + "Open"].push_back(OpenMs<Form>(list, [&](Form& form) {
            if (table != nullptr)
                MeasureTable(form, *table, round, watch, figures);
        }));
    }
}

void MeasureAll(const TableLists& lists, const QString& saved, QWidget* frame)
{
    Figures figures;
    MeasureEditor<FmEditorAntenna>("antenna", lists.Antennas, nullptr, frame, figures);
    MeasureEditor<FmEditorSuppress>("suppress", lists.Ranges, nullptr, frame, figures);
    TheSeams().BrowseFolder = [&saved](const FolderQuestion&) { return saved; };

    TableCase kfactors{ "kfactor", lists.Kfactors, saved + QStringLiteral("/Table.tvk"), QStringLiteral("TbCol1[0]"),
        QStringLiteral("BtSort"), QStringLiteral("BtView"), 1, {} };
    KfactorTable table;
    if (!LoadKfactorFile(lists.Kfactors, table))
        qFatal("no table");
    kfactors.Diagram = KfactorDiagram(table, QStringLiteral("Table"));
    MeasureEditor<FmEditorKfactor>("kfactor", lists.Kfactors, &kfactors, frame, figures);

    TableCase corrections{ "correction", lists.Corrections, saved + QStringLiteral("/Set.tvc"),
        QStringLiteral("KT_TbCol_freq[0]"), QStringLiteral("KT_BtSort"), QStringLiteral("KT_BtView"), kTables, {} };
    corrections.Diagram = kfactors.Diagram;
    MeasureEditor<FmEditorCorrectionSet>("correction", lists.Corrections, &corrections, frame, figures);

    const char* separator = "{";
    for (const auto& [name, values] : figures) {
        std::printf("%s\"%s\": %.3f", separator, name.constData(), Median(values));
        separator = ", ";
    }
    std::printf("}\n");
}

/// Memory in use, in bytes.
double ResidentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no statm");
    return file.readAll().split(' ').at(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE));
}

template <typename Form>
void Turn(const QString& list, const QString& viewName, PaintWatch& watch)
{
    (void)OpenMs<Form>(list, [&](Form& form) { (void)watch.Ms([&] { Click(form, viewName); }); });
}

void MeasureTurns(const TableLists& lists, int turns)
{
    PaintWatch watch(QStringLiteral("PbGraph"));
    std::vector<double> times;
    std::vector<double> bytes;
    for (int turn = 0; turn < turns; ++turn) {
        times.push_back(MsOf([&] {
            Turn<FmEditorKfactor>(lists.Kfactors, QStringLiteral("BtView"), watch);
            Turn<FmEditorCorrectionSet>(lists.Corrections, QStringLiteral("KT_BtView"), watch);
        }));
        bytes.push_back(ResidentBytes());
    }
    const auto tenth = static_cast<std::ptrdiff_t>(turns / 10);
    std::printf("{\"firstTurns\": %.3f, \"lastTurns\": %.3f, \"growthOfFirst\": %.3f, \"growthOfOthers\": %.3f}\n",
        Median({ times.begin(), times.begin() + tenth }), Median({ times.end() - tenth, times.end() }),
        (bytes[static_cast<size_t>(tenth) - 1] - bytes.front()) / kMebibyte,
        (bytes.back() - bytes[static_cast<size_t>(tenth) - 1]) / kMebibyte);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2 && argc != 3)
        return 2;
    ComposeProgram();
    TheMessagePresenter().Implement<YesPresenter>();
    const QString programFolder = QApplication::applicationDirPath() + QLatin1Char('/');
    for (const Module module : kModulesCheckedAtStart) {
        if (!ModuleLoad(module, programFolder))
            return 1;
    }
    ReadInstrumentLimits();
    MfMain frame(programFolder);
    frame.BuildTexts();
    frame.ShowFrame();
    Program().Started = true;
    if (!QTest::qWaitForWindowActive(&frame))
        return 1;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString saved = folder + QStringLiteral("/saved");
    if (!QDir().mkpath(saved))
        return 1;
    const TableLists lists = WriteTableLists(folder);
    if (argc == 3)
        MeasureTurns(lists, std::max(QByteArray(argv[2]).toInt(), 10));
    else
        MeasureAll(lists, saved, &frame);
    return 0;
}
