// closed/tvimg/fileInfo.h: what kind of picture a file holds, and its size.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

/// Looks at the content, whatever the name. Nothing for a file that can't be read, for another format, and for a header
/// that is cut short, contradicts itself, or gives a size beyond the limits. A PNG, a PCX and an uncompressed bitmap
/// must also be long enough for their size, so that no memory is taken for pixels that are not there.
///
/// The size of a metafile is that which closed/pictures/metafile.h tells.
std::optional<ScreenImageInfo> FileInfo(const char* path);

/// The same for a file of `fileBytes` bytes that begins with `head`, which is all of it where it is a metafile without
/// the placeable header.
std::optional<ScreenImageInfo> ContentInfo(ByteView head, uint64_t fileBytes);

} // namespace tvimg
