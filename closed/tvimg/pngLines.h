// closed/tvimg/pngLines.h: the rows of a picture as the bytes of a PNG, before compression.
#pragma once

#include "closed/tvimg/colorTable.h"

namespace tvimg {

/// The row filters: each stores the difference to a prediction from neighbouring bytes.
enum class PngFilter : uint8_t { None = 0, Left = 1, Above = 2, Average = 3 };

/// The rows in the smallest format that keeps every colour.
class PngLines {
public:
    /// The context must outlive this.
    PngLines(const TvImgContext& context, PictureSize size);

    [[nodiscard]] PictureSize Size() const
    {
        return size_;
    }
    /// 0 grey, 2 RGB, 3 palette.
    [[nodiscard]] uint8_t ColorType() const
    {
        return colorType_;
    }
    /// Per sample: 1, 2, 4 or 8.
    [[nodiscard]] unsigned Bits() const
    {
        return bits_;
    }
    /// 0xffRRGGBB in index order; empty in the other formats.
    [[nodiscard]] std::vector<uint32_t> Palette() const;

    /// Of a filtered row, the filter byte included.
    [[nodiscard]] size_t LineBytes() const
    {
        return 1 + rowBytes_;
    }

    /// Stores `count` filtered rows from `first`. Returns the end of the output.
    uint8_t* Store(PngFilter filter, int64_t first, int64_t count, uint8_t* target) const;

private:
    void Pack(int64_t y, uint8_t* row) const;
    void PackIndexes(const uint32_t* pixels, uint8_t* row) const;

    const TvImgContext& context_;
    PictureSize size_;
    std::optional<ColorTable> table_; ///< only if there are few colours
    uint8_t colorType_ = 2;
    unsigned bits_ = 8;
    size_t rowBytes_ = 0;
};

} // namespace tvimg
