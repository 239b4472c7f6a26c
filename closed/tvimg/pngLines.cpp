#include "closed/tvimg/pngLines.h"

#include <algorithm>
#include <bit>

namespace tvimg {

namespace {

constexpr uint8_t kGrey = 0;
constexpr uint8_t kColors = 2;
constexpr uint8_t kIndexes = 3;

/// The fewest bits of 1, 2, 4 and 8 that can index that many colours.
unsigned IndexBits(size_t colors)
{
    return std::bit_ceil(std::max(static_cast<unsigned>(std::bit_width(colors - 1)), 1U));
}

void PackColors(const uint32_t* pixels, size_t width, uint8_t* row)
{
    for (size_t x = 0; x < width; ++x) {
        row[3 * x] = static_cast<uint8_t>(pixels[x] >> 16U);
        row[3 * x + 1] = static_cast<uint8_t>(pixels[x] >> 8U);
        row[3 * x + 2] = static_cast<uint8_t>(pixels[x]);
    }
}

/// Filters one row. `distance` is that to the same byte of the previous pixel; bytes outside the picture count as 0.
void Filter(PngFilter filter, ByteView row, ByteView above, size_t distance, uint8_t* target)
{
    const size_t bytes = row.size();
    const size_t edge = std::min(distance, bytes);
    switch (filter) {
    case PngFilter::None:
        std::ranges::copy(row, target);
        return;
    case PngFilter::Left:
        std::copy_n(row.begin(), edge, target);
        for (size_t i = edge; i < bytes; ++i)
            target[i] = static_cast<uint8_t>(row[i] - row[i - distance]);
        return;
    case PngFilter::Above:
        for (size_t i = 0; i < bytes; ++i)
            target[i] = static_cast<uint8_t>(row[i] - above[i]);
        return;
    case PngFilter::Average:
        for (size_t i = 0; i < edge; ++i)
            target[i] = static_cast<uint8_t>(row[i] - above[i] / 2);
        for (size_t i = edge; i < bytes; ++i)
            target[i] = static_cast<uint8_t>(row[i] - (row[i - distance] + above[i]) / 2);
        return;
    }
}

} // namespace

PngLines::PngLines(const TvImgContext& context, PictureSize size)
    : context_(context)
    , size_(size)
    , table_(ColorTable::Of(context, size))
{
    if (table_) {
        bits_ = IndexBits(table_->Colors().size());
        colorType_ = bits_ == 8 && table_->IsGrey() ? kGrey : kIndexes;
    }
    const size_t samples = static_cast<size_t>(size.Width) * (colorType_ == kColors ? 3 : 1);
    rowBytes_ = (samples * bits_ + 7) / 8;
}

std::vector<uint32_t> PngLines::Palette() const
{
    return colorType_ == kIndexes ? table_->Colors() : std::vector<uint32_t>();
}

uint8_t* PngLines::Store(PngFilter filter, int64_t first, int64_t count, uint8_t* target) const
{
    Bytes above(rowBytes_);
    Bytes row(rowBytes_);
    if (first > 0)
        Pack(first - 1, above.data());
    for (int64_t y = first; y < first + count; ++y) {
        Pack(y, row.data());
        *target++ = static_cast<uint8_t>(filter);
        Filter(filter, row, above, colorType_ == kColors ? 3 : 1, target);
        target += rowBytes_;
        row.swap(above);
    }
    return target;
}

void PngLines::Pack(int64_t y, uint8_t* row) const
{
    const uint32_t* pixels = Line(context_, y);
    const auto width = static_cast<size_t>(size_.Width);
    if (colorType_ == kColors)
        PackColors(pixels, width, row);
    else if (colorType_ == kGrey)
        std::transform(pixels, pixels + width, row, [](uint32_t color) { return static_cast<uint8_t>(color); });
    else
        PackIndexes(pixels, row);
}

void PngLines::PackIndexes(const uint32_t* pixels, uint8_t* row) const
{
    uint32_t last = pixels[0] | kOpaque;
    unsigned index = table_->IndexOf(last);
    unsigned gathered = 0;
    unsigned used = 0;
    for (int64_t x = 0; x < size_.Width; ++x) {
        const uint32_t color = pixels[x] | kOpaque;
        if (color != last) {
            last = color;
            index = table_->IndexOf(color);
        }
        gathered = gathered << bits_ | index;
        used += bits_;
        if (used == 8) {
            *row++ = static_cast<uint8_t>(gathered);
            used = 0;
        }
    }
    if (used > 0)
        *row = static_cast<uint8_t>(gathered << (8 - used));
}

} // namespace tvimg
