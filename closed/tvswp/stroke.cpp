#include "closed/tvswp/stroke.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tvswp {

namespace {

/// Vertical slices of a column of pixels.
constexpr int kSlices = 4;

/// Columns painted together: their pixels of one row share a cache line.
constexpr int kTileColumns = 16;

/// Rows after the last one that an interval can change.
constexpr int kSpareRows = 2;

constexpr float kNowhere = std::numeric_limits<float>::max();

/// The slices whose centres are from one x to another.
struct Slices {
    int First;
    int End;
};

Slices SlicesBetween(double fromX, double toX, size_t count)
{
    const auto limited = [count](double x) {
        return static_cast<int>(std::clamp(std::ceil(x * kSlices - 0.5), 0.0, static_cast<double>(count)));
    };
    return { limited(fromX), limited(toX) };
}

double CentreOf(int slice)
{
    return (slice + 0.5) / kSlices;
}

/// Half the height of a disc at a distance from its centre.
float HalfChord(double radius, double distance)
{
    return static_cast<float>(std::sqrt(std::max(radius * radius - distance * distance, 0.0)));
}

double SlopeOf(Point from, Point to)
{
    return (to.Y - from.Y) / (to.X - from.X);
}

/// How far to the right the upper tangent of the discs at the ends of a segment begins and ends, seen from their
/// centres. The lower tangent is as far to the left.
double ShiftOf(double slope, double radius)
{
    return radius * slope / std::sqrt(1 + slope * slope);
}

/// Adds an edge of an interval: from `row` on, with its fraction, the slice is covered, or with a negative sign no
/// longer.
void AddEdge(int* changes, float row, int sign)
{
    constexpr int kWhole = kWholeCoverage / kSlices;
    const auto whole = static_cast<int>(row); // not negative
    const auto fraction = static_cast<int>((row - static_cast<float>(whole)) * kWhole + 0.5F);
    changes[static_cast<ptrdiff_t>(whole) * kTileColumns] += sign * (kWhole - fraction);
    changes[static_cast<ptrdiff_t>(whole + 1) * kTileColumns] += sign * fraction;
}

} // namespace

/// The edge of the area consists of the tangents along the segments and, on the outer side of each bend and at both
/// ends, arcs between the tangents.
Stroke::Stroke(const std::vector<Point>& line, double radius, const Canvas& canvas)
    : tops_(static_cast<size_t>(canvas.Width()) * kSlices, kNowhere)
    , bottoms_(tops_.size(), -kNowhere)
    , changes_(static_cast<size_t>(canvas.EndRow() - canvas.FirstRow() + kSpareRows) * kTileColumns)
{
    AddJoint(line.front(), -radius, ShiftOf(SlopeOf(line[0], line[1]), radius), radius);
    AddJoint(line.front(), radius, ShiftOf(SlopeOf(line[0], line[1]), radius), radius);
    for (size_t at = 1; at < line.size(); ++at) {
        AddLine(line[at - 1], line[at], radius);
        const double shift = ShiftOf(SlopeOf(line[at - 1], line[at]), radius);
        if (at + 1 < line.size()) {
            AddJoint(line[at], shift, ShiftOf(SlopeOf(line[at], line[at + 1]), radius), radius);
        } else {
            AddJoint(line[at], shift, radius, radius);
            AddJoint(line[at], shift, -radius, radius);
        }
    }
}

/// Adds what is between the tangents of a segment.
void Stroke::AddLine(Point from, Point to, double radius)
{
    const double slope = SlopeOf(from, to);
    const double shift = ShiftOf(slope, radius);
    const double rise = radius * std::sqrt(1 + slope * slope);
    const auto height = [&](int slice) { return from.Y + slope * (CentreOf(slice) - from.X); };
    const Slices above = SlicesBetween(from.X + shift, to.X + shift, tops_.size());
    for (int slice = above.First; slice < above.End; ++slice) {
        float& top = tops_[static_cast<size_t>(slice)];
        top = std::min(top, static_cast<float>(height(slice) - rise));
    }
    const Slices below = SlicesBetween(from.X - shift, to.X - shift, tops_.size());
    for (int slice = below.First; slice < below.End; ++slice) {
        float& bottom = bottoms_[static_cast<size_t>(slice)];
        bottom = std::max(bottom, static_cast<float>(height(slice) + rise));
    }
}

/// Adds the arcs between two segments. If the line bends down, the upper tangents leave a gap between them, else the
/// lower ones.
void Stroke::AddJoint(Point joint, double shiftBefore, double shiftAfter, double radius)
{
    const Slices above = SlicesBetween(joint.X + shiftBefore, joint.X + shiftAfter, tops_.size());
    for (int slice = above.First; slice < above.End; ++slice) {
        float& top = tops_[static_cast<size_t>(slice)];
        top = std::min(top, static_cast<float>(joint.Y) - HalfChord(radius, CentreOf(slice) - joint.X));
    }
    const Slices below = SlicesBetween(joint.X - shiftBefore, joint.X - shiftAfter, tops_.size());
    for (int slice = below.First; slice < below.End; ++slice) {
        float& bottom = bottoms_[static_cast<size_t>(slice)];
        bottom = std::max(bottom, static_cast<float>(joint.Y) + HalfChord(radius, CentreOf(slice) - joint.X));
    }
}

void Stroke::Paint(const Canvas& canvas, uint32_t colour)
{
    for (int tile = canvas.FirstColumn(); tile < canvas.EndColumn(); tile += kTileColumns)
        PaintTile(canvas, colour, tile, std::min(kTileColumns, canvas.EndColumn() - tile));
}

void Stroke::PaintTile(const Canvas& canvas, uint32_t colour, int tile, int columns)
{
    const int rows = canvas.EndRow() - canvas.FirstRow();
    const auto limited = [&](float y) {
        return std::clamp(y - static_cast<float>(canvas.FirstRow()), 0.0F, static_cast<float>(rows));
    };
    int first = rows;
    int end = 0;
    for (int at = 0; at < columns * kSlices; ++at) {
        const auto slice = static_cast<size_t>(tile * kSlices + at);
        const float top = limited(tops_[slice]);
        const float bottom = limited(bottoms_[slice]);
        if (top >= bottom)
            continue;
        AddEdge(&changes_[static_cast<size_t>(at / kSlices)], top, 1);
        AddEdge(&changes_[static_cast<size_t>(at / kSlices)], bottom, -1);
        first = std::min(first, static_cast<int>(top));
        end = std::max(end, static_cast<int>(bottom) + kSpareRows);
    }

    std::array<int, kTileColumns> covered{};
    for (int row = first; row < end; ++row) {
        int* changes = &changes_[static_cast<size_t>(row) * kTileColumns];
        for (size_t at = 0; at < kTileColumns; ++at)
            covered[at] += changes[at];
        std::fill_n(changes, kTileColumns, 0);
        if (row >= rows)
            continue;
        uint32_t* pixel = canvas.At(tile, canvas.FirstRow() + row);
        for (int at = 0; at < columns; ++at) {
            const int part = covered[static_cast<size_t>(at)];
            if (part == kWholeCoverage)
                pixel[at] = colour;
            else if (part != 0)
                pixel[at] = Mixed(colour, pixel[at], static_cast<uint32_t>(part));
        }
    }
}

} // namespace tvswp
