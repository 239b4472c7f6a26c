// closed/tvimg/pngFastPath.h: reads the PNG pictures that receivers and this program write, two to three times as
// fast as the general library.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Decodes a PNG of 8-bit grey, RGB or palette without transparency and interlacing. False for any other one and for
/// any irregularity, which is left to the general library. The context may then be partly painted.
[[nodiscard]] bool DecodePngFast(ByteView file, const TvImgContext& context);

} // namespace tvimg
