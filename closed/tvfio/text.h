// closed/tvfio/text.h: single-byte texts of bounded length, as the lists hold them.
#pragma once

#include "closed/tvfio/status.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace tvfio {

/// What a text field may hold, and the status of a text that it may not.
struct TextRule {
    int MaxLength; ///< characters
    FioStatus TooLong;
    FioStatus Characters;
};

/// Ok, or what `rule` says against `text`: Windows-1252 without control characters (a tab is allowed).
[[nodiscard]] FioStatus CheckText(std::string_view text, const TextRule& rule);

/// Order of two Windows-1252 texts without regard to case: negative, zero or positive.
int CompareNoCase(std::string_view left, std::string_view right);

/// A text of up to `N` bytes, closed by a zero, held in place.
template <int N>
struct FixedText {
    static_assert(N < 256);
    std::array<char, N + 1> Chars{};
    uint8_t Length = 0;

    [[nodiscard]] std::string_view View() const
    {
        return { Chars.data(), Length };
    }

    /// Takes `text` over, which the caller has found to fit.
    void Assign(std::string_view text)
    {
        const size_t length = std::min<size_t>(text.size(), N);
        std::copy_n(text.data(), length, Chars.data());
        Chars[length] = '\0';
        Length = static_cast<uint8_t>(length);
    }
};

} // namespace tvfio
