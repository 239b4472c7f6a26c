// closed/tvimg/pngHeader.h: how a PNG begins.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

bool IsPng(ByteView head);

/// The size that a PNG's first bytes give, within the limits. Nothing for a damaged header, and where the file is too
/// short for its pixels even at the densest coding.
std::optional<PictureSize> PngSize(ByteView head, uint64_t fileBytes);

} // namespace tvimg
