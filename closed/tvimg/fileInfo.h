// closed/tvimg/fileInfo.h: what kind of picture a file holds, and its size.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

/// Looks at the content, whatever the name. Nothing for a file that can't be read, for another format, and for a header
/// that is cut short, contradicts itself, or gives a size beyond the limits. A PNG, a PCX and an uncompressed bitmap
/// must also be long enough for their size, so that no memory is taken for pixels that are not there.
///
/// The size of a metafile is that of its placeable header at 96 pixels to the inch, rounded to the nearest; without
/// that header, the first window extent in its mapping mode. One that has neither is refused.
std::optional<ScreenImageInfo> FileInfo(const char* path);

/// The same for a file of `fileBytes` bytes that begins with `head`.
std::optional<ScreenImageInfo> ContentInfo(ByteView head, uint64_t fileBytes);

} // namespace tvimg
