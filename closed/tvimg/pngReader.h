// closed/tvimg/pngReader.h: reads PNG pictures of every kind. Colours are taken as they stand, whatever is said about
// their gamma; 16 bits are rounded to 8.
#pragma once

#include "closed/tvimg/picture.h"

namespace tvimg {

/// Decodes into the upper left of a context that has room for the picture; transparent places let its colours through.
/// False for a file that is damaged anywhere, text and the like beside the picture excepted: the context is then as it
/// was, or white.
[[nodiscard]] bool DecodePng(ByteView file, const TvImgContext& context);

/// The same by the library alone, which leaves the context painted in part where it fails.
[[nodiscard]] bool DecodePngByLibrary(ByteView file, const TvImgContext& context);

/// `DecodePng` of a file.
[[nodiscard]] bool ReadPng(const char* path, const TvImgContext& context);

} // namespace tvimg
