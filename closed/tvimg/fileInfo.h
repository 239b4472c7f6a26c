// closed/tvimg/fileInfo.h: format and size of the picture in a file.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

/// Goes by content, whatever the name. Nullopt for an unreadable file, for another format, and for a header that is
/// truncated, inconsistent, or gives a size beyond the limits. A PNG, a PCX and an uncompressed bitmap must also be
/// long enough for their size, so that no memory is allocated for missing pixels. The size of a metafile comes from
/// closed/pictures/metafile.h.
std::optional<ScreenImageInfo> FileInfo(const char* path);

/// As above, for a file of `fileBytes` bytes that starts with `head`; for a metafile without the placeable header,
/// `head` is the whole file.
std::optional<ScreenImageInfo> ContentInfo(ByteView head, uint64_t fileBytes);

} // namespace tvimg
