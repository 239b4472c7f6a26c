// bench/diagram_bench.cpp: three traces of 630 samples drawn at 1600 by 1000, compared with antialiased polylines of
// the same points; from a table of 1000 rows to its painted diagram, compared with a bare dialog that draws as many
// lines and labels. Prints one JSON object in ms: medians.
#include "app/frame/MfMain.h"
#include "app/state/project.h"
#include "bench/paintWatch.h"
#include "bench/timing.h"
#include "closed/loader.h"
#include "composition.h"
#include "screen/diagram/datasetViewer.h"

#include <QApplication>
#include <QPainter>
#include <QtTest/QTest>

#include <cmath>
#include <cstdio>
#include <random>

namespace tarvik {

namespace {

constexpr QSize kPicture(1600, 1000);
constexpr int kRounds = 51;
constexpr int kRows = 1000;
/// A table of three series: rising curves with ripples and, if wanted, noise over the whole range.
MultiTraceInput Table(bool isNoise)
{
    std::mt19937 random(1);
    MultiTraceInput input;
    input.Name = QStringLiteral("Biconical 30-1000");
    input.XUnit = UnitCode::Hertz;
    input.YUnit = UnitCode::DecibelPerMetre;
    input.PointCount = kRows;
    input.SeriesCount = kMaxTraceSeries;
    for (int row = 0; row < kRows; ++row) {
        const double part = static_cast<double>(row) / (kRows - 1);
        MultiTracePoint& point = input.Points[static_cast<size_t>(row)];
        point.X = 30e6 + 970e6 * part;
        for (int series = 0; series < kMaxTraceSeries; ++series)
            point.Y[series] = isNoise ? static_cast<double>(random() % 1000)
                                      : 8 + 5 * series + 12 * part + 3 * std::sin(30 * part + series);
    }
    return input;
}

/// Medians for the module and, unless it is noise, which takes it minutes, for the painter.
std::pair<double, double> BenchTraces(bool isNoise)
{
    const OwnedTraces traces = *ConvertTraces(Table(isNoise));
    const std::vector<QPolygonF> lines = LinesOf(traces.Set, kPicture);
    QImage picture(kPicture, QImage::Format_RGB32);
    const TvSwpContext context{ reinterpret_cast<uint32_t*>(picture.bits()), kPicture.width(), kPicture.height(),
        kPicture.width(), 0, 0, kPicture.width(), kPicture.height(), 1 };
    std::vector<double> own;
    std::vector<double> bare;
    for (int round = 0; round < kRounds; ++round) {
        picture.fill(Qt::lightGray);
        own.push_back(MsOf([&] {
            if (TvSwp().SwpDrawTraces(&context, &traces.Set, &TraceBlockOf) != 0)
                qFatal("not drawn");
        }));
        picture.fill(Qt::lightGray);
        bare.push_back(MsOf([&] {
            QPainter painter(&picture);
            if (!isNoise)
                DrawLines(painter, lines);
        }));
    }
    return { Median(own), Median(bare) };
}

std::pair<double, double> BenchView(QWidget* frame)
{
    const MultiTraceInput input = Table(false);
    const OwnedTraces traces = *ConvertTraces(input);
    PaintWatch own(QStringLiteral("PbGraph"));
    PaintWatch bare(QStringLiteral("BareDiagram"));
    std::vector<double> ownMs;
    std::vector<double> bareMs;
    for (int round = 0; round < kRounds; ++round) {
        ownMs.push_back(own.Ms([&] {
            if (!DatasetShow(input))
                qFatal("not shown");
        }));
        bareMs.push_back(bare.Ms([&] { ShowBareDiagram(traces.Set, frame); }));
    }
    return { Median(ownMs), Median(bareMs) };
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    const QString folder = QApplication::applicationDirPath() + QLatin1Char('/');
    for (const Module module :
        { Module::General, Module::Language, Module::Channel, Module::ListStore, Module::Traces }) {
        if (!ModuleLoad(module, folder))
            return 1;
    }
    MfMain frame(folder);
    frame.BuildTexts();
    frame.ShowFrame();
    Program().Started = true;
    if (!QTest::qWaitForWindowActive(&frame))
        return 1;
    const auto [traces, bareTraces] = BenchTraces(false);
    const double noise = BenchTraces(true).first;
    const auto [view, bareView] = BenchView(&frame);
    std::printf("{\"traces\": %.3f, \"bareTraces\": %.3f, \"noise\": %.3f, \"view\": %.3f, \"bareView\": %.3f}\n",
        traces, bareTraces, noise, view, bareView);
    return 0;
}
