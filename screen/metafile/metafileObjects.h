// screen/metafile/metafileObjects.h: the records of a metafile that make, select and drop pens, brushes, fonts,
// regions, palettes.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileObjectRecords();

} // namespace tarvik
