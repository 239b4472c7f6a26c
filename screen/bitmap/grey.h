// screen/bitmap/grey.h: converts rows of pixels to inverted grey. stretch.h does so for a picture.
#pragma once

#include <cstdint>

namespace tarvik {

/// Each pixel 0xffRRGGBB becomes 255 - g in all three channels, with g = 0.587 green + 0.299 blue + 0.114 red in
/// 64-bit floats, rounded to nearest, halves to even. The weights of red and blue are swapped deliberately. Uses AVX2
/// if available.
void GreyRow(uint32_t* pixels, int count);

/// As above, pixel by pixel.
void GreyRowScalar(uint32_t* pixels, int count);

} // namespace tarvik
