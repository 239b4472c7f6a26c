#include "closed/tvswp/stroke.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

namespace tvswp {

namespace {

/// Vertical slices of a column of pixels.
constexpr int kSlices = 4;

/// Columns painted together: their pixels of one row share a cache line.
constexpr int kTileColumns = 16;

/// Columns that are skipped together where nothing is covered.
constexpr int kGroupColumns = 4;

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
        const double place = std::clamp(x * kSlices - 0.5, 0.0, static_cast<double>(count));
        const auto whole = static_cast<int>(place);
        return whole + (static_cast<double>(whole) < place ? 1 : 0);
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

/// Adds an edge of an interval to the changes of a column: from `row` on, with its fraction, the slice is covered, or
/// with a negative sign no longer.
void AddEdge(int16_t* changes, float row, int sign)
{
    constexpr int kWhole = kWholeCoverage / kSlices;
    const auto whole = static_cast<int>(row); // not negative
    const auto halves = static_cast<int>((row - static_cast<float>(whole)) * (2 * kWhole));
    const int fraction = (halves + 1) / 2;
    int16_t* change = changes + static_cast<ptrdiff_t>(whole) * kTileColumns;
    change[0] = static_cast<int16_t>(change[0] + sign * (kWhole - fraction));
    change[kTileColumns] = static_cast<int16_t>(change[kTileColumns] + sign * fraction);
}

/// Covered parts of the pixels of one row of a tile.
using TileCoverage = std::array<int16_t, kTileColumns>;

/// Goes on to the next row, and clears its changes.
void Advance(TileCoverage& covered, int16_t* changes)
{
    for (size_t at = 0; at < kTileColumns; ++at)
        covered[at] = static_cast<int16_t>(covered[at] + changes[at]);
    std::memset(changes, 0, sizeof covered);
}

void PaintRow(uint32_t* pixels, uint32_t colour, const TileCoverage& covered, int columns)
{
    for (int group = 0; group < columns; group += kGroupColumns) {
        uint64_t parts = 0;
        static_assert(sizeof parts == kGroupColumns * sizeof(int16_t));
        std::memcpy(&parts, &covered[static_cast<size_t>(group)], sizeof parts);
        const int end = parts == 0 ? group : std::min(group + kGroupColumns, columns);
        for (int at = group; at < end; ++at) {
            if (const auto part = static_cast<uint32_t>(covered[static_cast<size_t>(at)]); part != 0)
                pixels[at] = Mixed(colour, pixels[at], part);
        }
    }
}

} // namespace

StrokeScratch::StrokeScratch(const Canvas& canvas)
    : changes_(static_cast<size_t>(canvas.EndRow() - canvas.FirstRow() + kSpareRows) * kTileColumns)
{
}

/// The edge of the area consists of the tangents along the segments and, on the outer side of each bend and at both
/// ends, arcs between the tangents.
Stroke::Stroke(const std::vector<Point>& line, double radius, const Canvas& canvas)
    : tops_(static_cast<size_t>(canvas.Width()) * kSlices, kNowhere)
    , bottoms_(tops_.size(), -kNowhere)
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

void Stroke::Paint(const Canvas& canvas, uint32_t colour, StrokeScratch& scratch) const
{
    const int rows = canvas.EndRow() - canvas.FirstRow();
    for (int tile = canvas.FirstColumn(); tile < canvas.EndColumn(); tile += kTileColumns) {
        const int columns = std::min(kTileColumns, canvas.EndColumn() - tile);
        const Rows changed = AddEdges(canvas, tile, columns, scratch);
        TileCoverage covered{};
        for (int row = changed.First; row < changed.End; ++row) {
            Advance(covered, &scratch.changes_[static_cast<size_t>(row) * kTileColumns]);
            if (row < rows)
                PaintRow(canvas.At(tile, canvas.FirstRow() + row), colour, covered, columns);
        }
    }
}

/// Adds the intervals of a tile to the changes; returns the rows that have any.
Stroke::Rows Stroke::AddEdges(const Canvas& canvas, int tile, int columns, StrokeScratch& scratch) const
{
    const int rows = canvas.EndRow() - canvas.FirstRow();
    const auto limited = [&](float y) {
        return std::clamp(y - static_cast<float>(canvas.FirstRow()), 0.0F, static_cast<float>(rows));
    };
    Rows changed{ rows, 0 };
    for (int at = 0; at < columns * kSlices; ++at) {
        const auto slice = static_cast<size_t>(tile) * kSlices + static_cast<size_t>(at);
        const float top = limited(tops_[slice]);
        const float bottom = limited(bottoms_[slice]);
        if (top >= bottom)
            continue;
        int16_t* changes = &scratch.changes_[static_cast<size_t>(at / kSlices)];
        AddEdge(changes, top, 1);
        AddEdge(changes, bottom, -1);
        changed.First = std::min(changed.First, static_cast<int>(top));
        changed.End = std::max(changed.End, static_cast<int>(bottom) + kSpareRows);
    }
    return changed;
}

} // namespace tvswp
