// closed/tvfio/text.h: single-byte texts of bounded length, as the lists store them.
#pragma once

#include "closed/tvfio/status.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace tvfio {

/// Constraints on a text field and the statuses of their violation.
struct TextRule {
    int MaxLength; ///< characters
    FioStatus TooLong;
    FioStatus Characters;
};

/// Checks `text` against `rule`: Windows-1252 without control characters other than tab, and without the five bytes
/// that it leaves unassigned.
[[nodiscard]] FioStatus CheckText(std::string_view text, const TextRule& rule);

/// Compares two Windows-1252 texts, ignoring case: negative, zero or positive.
int CompareNoCase(std::string_view left, std::string_view right);

/// A zero-terminated text of up to `N` bytes, stored inline.
template <int N>
struct FixedText {
    static_assert(N < 256);
    std::array<char, N + 1> Chars{};
    uint8_t Length = 0;

    [[nodiscard]] std::string_view View() const
    {
        return { Chars.data(), Length };
    }

    /// Assigns `text`, which the caller has checked to fit.
    void Assign(std::string_view text)
    {
        const size_t length = std::min<size_t>(text.size(), N);
        std::copy_n(text.data(), length, Chars.data());
        Chars[length] = '\0';
        Length = static_cast<uint8_t>(length);
    }
};

} // namespace tvfio
