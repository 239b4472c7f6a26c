// closed/tvimg/metafileHeader.h: the size of a Windows metafile.
#pragma once

#include "closed/tvimg/picture.h"

#include <optional>

namespace tvimg {

bool IsMetafile(ByteView head);

/// The size as told at `FileInfo`; not checked against the limits.
std::optional<PictureSize> MetafileSize(ByteView head);

} // namespace tvimg
