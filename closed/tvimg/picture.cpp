#include "closed/tvimg/picture.h"

#include <algorithm>

namespace tvimg {

namespace {

constexpr int32_t kMaxPixels = TVIMG_MAX_PIXELS;

/// Blends one channel: `over` and `under` weighted by alpha/255, rounded to nearest.
uint32_t BlendChannel(uint32_t over, uint32_t under, uint32_t alpha, unsigned shift)
{
    constexpr uint32_t kFull = 255;
    const uint32_t sum = (over >> shift & kFull) * alpha + (under >> shift & kFull) * (kFull - alpha);
    return (sum + kFull / 2) / kFull << shift;
}

} // namespace

bool IsAllowed(PictureSize size)
{
    return size.Width > 0 && size.Height > 0 && size.Width <= TVIMG_MAX_SIDE && size.Height <= TVIMG_MAX_SIDE
        && size.Width * size.Height <= kMaxPixels;
}

bool IsRoomFor(const TvImgContext* context, PictureSize size)
{
    return context != nullptr && context->Pixels != nullptr && IsAllowed(size) && context->Width >= size.Width
        && context->Height >= size.Height && context->Stride >= context->Width;
}

uint32_t* Line(const TvImgContext& context, int64_t y)
{
    return context.Pixels + y * context.Stride;
}

void Clear(const TvImgContext& context)
{
    for (int32_t y = 0; y < context.Height; ++y)
        std::fill_n(Line(context, y), context.Width, kOpaqueWhite);
}

uint32_t Blend(uint32_t over, uint32_t under)
{
    const uint32_t alpha = over >> 24U;
    return kOpaque | BlendChannel(over, under, alpha, 16) | BlendChannel(over, under, alpha, 8)
        | BlendChannel(over, under, alpha, 0);
}

uint16_t Word(ByteView bytes, size_t at)
{
    return static_cast<uint16_t>(bytes[at] | bytes[at + 1] << 8U);
}

uint32_t DoubleWord(ByteView bytes, size_t at)
{
    return Word(bytes, at) | static_cast<uint32_t>(Word(bytes, at + 2)) << 16U;
}

uint32_t BigDoubleWord(ByteView bytes, size_t at)
{
    return static_cast<uint32_t>(bytes[at]) << 24U | static_cast<uint32_t>(bytes[at + 1]) << 16U
        | static_cast<uint32_t>(bytes[at + 2]) << 8U | bytes[at + 3];
}

} // namespace tvimg
