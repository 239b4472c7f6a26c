// closed/tvimg/colorTable.h: the colours of a picture that has few of them.
#pragma once

#include "closed/tvimg/picture.h"

#include <array>
#include <optional>

namespace tvimg {

/// At most 256 colours in ascending order, each with its index.
class ColorTable {
public:
    static constexpr size_t kMaxColors = 256;

    /// The colours of a picture; nothing if there are more.
    static std::optional<ColorTable> Of(const TvImgContext& context, PictureSize size);

    /// 0xffRRGGBB.
    [[nodiscard]] const std::vector<uint32_t>& Colors() const
    {
        return colors_;
    }

    /// Of one of the colours.
    [[nodiscard]] uint8_t IndexOf(uint32_t color) const
    {
        return indexes_[SlotOf(color)];
    }

    [[nodiscard]] bool IsGrey() const;

private:
    static constexpr unsigned kSlotBits = 11; // eight times as many slots as colours keep searches short
    static constexpr size_t kSlots = size_t{ 1 } << kSlotBits;

    /// Where the colour is, or where it would be put. A slot of 0 is free: colours are opaque.
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
