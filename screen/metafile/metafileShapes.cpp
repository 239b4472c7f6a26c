#include "screen/metafile/metafileShapes.h"

#include <QPainterPath>

#include <cmath>
#include <functional>
#include <numbers>

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

enum class Inside { Filled, Open };

using Drawing = std::function<void(QPainter&)>;

/// Draws with pen, brush and ROP2 of the state. In opaque mode the gaps of a dashed line are drawn first.
void Draw(MetafileContext& context, Inside inside, const Drawing& drawing)
{
    const MetafileState& state = context.State;
    QPainter& painter = context.Painter();
    painter.setCompositionMode(MetafileContext::ModeOf(state.Rop2));
    if (inside == Inside::Filled)
        painter.setBrush(context.BrushToPaint(*state.Brush));
    const QPen pen = context.PenToPaint();
    if (state.Opaque && pen.style() == Qt::CustomDashLine) {
        QPen gaps(context.Colour(state.BackColour), 1);
        gaps.setCapStyle(Qt::FlatCap);
        painter.setPen(gaps);
        drawing(painter);
        painter.setBrush(Qt::NoBrush);
    }
    painter.setPen(pen);
    drawing(painter);
}

/// Pixels covered by an outline between two points, the second exclusive.
QRect Outline(const QRect& pixels)
{
    return pixels.adjusted(0, 0, -1, -1);
}

/// bottom, right, top, left
QRect Corners(const MetafileContext& context, const MetafileParameters& p, int word)
{
    return context.State.Mapping.ToDevice(
        QPoint(p.Signed(word + 3), p.Signed(word + 2)), QPoint(p.Signed(word + 1), p.Signed(word)));
}

/// The outline of a closed figure, inset for a PS_INSIDEFRAME pen. Nullopt if it contains no pixel.
std::optional<QRectF> Figure(MetafileContext& context, const MetafileParameters& p, int word)
{
    const QRect pixels = Corners(context, p, word);
    if (pixels.isEmpty())
        return std::nullopt;
    QRectF outline = Outline(pixels);
    const MetafilePen& pen = *context.State.Pen;
    const double half = (std::round(context.State.Mapping.Across(pen.Width)) - 1) / 2;
    if (pen.Style == MetafilePen::Line::InsideFrame && half > 0) {
        const double across = std::min(half, outline.width() / 2);
        const double down = std::min(half, outline.height() / 2);
        outline.adjust(across, down, -across, -down);
    }
    return outline;
}

/// Maximum extent of a pen beyond its line.
int Margin(const MetafileContext& context)
{
    return 1 + static_cast<int>(context.State.Mapping.Across(context.State.Pen->Width));
}

/// Charges the area and the outline of a figure, much of which may be outside the picture.
bool SpendFigure(MetafileContext& context, const QRectF& figure)
{
    constexpr double kOutlineCost = 8;
    constexpr double kMaxOutlineCost = 1 << 20;
    const double around = std::min(kOutlineCost * (figure.width() + figure.height()), kMaxOutlineCost);
    const int margin = Margin(context);
    return context.Spend(static_cast<qint64>(around))
        && context.SpendArea(figure.toAlignedRect().adjusted(-margin, -margin, margin, margin));
}

using FigureDrawing = std::function<void(QPainter&, const QRectF&)>;

bool DrawFigure(
    MetafileContext& context, const MetafileParameters& p, int word, Inside inside, const FigureDrawing& drawing)
{
    const std::optional<QRectF> figure = Figure(context, p, word);
    if (!figure)
        return true;
    if (!SpendFigure(context, *figure))
        return false;
    Draw(context, inside, [&](QPainter& painter) { drawing(painter, *figure); });
    return true;
}

bool DrawRectangle(MetafileContext& context, const MetafileParameters& p)
{
    return DrawFigure(context, p, 0, Inside::Filled, [](QPainter& painter, const QRectF& r) { painter.drawRect(r); });
}

bool DrawEllipse(MetafileContext& context, const MetafileParameters& p)
{
    return DrawFigure(
        context, p, 0, Inside::Filled, [](QPainter& painter, const QRectF& r) { painter.drawEllipse(r); });
}

/// Height and width of the corner ellipses, then the figure.
bool DrawRoundRect(MetafileContext& context, const MetafileParameters& p)
{
    const double down = context.State.Mapping.Down(p.Signed(0)) / 2;
    const double across = context.State.Mapping.Across(p.Signed(1)) / 2;
    return DrawFigure(context, p, 2, Inside::Filled,
        [=](QPainter& painter, const QRectF& r) { painter.drawRoundedRect(r, across, down); });
}

/// Angle in degrees, counter-clockwise from the right, of the ray to a point.
double AngleOf(QPoint point, const QRectF& ellipse)
{
    const double x = (point.x() - ellipse.center().x()) / std::max(ellipse.width(), 1.0);
    const double y = (ellipse.center().y() - point.y()) / std::max(ellipse.height(), 1.0);
    return std::atan2(y, x) * 180 / std::numbers::pi;
}

struct ArcAngles {
    int Start = 0; ///< 1/16 degrees, as in QPainter
    int Span = 0; ///< counter-clockwise; a full turn if both ends coincide
};

/// End and start point of the arc, y before x, then the figure.
ArcAngles AnglesOf(const MetafileContext& context, const MetafileParameters& p, const QRectF& figure)
{
    constexpr int kTurn = 360 * 16;
    const MetafileMapping& mapping = context.State.Mapping;
    const double start = AngleOf(mapping.ToDevice(QPoint(p.Signed(3), p.Signed(2))), figure);
    const double end = AngleOf(mapping.ToDevice(QPoint(p.Signed(1), p.Signed(0))), figure);
    ArcAngles angles{ static_cast<int>(std::lround(start * 16)), static_cast<int>(std::lround((end - start) * 16)) };
    if (angles.Span <= 0)
        angles.Span += kTurn;
    return angles;
}

using ArcDrawing = void (QPainter::*)(const QRectF&, int, int);

template <ArcDrawing Part, Inside Fill>
bool DrawArc(MetafileContext& context, const MetafileParameters& p)
{
    return DrawFigure(context, p, 4, Fill, [&](QPainter& painter, const QRectF& r) {
        const ArcAngles angles = AnglesOf(context, p, r);
        (painter.*Part)(r, angles.Start, angles.Span);
    });
}

/// `count` points, x before y, starting at a word.
QPolygon Points(const MetafileContext& context, const MetafileParameters& p, int word, int count)
{
    QPolygon points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.append(context.State.Mapping.ToDevice(QPoint(p.Signed(word + 2 * i), p.Signed(word + 2 * i + 1))));
    return points;
}

/// Cost per line of pixels that an edge crosses. Thin lines are cheap; filling, dashes and wide pens sort and join
/// the crossings.
qint64 CrossingCost(const MetafileContext& context, Inside inside)
{
    constexpr qint64 kOfThinLine = 4;
    constexpr qint64 kOfAnother = 128;
    const QPen pen = context.PenToPaint();
    const bool isThin = pen.style() == Qt::NoPen || (pen.style() == Qt::SolidLine && pen.width() == 1);
    return inside == Inside::Open && isThin ? kOfThinLine : kOfAnother;
}

/// Charges the area, and for each edge the pixels along it.
bool SpendPoints(MetafileContext& context, const QPolygon& points, Inside inside)
{
    const QSize size = context.Picture().size();
    const int margin = Margin(context);
    const qint64 crossing = CrossingCost(context, inside);
    qint64 work = 0;
    for (qsizetype i = 1; i < points.size(); ++i) {
        const QPoint edge = points[i] - points[i - 1];
        work += crossing * std::min(std::abs(edge.y()) + margin, size.height());
        work += std::min(std::abs(edge.x()) + margin, size.width());
    }
    return context.Spend(work) && context.SpendArea(points.boundingRect().adjusted(-margin, -margin, margin, margin));
}

/// Count, then the points. Fewer than two draw nothing.
bool DrawPoints(MetafileContext& context, const MetafileParameters& p, Inside inside,
    const std::function<void(QPainter&, const QPolygon&)>& drawing)
{
    const int count = p.Word(0);
    if (p.Words() < 1 + 2 * count)
        return false;
    const QPolygon points = Points(context, p, 1, count);
    if (count < 2)
        return true;
    if (!SpendPoints(context, points, inside))
        return false;
    Draw(context, inside, [&](QPainter& painter) { drawing(painter, points); });
    return true;
}

bool DrawPolygon(MetafileContext& context, const MetafileParameters& p)
{
    const Qt::FillRule rule = context.State.FillRule;
    return DrawPoints(context, p, Inside::Filled,
        [=](QPainter& painter, const QPolygon& points) { painter.drawPolygon(points, rule); });
}

bool DrawPolyline(MetafileContext& context, const MetafileParameters& p)
{
    return DrawPoints(
        context, p, Inside::Open, [](QPainter& painter, const QPolygon& points) { painter.drawPolyline(points); });
}

/// Number of polygons, number of points of each, then all points.
bool DrawPolyPolygon(MetafileContext& context, const MetafileParameters& p)
{
    const int polygons = p.Word(0);
    int at = 1 + polygons;
    QPainterPath path;
    path.setFillRule(context.State.FillRule);
    for (int i = 0; i < polygons; ++i) {
        const int count = p.Word(1 + i);
        if (p.Words() < at + 2 * count)
            return false;
        const QPolygon points = Points(context, p, at, count);
        if (!SpendPoints(context, points, Inside::Filled))
            return false;
        path.addPolygon(points);
        path.closeSubpath();
        at += 2 * count;
    }
    Draw(context, Inside::Filled, [&](QPainter& painter) { painter.drawPath(path); });
    return true;
}

bool MoveTo(MetafileContext& context, const MetafileParameters& p)
{
    context.State.Position = QPoint(p.Signed(1), p.Signed(0));
    return true;
}

bool LineTo(MetafileContext& context, const MetafileParameters& p)
{
    const QPoint from = context.State.Position;
    context.State.Position = QPoint(p.Signed(1), p.Signed(0));
    const MetafileMapping& mapping = context.State.Mapping;
    const QPolygon points({ mapping.ToDevice(from), mapping.ToDevice(context.State.Position) });
    if (!SpendPoints(context, points, Inside::Open))
        return false;
    Draw(context, Inside::Open, [&](QPainter& painter) { painter.drawPolyline(points); });
    return true;
}

bool SetPixel(MetafileContext& context, const MetafileParameters& p)
{
    const QPoint at = context.State.Mapping.ToDevice(QPoint(p.Signed(3), p.Signed(2)));
    context.Painter().fillRect(QRect(at, QSize(1, 1)), context.Colour(p.Long(0)));
    return true;
}

constexpr MetafileHandler kHandlers[] = {
    { tvpicture::MetaLineTo, 2, LineTo },
    { tvpicture::MetaMoveTo, 2, MoveTo },
    { tvpicture::MetaPolygon, 1, DrawPolygon },
    { tvpicture::MetaPolyline, 1, DrawPolyline },
    { tvpicture::MetaPolyPolygon, 1, DrawPolyPolygon },
    { tvpicture::MetaEllipse, 4, DrawEllipse },
    { tvpicture::MetaRectangle, 4, DrawRectangle },
    { tvpicture::MetaRoundRect, 6, DrawRoundRect },
    { tvpicture::MetaArc, 8, DrawArc<&QPainter::drawArc, Inside::Open> },
    { tvpicture::MetaPie, 8, DrawArc<&QPainter::drawPie, Inside::Filled> },
    { tvpicture::MetaChord, 8, DrawArc<&QPainter::drawChord, Inside::Filled> },
    { tvpicture::MetaSetPixel, 4, SetPixel },
};

} // namespace

std::span<const MetafileHandler> MetafileShapes()
{
    return kHandlers;
}

} // namespace tarvik
