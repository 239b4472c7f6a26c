// screen/metafile/metafileShapes.h: the records of a metafile that draw lines and fill outlines.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileShapes();

} // namespace tarvik
