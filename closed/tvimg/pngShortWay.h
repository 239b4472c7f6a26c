// closed/tvimg/pngShortWay.h: reads the PNG pictures that receivers and this program write, two to three times as fast
// as the library that reads all of them.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Decodes a PNG of 8-bit grey, colours or indexes without transparency and interlacing. False for every other one, and
/// for one with anything irregular: what to do with it is not decided here. The context may then be painted in part.
[[nodiscard]] bool ReadPngTheShortWay(ByteView file, const TvImgContext& context);

} // namespace tvimg
