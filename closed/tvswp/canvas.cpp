#include "closed/tvswp/canvas.h"

#include <algorithm>

namespace tvswp {

Canvas::Canvas(const TvSwpContext& context)
    : context_(context)
    , firstColumn_(std::max(-context.Left, 0))
    , endColumn_(std::min(context.Right, context.Width) - context.Left)
    , firstRow_(std::max(-context.Top, 0))
    , endRow_(std::min(context.Bottom, context.Height) - context.Top)
{
}

void Canvas::Blend(int column, int row, uint32_t colour, double coverage) const
{
    if (column < firstColumn_ || column >= endColumn_ || row < firstRow_ || row >= endRow_)
        return;
    const double weight = std::clamp(coverage, 0.0, 1.0) * kWholeCoverage + 0.5;
    uint32_t* pixel = At(column, row);
    *pixel = Mixed(colour, *pixel, static_cast<uint32_t>(weight));
}

} // namespace tvswp
