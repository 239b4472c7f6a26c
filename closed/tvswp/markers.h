// closed/tvswp/markers.h: the marks on a trace by which it is known without its colour.
#pragma once

#include "closed/tvswp/stroke.h"

namespace tvswp {

/// Shapes of the markers, by position of the trace in its set.
enum class Marker { Disc, Square, Triangle };

/// Paints the markers of a curve, at least one, at regular distances; those of different shapes avoid each other.
/// `radius` is about half their size, `outline` the width around them, in pixels.
struct MarkerStyle {
    Marker Shape = Marker::Disc;
    double Radius = 0;
    double Outline = 0;
    double Distance = 0; ///< least distance of two markers, pixels
    uint32_t Colour = 0; ///< 0xffRRGGBB
    uint32_t OutlineColour = 0;
};
void PaintMarkers(const Canvas& canvas, const std::vector<Point>& line, const MarkerStyle& style);

} // namespace tvswp
