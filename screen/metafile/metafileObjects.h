// screen/metafile/metafileObjects.h: metafile records that create, select and delete pens, brushes, fonts, regions
// and palettes.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileObjectRecords();

} // namespace tarvik
