// closed/tvswp/stroke.h: a line of a given width along a curve that has one y for each x.
#pragma once

#include "closed/tvswp/canvas.h"

#include <cstdint>
#include <vector>

namespace tvswp {

/// A point of the curve, in pixels from the left top corner of the clip rectangle.
struct Point {
    double X = 0;
    double Y = 0;
};

/// Memory for painting strokes one after the other: the change of the covered part of a pixel from one row to the next,
/// in a tile of columns. All 0 between two strokes.
class StrokeScratch {
public:
    explicit StrokeScratch(const Canvas& canvas);

private:
    friend class Stroke;
    std::vector<int16_t> changes_;
};

/// The area within `radius` of a polyline with ascending x. At any x it is a single interval, since the polyline has no
/// gaps: so a few intervals in each column of pixels tell how much of each pixel it covers.
class Stroke {
public:
    Stroke(const std::vector<Point>& line, double radius, const Canvas& canvas);

    /// `colour` is 0xffRRGGBB. The canvas is the one of both constructors.
    void Paint(const Canvas& canvas, uint32_t colour, StrokeScratch& scratch) const;

private:
    void AddLine(Point from, Point to, double radius);
    void AddJoint(Point joint, double shiftBefore, double shiftAfter, double radius);
    struct Rows {
        int First;
        int End;
    };
    Rows AddEdges(const Canvas& canvas, int tile, int columns, StrokeScratch& scratch) const;

    /// The interval of each slice of the columns, kSlices a column, from the left edge of the clip rectangle.
    std::vector<float> tops_;
    std::vector<float> bottoms_;
};

} // namespace tvswp
