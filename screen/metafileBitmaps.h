// screen/metafileBitmaps.h: the records of a metafile that paint bitmaps and fill rectangles by raster operations.
#pragma once

#include "screen/metafileContext.h"

std::span<const MetafileHandler> MetafileBitmaps();
