#include "screen/diagram/diagram.h"

#include "closed/loader.h"
#include "screen/diagram/diagramLayout.h"

#include <QPainter>

#include <utility>

namespace tarvik {

namespace {

constexpr quint32 kInk = 0x000000;
constexpr quint32 kWhite = 0xFFFFFF;
constexpr quint32 kPrintedGrid = 0xC8C8C8;

/// The colours of a palette. 0x00BBGGRR.
struct DiagramColours {
    quint32 Paper;
    quint32 Grid;
    bool BlackTraces;
};

DiagramColours ColoursOf(const DiagramStyle& style, PaletteNumber palette)
{
    if (palette == PaletteNumber::BlackAndWhite)
        return { kWhite, kPrintedGrid, true };
    return { style.Background, style.Label, false };
}

void PaintGrid(QPainter& painter, const DiagramLayout& layout, const DiagramStyle& style, const QColor& colour)
{
    const QRect& plot = layout.Plot;
    const int width = layout.LineWidth;
    painter.setClipRect(plot);
    if (style.GridX) {
        for (const int column : layout.Columns)
            painter.fillRect(column - width / 2, plot.top(), width, plot.height(), colour);
    }
    if (style.GridY) {
        for (const int row : layout.Rows)
            painter.fillRect(plot.left(), row - width / 2, plot.width(), width, colour);
    }
    painter.setClipping(false);
}

void PaintFrame(QPainter& painter, const DiagramLayout& layout)
{
    const int width = layout.LineWidth;
    const QRect outer = layout.Plot.adjusted(-width, -width, width, width);
    const QColor ink = ColorOf(kInk);
    painter.fillRect(outer.left(), outer.top(), outer.width(), width, ink);
    painter.fillRect(outer.left(), layout.Plot.bottom() + 1, outer.width(), width, ink);
    painter.fillRect(outer.left(), outer.top(), width, outer.height(), ink);
    painter.fillRect(layout.Plot.right() + 1, outer.top(), width, outer.height(), ink);
}

void PaintLabels(QPainter& painter, const DiagramLayout& layout)
{
    painter.setFont(layout.Font);
    painter.setPen(ColorOf(kInk));
    for (const DiagramLabel& label : layout.Labels)
        painter.drawText(
            label.Place, static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextSingleLine), label.Text);
}

/// No painter is active on the picture.
void PaintTraces(QImage& picture, const QRect& clip, const TraceSet& traces, double scale)
{
    if (!ModuleIsBound(Module::Traces))
        return;
    const TvSwpContext context{ reinterpret_cast<uint32_t*>(picture.bits()), picture.width(), picture.height(),
        static_cast<int32_t>(picture.bytesPerLine() / 4), clip.left(), clip.top(), clip.right() + 1, clip.bottom() + 1,
        scale };
    TvSwp().SwpDrawTraces(&context, &traces, &TraceBlockOf);
}

/// Level pieces of the traces, drawn like the traces themselves, so that the legend shows what the module of traces
/// makes of each.
void PaintSamples(QImage& picture, const DiagramLayout& layout, const TraceSet& traces, double scale)
{
    const std::vector<double> level(kTraceSamples, 0.5);
    for (const DiagramSample& sample : layout.Samples) {
        OwnedTraces piece;
        piece.Set.YTop = 1;
        piece.Set.SeriesCount = 1;
        Trace& trace = piece.Set.Traces[sample.Trace];
        trace.Colour = traces.Traces[sample.Trace].Colour;
        if (TraceFill(trace, level))
            PaintTraces(picture, sample.Place, piece.Set, scale);
    }
}

} // namespace

Diagram::Diagram(const MultiTraceInput& input, OwnedTraces traces)
    : Content(DiagramContentOf(input, traces.Set))
    , Traces(std::move(traces))
{
    PalNr = TheColorDefaults().PalNr;
}

QImage Diagram::Draw(QSize devicePixels, double scale) const
{
    return DrawIn(PalNr, devicePixels, scale);
}

QImage Diagram::ForPage(QSize devicePixels, double scale, bool blackAndWhite) const
{
    return DrawIn(blackAndWhite ? PaletteNumber::BlackAndWhite : PalNr, devicePixels, scale);
}

QImage Diagram::DrawIn(PaletteNumber palette, QSize devicePixels, double scale) const
{
    QImage picture(devicePixels, QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    const DiagramColours colours = ColoursOf(Style, palette);
    const DiagramLayout layout = LayOutDiagram(DiagramTextOf(Content), devicePixels, scale);
    TraceSet traces = Traces.Set;
    if (colours.BlackTraces) {
        for (Trace& trace : traces.Traces)
            trace.Colour = kInk;
    }
    picture.fill(ColorOf(colours.Paper));
    {
        QPainter painter(&picture);
        PaintGrid(painter, layout, Style, ColorOf(colours.Grid));
    }
    PaintTraces(picture, layout.Plot, traces, scale);
    PaintSamples(picture, layout, traces, scale);
    QPainter painter(&picture);
    PaintFrame(painter, layout);
    PaintLabels(painter, layout);
    return picture;
}

std::unique_ptr<Diagram> DiagramOf(const MultiTraceInput& input)
{
    std::optional<OwnedTraces> traces = ConvertTraces(input);
    return traces ? std::make_unique<Diagram>(input, std::move(*traces)) : nullptr;
}

} // namespace tarvik
