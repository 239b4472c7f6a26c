// closed/tvimg/pngHeader.h: the header of a PNG.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

bool IsPng(ByteView head);

/// The size in the header, within the limits. Nullopt for a damaged header, and for a file too short for its pixels
/// even at the highest compression ratio.
std::optional<PictureSize> PngSize(ByteView head, uint64_t fileBytes);

} // namespace tvimg
