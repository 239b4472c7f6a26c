#include "closed/tvswp/markers.h"

#include <algorithm>
#include <cmath>

namespace tvswp {

namespace {

/// Distance of a point from the edge of a shape around the origin, negative inside it. The shapes have about the same
/// area.
double DistanceFrom(Marker shape, double radius, double x, double y)
{
    constexpr double kSquare = 0.9; // half a side
    constexpr double kTriangle = 0.8; // distance of the sides from the centre
    constexpr double kHalfRoot3 = 0.8660254037844386;
    switch (shape) {
    case Marker::Square:
        return std::max(std::abs(x), std::abs(y)) - kSquare * radius;
    case Marker::Triangle:
        return std::max(y, kHalfRoot3 * std::abs(x) - 0.5 * y) - kTriangle * radius;
    default:
        return std::sqrt(x * x + y * y) - radius;
    }
}

void PaintShape(const Canvas& canvas, Point centre, const MarkerStyle& style)
{
    const double reach = 2 * style.Radius + style.Outline + 1; // the corners of the triangle
    const int firstColumn = static_cast<int>(std::floor(centre.X - reach));
    const int endColumn = static_cast<int>(std::ceil(centre.X + reach));
    const int firstRow = static_cast<int>(std::floor(centre.Y - reach));
    const int endRow = static_cast<int>(std::ceil(centre.Y + reach));
    for (int row = firstRow; row < endRow; ++row) {
        for (int column = firstColumn; column < endColumn; ++column) {
            const double distance =
                DistanceFrom(style.Shape, style.Radius, column + 0.5 - centre.X, row + 0.5 - centre.Y);
            if (distance >= 0.5 + style.Outline)
                continue;
            canvas.Blend(column, row, style.OutlineColour, 0.5 + style.Outline - distance);
            canvas.Blend(column, row, style.Colour, 0.5 - distance);
        }
    }
}

/// The y of the curve at an x within it.
double HeightAt(const std::vector<Point>& line, double x)
{
    const auto after = std::upper_bound(
        line.begin() + 1, line.end() - 1, x, [](double value, const Point& point) { return value < point.X; });
    const Point& from = *(after - 1);
    return from.Y + (after->Y - from.Y) * (x - from.X) / (after->X - from.X);
}

} // namespace

void PaintMarkers(const Canvas& canvas, const std::vector<Point>& line, const MarkerStyle& style)
{
    const int count = std::max(static_cast<int>(canvas.Width() / style.Distance), 1);
    const double pitch = static_cast<double>(canvas.Width()) / count;
    const double shift = count == 1 ? 0 : (static_cast<int>(style.Shape) - 1) * pitch / TVSWP_TRACES;
    for (int at = 0; at < count; ++at) {
        const double x = (at + 0.5) * pitch + shift;
        PaintShape(canvas, { x, HeightAt(line, x) }, style);
    }
}

} // namespace tvswp
