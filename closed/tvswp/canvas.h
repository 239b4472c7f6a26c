// closed/tvswp/canvas.h: the pixels inside a clip rectangle.
#pragma once

#include "closed/tvswp.h"

namespace tvswp {

/// Covered part of a pixel that is covered whole.
inline constexpr int kWholeCoverage = 256;

/// The colour `over` on `under`, both 0xffRRGGBB, of which it covers `coverage`.
constexpr uint32_t Mixed(uint32_t over, uint32_t under, uint32_t coverage)
{
    constexpr uint32_t kRedBlue = 0x00FF00FF;
    constexpr uint32_t kGreen = 0x0000FF00;
    const uint32_t rest = kWholeCoverage - coverage;
    const uint32_t redBlue = ((over & kRedBlue) * coverage + (under & kRedBlue) * rest) >> 8 & kRedBlue;
    const uint32_t green = ((over & kGreen) * coverage + (under & kGreen) * rest) >> 8 & kGreen;
    return 0xFF000000U | redBlue | green;
}

/// A context whose pixels outside the clip rectangle can't be reached. Columns and rows count from its left top corner.
class Canvas {
public:
    explicit Canvas(const TvSwpContext& context);

    int Width() const
    {
        return context_.Right - context_.Left;
    }
    int Height() const
    {
        return context_.Bottom - context_.Top;
    }

    // The part of the clip rectangle that lies in the picture.

    bool IsEmpty() const
    {
        return firstColumn_ >= endColumn_ || firstRow_ >= endRow_;
    }
    int FirstColumn() const
    {
        return firstColumn_;
    }
    int EndColumn() const
    {
        return endColumn_;
    }
    int FirstRow() const
    {
        return firstRow_;
    }
    int EndRow() const
    {
        return endRow_;
    }

    /// A pixel in that part.
    uint32_t* At(int column, int row) const
    {
        return context_.Pixels + static_cast<std::ptrdiff_t>(context_.Top + row) * context_.Stride + context_.Left
            + column;
    }

    /// Covers a pixel with a colour 0xffRRGGBB; `coverage` is limited to 0 to 1. Does nothing outside that part.
    void Blend(int column, int row, uint32_t colour, double coverage) const;

private:
    TvSwpContext context_;
    int firstColumn_;
    int endColumn_;
    int firstRow_;
    int endRow_;
};

} // namespace tvswp
