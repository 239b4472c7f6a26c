// closed/tvimg/colorTable.h: the palette of a picture with few colours.
#pragma once

#include "closed/tvimg/picture.h"

#include <array>
#include <optional>

namespace tvimg {

/// At most 256 colours in ascending order, with their indexes.
class ColorTable {
public:
    static constexpr size_t kMaxColors = 256;

    /// The colours of a picture; nullopt if there are more than 256.
    static std::optional<ColorTable> Of(const TvImgContext& context, PictureSize size);

    /// 0xffRRGGBB.
    [[nodiscard]] const std::vector<uint32_t>& Colors() const
    {
        return colors_;
    }

    /// Index of a colour of the table.
    [[nodiscard]] uint8_t IndexOf(uint32_t color) const
    {
        return indexes_[SlotOf(color)];
    }

    [[nodiscard]] bool IsGrey() const;

private:
    static constexpr unsigned kSlotBits = 11; // eight slots per colour keep probing short
    static constexpr size_t kSlots = size_t{ 1 } << kSlotBits;

    /// The slot of a colour, or the free slot for it. A slot of 0 is free: colours are opaque.
    [[nodiscard]] size_t SlotOf(uint32_t color) const
    {
        size_t slot = color * 0x9E3779B1U >> (32 - kSlotBits);
        while (slots_[slot] != color && slots_[slot] != 0)
            slot = (slot + 1) % kSlots;
        return slot;
    }
    [[nodiscard]] bool Add(uint32_t color);
    void Sort();

    std::vector<uint32_t> colors_;
    std::array<uint32_t, kSlots> slots_{};
    std::array<uint8_t, kSlots> indexes_{};
};

} // namespace tvimg
