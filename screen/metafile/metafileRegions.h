// screen/metafile/metafileRegions.h: the records of a metafile that clip, and that paint regions.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileRegions();

/// A region in pixels, as far as it lies in the picture; nothing when the work of the context is used up.
std::optional<QRegion> MetafileDeviceRegion(MetafileContext& context, const MetafileRegion& region);

} // namespace tarvik
