// closed/tvimg/pcxWriter.h: writes PCX pictures.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Writes the upper left of the context in 24 bits, run-length encoded, and adds 1 to `workCounter` (may be null) per
/// row. False if the file could not be written; `path` is then unchanged.
[[nodiscard]] bool WritePcx(const char* path, const TvImgContext& context, PictureSize size, int32_t* workCounter);

} // namespace tvimg
