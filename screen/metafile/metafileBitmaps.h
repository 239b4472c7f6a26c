// screen/metafile/metafileBitmaps.h: metafile records that paint bitmaps and fill rectangles by raster operations.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileBitmaps();

} // namespace tarvik
