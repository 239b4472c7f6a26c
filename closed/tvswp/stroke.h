// closed/tvswp/stroke.h: a line of a given width along a curve that has one y for each x.
#pragma once

#include "closed/tvswp/canvas.h"

#include <vector>

namespace tvswp {

/// A point of the curve, in pixels from the left top corner of the clip rectangle.
struct Point {
    double X = 0;
    double Y = 0;
};

/// The area within `radius` of a polyline with ascending x. At any x it is a single interval, since the polyline has no
/// gaps: so a few intervals in each column of pixels tell how much of each pixel it covers.
class Stroke {
public:
    Stroke(const std::vector<Point>& line, double radius, const Canvas& canvas);

    /// `colour` is 0xffRRGGBB. The canvas is the one of the constructor.
    void Paint(const Canvas& canvas, uint32_t colour);

private:
    void AddLine(Point from, Point to, double radius);
    void AddJoint(Point joint, double shiftBefore, double shiftAfter, double radius);
    void PaintTile(const Canvas& canvas, uint32_t colour, int tile, int columns);

    /// The interval of each slice of the columns, kSlices a column, from the left edge of the clip rectangle.
    std::vector<float> tops_;
    std::vector<float> bottoms_;
    std::vector<int> changes_; ///< of the covered part of a pixel from one row to the next, kTileColumns a row; all 0
};

} // namespace tvswp
