// closed/tvimg/pngWriter.h: writes PNG pictures.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Writes the upper left of the context in the smallest format that keeps every colour: a palette of 1, 2, 4 or 8
/// bits, 8-bit grey, or 24 bits. False if the file could not be written; `path` is then unchanged.
[[nodiscard]] bool WritePng(const char* path, const TvImgContext& context, PictureSize size);

} // namespace tvimg
