// Painting of diagrams.
#include "closed/loader.h"
#include "screen/diagram/diagramLayout.h"
#include "tests/screen/diagram/diagram_fixture.h"
#include "tests/support/fixture.h"
#include "tests/support/unbindModule.h"

#include <cstring>

namespace tarvik {

namespace {

constexpr QSize kSize(792, 560);
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kYellow = 0xFFF7F310;
constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kPaper = 0xFFCECBCE;
constexpr QRgb kGrid = 0xFFF7F3F7;

class Diagrams : public ProgramTest {
protected:
    static DiagramLayout LayoutOf(const Diagram& diagram, QSize size = kSize, double scale = 1)
    {
        return LayOutDiagram(DiagramTextOf(diagram.Content), size, scale);
    }

    static int Count(const QImage& picture, const QRect& place, QRgb colour)
    {
        int count = 0;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x)
                count += picture.pixel(x, y) == colour ? 1 : 0;
        }
        return count;
    }

    static int Count(const QImage& picture, QRgb colour)
    {
        return Count(picture, picture.rect(), colour);
    }
};

} // namespace

TEST_F(Diagrams, HaveTheGivenStyle)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput());
    EXPECT_TRUE(diagram->Style.GridX);
    EXPECT_TRUE(diagram->Style.GridY);
    EXPECT_EQ(diagram->Style.Background, 0xCECBCEU);
    EXPECT_EQ(diagram->Style.Label, 0xF7F3F7U);
    EXPECT_EQ(diagram->Style.Lines, (std::array<quint32, 5>{ 0xF7F300, 0x73E3FF, 0x00FF00, 0x0000FF, 0xFF0000 }));
    EXPECT_EQ(diagram->Style.PictureHeight, 24);
}

TEST_F(Diagrams, SeeAllOfTheirData)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput());
    const TraceSet& set = diagram->Traces.Set;
    EXPECT_EQ(diagram->Content.View.XFirst, 30e6);
    EXPECT_EQ(diagram->Content.View.XLast, 1000e6);
    EXPECT_EQ(diagram->Content.View.XStep, 970e6 / 631);
    EXPECT_EQ(diagram->Content.View.YBottom, +set.YBottom);
    EXPECT_EQ(diagram->Content.View.YTop, +set.YTop);
    EXPECT_EQ(diagram->Content.View.YStep, +set.YStep);
    EXPECT_FALSE(diagram->Content.View.Flags[0]);
    EXPECT_FALSE(diagram->Content.View.Flags[1]);
}

TEST_F(Diagrams, ThreeSeriesShowInTheirColours)
{
    const QImage picture = DiagramOf(KfactorInput(200, 3))->Draw(kSize, 1);
    ASSERT_EQ(picture.size(), kSize);
    EXPECT_EQ(picture.pixel(0, 0), kPaper);
    for (const QRgb colour : { kRed, kYellow, kGreen })
        EXPECT_GT(Count(picture, colour), 700);
}

TEST_F(Diagrams, TracesAreInPlotAndLegendOnly)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput(200, 3));
    const DiagramLayout layout = LayoutOf(*diagram);
    QImage picture = diagram->Draw(kSize, 1);
    ASSERT_EQ(layout.Samples.size(), 3);
    const std::array colours{ kRed, kYellow, kGreen };
    for (const DiagramSample& sample : layout.Samples) {
        const QRgb own = colours[static_cast<size_t>(sample.Trace)];
        EXPECT_GT(Count(picture, sample.Place, own), 2 * sample.Place.width()) << "a line and its marker";
        for (const QRgb other : colours)
            EXPECT_TRUE(other == own || Count(picture, sample.Place, other) == 0);
    }
    int inside = 0;
    for (const QRgb colour : colours) {
        inside += Count(picture, layout.Plot, colour);
        for (const DiagramSample& sample : layout.Samples)
            inside += Count(picture, sample.Place, colour);
        inside -= Count(picture, colour);
    }
    EXPECT_EQ(inside, 0);
}

TEST_F(Diagrams, TraceReachesBothSidesOfTheFrame)
{
    MultiTraceInput input = KfactorInput(2, 1);
    input.Points[0].Y[0] = 0;
    input.Points[1].Y[0] = 10;
    const std::unique_ptr<Diagram> diagram = DiagramOf(input);
    const QRect plot = LayoutOf(*diagram).Plot;
    const QImage picture = diagram->Draw(kSize, 1);
    EXPECT_GT(Count(picture, QRect(plot.left(), plot.bottom() - 3, 3, 4), kRed), 0);
    EXPECT_GT(Count(picture, QRect(plot.right() - 2, plot.top(), 3, 4), kRed), 0);
}

TEST_F(Diagrams, GridHasNineLinesEachWay)
{
    std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput(2, 1));
    const DiagramLayout layout = LayoutOf(*diagram);
    const auto linesAlong = [&](bool across) {
        const QImage picture = diagram->Draw(kSize, 1);
        int lines = 0;
        const QRect& plot = layout.Plot;
        for (int at = 0; at < (across ? plot.height() : plot.width()); ++at) {
            const QRect line = across ? QRect(plot.left(), plot.top() + at, plot.width(), 1)
                                      : QRect(plot.left() + at, plot.top(), 1, plot.height());
            lines += Count(picture, line, kGrid) > line.width() * line.height() * 9 / 10 ? 1 : 0;
        }
        return lines;
    };
    EXPECT_EQ(linesAlong(true), 9);
    EXPECT_EQ(linesAlong(false), 9);
    diagram->Style.GridX = false;
    EXPECT_EQ(linesAlong(true), 9);
    EXPECT_EQ(linesAlong(false), 0);
    diagram->Style.GridX = true;
    diagram->Style.GridY = false;
    EXPECT_EQ(linesAlong(true), 0);
    EXPECT_EQ(linesAlong(false), 9);
}

TEST_F(Diagrams, FrameIsAroundThePlot)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput());
    for (const int scale : { 1, 2 }) {
        const QRect plot = LayoutOf(*diagram, kSize * scale, scale).Plot;
        const QImage picture = diagram->Draw(kSize * scale, scale);
        constexpr QRgb kBlack = 0xFF000000;
        for (int width = 1; width <= scale; ++width) {
            const QRect frame = plot.adjusted(-width, -width, width, width);
            EXPECT_EQ(Count(picture, QRect(frame.left(), frame.top(), frame.width(), 1), kBlack), frame.width());
            EXPECT_EQ(Count(picture, QRect(frame.left(), frame.bottom(), frame.width(), 1), kBlack), frame.width());
            EXPECT_EQ(Count(picture, QRect(frame.left(), frame.top(), 1, frame.height()), kBlack), frame.height());
            EXPECT_EQ(Count(picture, QRect(frame.right(), frame.top(), 1, frame.height()), kBlack), frame.height());
        }
    }
}

TEST_F(Diagrams, LabelsAreDrawnInBlack)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput());
    const QImage picture = diagram->Draw(kSize, 1);
    for (const DiagramLabel& label : LayoutOf(*diagram).Labels) {
        int darkest = 255;
        for (int y = label.Place.top(); y <= label.Place.bottom(); ++y) {
            for (int x = label.Place.left(); x <= label.Place.right(); ++x)
                darkest = std::min(darkest, qGray(picture.pixel(x, y)));
        }
        EXPECT_LT(darkest, 110) << label.Text.toStdString();
    }
}

TEST_F(Diagrams, BlackAndWhiteIsBlackOnWhite)
{
    std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput(200, 3));
    diagram->PalNr = PaletteNumber::BlackAndWhite;
    const QImage picture = diagram->Draw(kSize, 1);
    EXPECT_EQ(picture.pixel(0, 0), 0xFFFFFFFF);
    EXPECT_GT(Count(picture, 0xFF000000), 2000);
    EXPECT_GT(Count(picture, 0xFFC8C8C8), 2000) << "the grid";
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ASSERT_TRUE(qIsGray(picture.pixel(x, y)));
    }
    const DiagramLayout layout = LayoutOf(*diagram);
    EXPECT_NE(picture.copy(layout.Samples[0].Place), picture.copy(layout.Samples[1].Place)) << "markers differ";
    EXPECT_NE(picture.copy(layout.Samples[1].Place), picture.copy(layout.Samples[2].Place));
    diagram->PalNr = PaletteNumber::Colour;
    EXPECT_GT(Count(diagram->Draw(kSize, 1), kRed), 700) << "the colours are not lost";
}

TEST_F(Diagrams, StartInThePaletteOfNewDocuments)
{
    EXPECT_EQ(DiagramOf(KfactorInput())->PalNr, PaletteNumber::Colour);
    TheColorDefaults().PalNr = PaletteNumber::BlackAndWhite;
    EXPECT_EQ(DiagramOf(KfactorInput())->PalNr, PaletteNumber::BlackAndWhite);
}

TEST_F(Diagrams, HaveNoTracesWithoutTheirModule)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput());
    UnbindModule(Module::Traces);
    const QImage picture = diagram->Draw(kSize, 1);
    EXPECT_EQ(Count(picture, kRed), 0);
    EXPECT_EQ(picture.pixel(0, 0), kPaper);
}

TEST_F(Diagrams, DrawAtAnySize)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput(200, 3));
    for (const QSize size : { QSize(1, 1), QSize(20, 3), QSize(3, 200), QSize(320, 200), QSize(2560, 1440) })
        EXPECT_EQ(diagram->Draw(size, 1).size(), size);
    EXPECT_TRUE(diagram->Draw({ 0, 5 }, 1).isNull());
}

TEST_F(Diagrams, ReleaseTheirBlocks)
{
    std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput());
    const uint32_t handle = diagram->Traces.Set.Traces[0].Handle;
    uint32_t size = 0;
    EXPECT_NE(TraceBlockOf(handle, &size), nullptr);
    diagram->Draw(kSize, 1); // the legend has blocks of its own
    diagram.reset();
    for (uint32_t each = 1; each < handle + 10; ++each)
        EXPECT_EQ(TraceBlockOf(each, &size), nullptr);
}

TEST_F(Diagrams, ModuleOfTracesDrawsIntoThePlot)
{
    static QList<TvSwpContext> contexts;
    static TraceSet drawn;
    contexts.clear();
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput(200, 2));
    TvSwp().SwpDrawTraces = [](const TvSwpContext* context, const TraceSet* traces, TvSwpBlock block) -> int16_t {
        if (contexts.isEmpty())
            drawn = *traces;
        contexts.append(*context);
        for (const Trace& trace : traces->Traces) {
            uint32_t size = 0;
            EXPECT_EQ(block(trace.Handle, &size) != nullptr, trace.InUse == 1);
            EXPECT_EQ(size, trace.InUse == 1 ? 5040U : 0U);
        }
        return 0;
    };
    diagram->Draw(2 * kSize, 2);
    const DiagramLayout layout = LayoutOf(*diagram, 2 * kSize, 2);
    ASSERT_EQ(contexts.size(), 3) << "the plot, then a sample of each trace";
    const TvSwpContext& plot = contexts.front();
    EXPECT_EQ(QSize(plot.Width, plot.Height), 2 * kSize);
    EXPECT_EQ(QRect(plot.Left, plot.Top, plot.Right - plot.Left, plot.Bottom - plot.Top), layout.Plot);
    EXPECT_EQ(plot.Scale, 2);
    EXPECT_EQ(std::memcmp(&drawn, &diagram->Traces.Set, sizeof drawn), 0);
    EXPECT_EQ(QPoint(contexts[1].Left, contexts[1].Top), layout.Samples[0].Place.topLeft());
}

TEST_F(Diagrams, HaveNoTracesIfTheirModuleFails)
{
    const std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput());
    TvSwp().SwpDrawTraces = [](const TvSwpContext*, const TraceSet*, TvSwpBlock) -> int16_t { return 1; };
    const QImage picture = diagram->Draw(kSize, 1);
    EXPECT_EQ(Count(picture, kRed), 0);
    EXPECT_GT(Count(picture, kGrid), 1000);
    UnbindModule(Module::Traces);
    EXPECT_EQ(picture, diagram->Draw(kSize, 1));
}

TEST_F(Diagrams, BlackAndWhiteTracesAreBlackToTheirModule)
{
    static QList<quint32> colours;
    colours.clear();
    std::unique_ptr<Diagram> diagram = DiagramOf(KfactorInput(200, 2));
    TvSwp().SwpDrawTraces = [](const TvSwpContext*, const TraceSet* traces, TvSwpBlock) -> int16_t {
        colours.append(traces->Traces[0].Colour);
        return 0;
    };
    diagram->PalNr = PaletteNumber::BlackAndWhite;
    diagram->Draw(kSize, 1);
    EXPECT_EQ(colours.front(), 0U);
    EXPECT_EQ(diagram->Traces.Set.Traces[0].Colour, 0x0000FFU);
}

} // namespace tarvik
