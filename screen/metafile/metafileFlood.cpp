#include "screen/metafile/metafileFlood.h"

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

/// Cost of examining a pixel and of painting a run, besides the painted pixels.
constexpr qint64 kPixelCheckCost = 4;
constexpr qint64 kRunCost = 64;

/// The 4-connected pixels around a seed.
class Flood {
public:
    /// Pixels within the region are open if they have the colour (0xffRRGGBB) or, without `ofThisColour`, if they
    /// have another one.
    Flood(const QImage& picture, const QRegion& within, QRgb colour, bool ofThisColour)
        : open_(picture.size(), QImage::Format_Grayscale8)
    {
        open_.fill(0);
        for (const QRect& part : within& picture.rect()) {
            for (int y = part.top(); y <= part.bottom(); ++y) {
                const auto* const from = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
                uchar* const to = open_.scanLine(y);
                for (int x = part.left(); x <= part.right(); ++x)
                    to[x] = ((from[x] | 0xFF000000) == colour) == ofThisColour ? 1 : 0;
            }
        }
    }

    QVector<QRect> LinesFrom(QPoint start)
    {
        QVector<QRect> lines;
        QVector<QPoint> waiting{ start };
        while (!waiting.isEmpty()) {
            const QPoint at = waiting.takeLast();
            if (!IsOpen(at.x(), at.y()))
                continue;
            const QRect line = Take(at);
            lines.append(line);
            AddStarts(line, line.y() - 1, waiting);
            AddStarts(line, line.y() + 1, waiting);
        }
        return lines;
    }

private:
    [[nodiscard]] bool IsOpen(int x, int y) const
    {
        return open_.valid(x, y) && open_.constScanLine(y)[x] != 0;
    }

    /// Closes and returns the run of open pixels that contains one.
    QRect Take(QPoint at)
    {
        int left = at.x();
        int right = at.x();
        while (IsOpen(left - 1, at.y()))
            --left;
        while (IsOpen(right + 1, at.y()))
            ++right;
        std::fill_n(open_.scanLine(at.y()) + left, right - left + 1, uchar{ 0 });
        return { left, at.y(), right - left + 1, 1 };
    }

    /// Adds one point of each run of open pixels adjacent to a line.
    void AddStarts(const QRect& line, int y, QVector<QPoint>& waiting) const
    {
        for (int x = line.left(); x <= line.right(); ++x) {
            if (IsOpen(x, y) && (x == line.left() || !IsOpen(x - 1, y)))
                waiting.append({ x, y });
        }
    }

    QImage open_;
};

bool Fill(MetafileContext& context, QPoint logical, MetafileColour colour, bool ofThisColour)
{
    const MetafileState& state = context.State;
    const QRect picture = context.Picture().rect();
    if (!context.Spend(kPixelCheckCost * picture.width() * picture.height()))
        return false;
    const QRegion within = state.Clip.value_or(QRegion(picture));
    Flood flood(context.Picture(), within, context.Colour(colour).rgb(), ofThisColour);
    const QVector<QRect> lines = flood.LinesFrom(state.Mapping.ToDevice(logical));
    QPainter& painter = context.Painter();
    painter.setCompositionMode(MetafileContext::ModeOf(state.Rop2));
    const QBrush brush = context.BrushToPaint(*state.Brush);
    for (const QRect& line : lines)
        painter.fillRect(line, brush);
    return context.Spend(kRunCost * lines.size());
}

/// border colour, y, x
bool FloodFill(MetafileContext& context, const MetafileParameters& p)
{
    return Fill(context, QPoint(p.Signed(3), p.Signed(2)), p.Long(0), false);
}

/// 1 for the fill colour, 0 for the border colour; colour, y, x
bool ExtFloodFill(MetafileContext& context, const MetafileParameters& p)
{
    return Fill(context, QPoint(p.Signed(4), p.Signed(3)), p.Long(1), p.Word(0) == 1);
}

constexpr MetafileHandler kHandlers[] = {
    { 0x0419, 4, FloodFill },
    { 0x0548, 5, ExtFloodFill },
};

} // namespace

std::span<const MetafileHandler> MetafileFloods()
{
    return kHandlers;
}

} // namespace tarvik
