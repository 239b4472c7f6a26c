// closed/tvimg/bitmapHeader.h: the size of a Windows or OS/2 bitmap.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

bool IsBitmap(ByteView head);

/// The size that the header gives; not checked against the limits. Nothing for a header that contradicts itself and for
/// uncompressed pixels that are not all there.
std::optional<PictureSize> BitmapSize(ByteView head, uint64_t fileBytes);

} // namespace tvimg
