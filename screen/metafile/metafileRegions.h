// screen/metafile/metafileRegions.h: metafile records that clip, and that paint regions.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileRegions();

/// The part of a region inside the picture, in pixels; nullopt if the work budget of the context is exhausted.
std::optional<QRegion> MetafileDeviceRegion(MetafileContext& context, const MetafileRegion& region);

} // namespace tarvik
