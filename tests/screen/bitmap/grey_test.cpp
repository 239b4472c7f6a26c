#include "screen/bitmap/grey.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numeric>
#include <vector>

namespace tarvik {

namespace {

using Convert = void (*)(uint32_t* pixels, int count);

constexpr int kColoursAtOnce = 1 << 18;

/// The formula in 64-bit floats, rounded to nearest, halves to even.
uint32_t Expected(uint32_t pixel)
{
    const double first = pixel & 0xFF;
    const double second = pixel >> 8 & 0xFF;
    const double third = pixel >> 16 & 0xFF;
    const auto grey = static_cast<uint32_t>(std::nearbyint(second * 0.587 + first * 0.299 + third * 0.114));
    return 0xFF000000U | (255 - grey) * 0x010101U;
}

/// The number of 24-bit colours for which a conversion differs from the formula.
int WrongColours(Convert convert)
{
    int wrong = 0;
    std::vector<uint32_t> pixels(kColoursAtOnce);
    for (uint32_t start = 0xFF000000U; start != 0; start += kColoursAtOnce) {
        std::iota(pixels.begin(), pixels.end(), start);
        convert(pixels.data(), kColoursAtOnce);
        for (uint32_t at = 0; at < kColoursAtOnce; ++at)
            wrong += pixels[at] == Expected(start + at) ? 0 : 1;
    }
    return wrong;
}

} // namespace

TEST(Grey, MatchesFormulaForEveryColour)
{
    EXPECT_EQ(WrongColours(GreyRow), 0);
}

TEST(Grey, PixelByPixelMatchesFormulaForEveryColour)
{
    EXPECT_EQ(WrongColours(GreyRowScalar), 0);
}

TEST(Grey, HandlesRowsOfAnyLengthAndNothingBeyond)
{
    for (int count = 0; count <= 20; ++count) {
        std::vector<uint32_t> pixels(24, 0xFFFF0000U);
        GreyRow(pixels.data() + 1, count);
        const auto converted = std::count(pixels.begin() + 1, pixels.begin() + 1 + count, Expected(0xFFFF0000U));
        EXPECT_EQ(converted, count);
        EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0xFFFF0000U), 24 - count);
    }
}

} // namespace tarvik
