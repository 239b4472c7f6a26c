// closed/tvimg/pngLines.h: the lines of a picture as the bytes of a PNG, before they are compressed.
#pragma once

#include "closed/tvimg/colorTable.h"

namespace tvimg {

/// What stands in for a line's bytes: each less what its neighbours foretell.
enum class PngFilter : uint8_t { None = 0, Left = 1, Above = 2, Average = 3 };

/// The lines in the smallest form that keeps every colour.
class PngLines {
public:
    /// The context must outlast this.
    PngLines(const TvImgContext& context, PictureSize size);

    [[nodiscard]] PictureSize Size() const
    {
        return size_;
    }
    /// 0 grey, 2 red, green and blue, 3 an index.
    [[nodiscard]] uint8_t ColorType() const
    {
        return colorType_;
    }
    /// Of a sample: 1, 2, 4 or 8.
    [[nodiscard]] unsigned Bits() const
    {
        return bits_;
    }
    /// 0xffRRGGBB in the order of their indexes; empty in the other forms.
    [[nodiscard]] std::vector<uint32_t> Palette() const;

    /// Of a filtered line, the filter's own byte included.
    [[nodiscard]] size_t LineBytes() const
    {
        return 1 + rowBytes_;
    }

    /// Stores `count` lines from `first`, filtered. Returns the end of what was stored.
    uint8_t* Store(PngFilter filter, int64_t first, int64_t count, uint8_t* target) const;

private:
    void Pack(int64_t y, uint8_t* row) const;
    void PackIndexes(const uint32_t* pixels, uint8_t* row) const;

    const TvImgContext& context_;
    PictureSize size_;
    std::optional<ColorTable> table_; ///< where there are few colours
    uint8_t colorType_ = 2;
    unsigned bits_ = 8;
    size_t rowBytes_ = 0;
};

} // namespace tvimg
