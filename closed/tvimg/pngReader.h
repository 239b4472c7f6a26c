// closed/tvimg/pngReader.h: reads PNG pictures of every format. Gamma and other colour information is ignored; 16
// bits are rounded to 8.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Decodes into the upper left of a context that is large enough, blending transparent pixels over it. False for a
/// file that is damaged anywhere but in its ancillary chunks: the context is then unchanged, or white.
[[nodiscard]] bool DecodePng(ByteView file, const TvImgContext& context);

/// As above with the library only; after a failure the context may be partly painted.
[[nodiscard]] bool DecodePngByLibrary(ByteView file, const TvImgContext& context);

/// As `DecodePng`, for a file.
[[nodiscard]] bool ReadPng(const char* path, const TvImgContext& context);

} // namespace tvimg
