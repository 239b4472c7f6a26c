// closed/tvimg/bitmapHeader.h: the size of a Windows or OS/2 bitmap.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

bool IsBitmap(ByteView head);

/// The size in the header; not checked against the limits. Nullopt for an inconsistent header and for uncompressed
/// pixels that are incomplete.
std::optional<PictureSize> BitmapSize(ByteView head, uint64_t fileBytes);

} // namespace tvimg
