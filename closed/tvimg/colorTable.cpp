#include "closed/tvimg/colorTable.h"

#include <algorithm>

namespace tvimg {

std::optional<ColorTable> ColorTable::Of(const TvImgContext& context, PictureSize size)
{
    ColorTable table;
    uint32_t last = 0;
    for (int64_t y = 0; y < size.Height; ++y) {
        const uint32_t* row = Line(context, y);
        for (int64_t x = 0; x < size.Width; ++x) {
            const uint32_t color = row[x] | kOpaque;
            if (color != last && !table.Add(color))
                return std::nullopt;
            last = color;
        }
    }
    table.Sort();
    return table;
}

bool ColorTable::IsGrey() const
{
    return std::ranges::all_of(colors_, [](uint32_t color) { return color == (kOpaque | (color & 0xff) * 0x010101U); });
}

bool ColorTable::Add(uint32_t color)
{
    const size_t slot = SlotOf(color);
    if (slots_[slot] == color)
        return true;
    if (colors_.size() == kMaxColors)
        return false;
    slots_[slot] = color;
    colors_.push_back(color);
    return true;
}

void ColorTable::Sort()
{
    std::ranges::sort(colors_);
    for (size_t i = 0; i < colors_.size(); ++i)
        indexes_[SlotOf(colors_[i])] = static_cast<uint8_t>(i);
}

} // namespace tvimg
