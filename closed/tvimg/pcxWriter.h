// closed/tvimg/pcxWriter.h: writes PCX pictures.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Writes the upper left of the context in 24 bits, run-length coded, and adds 1 to `workCounter`, which may be null,
/// for each line. False if the file could not be written; what was under `path` before is then unchanged.
[[nodiscard]] bool WritePcx(const char* path, const TvImgContext& context, PictureSize size, int32_t* workCounter);

} // namespace tvimg
