// screen/metafile/metafileShapes.h: metafile records that draw lines and fill shapes.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileShapes();

} // namespace tarvik
