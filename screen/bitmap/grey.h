// screen/bitmap/grey.h: the inverted grey of pixels, row by row. stretch.h does it to a picture.
#pragma once

#include <cstdint>

namespace tarvik {

/// Each pixel 0xffRRGGBB becomes 255 - g in all three channels, with g = 0.587 green + 0.299 blue + 0.114 red in 64-bit
/// floats, rounded to the nearest number, halves to even. Red and blue trade their usual weights, deliberately.
/// Takes eight pixels at once where the processor can.
void GreyRow(uint32_t* pixels, int count);

/// The same, pixel by pixel.
void GreyRowPlainly(uint32_t* pixels, int count);

} // namespace tarvik
