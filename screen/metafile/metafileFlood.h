// screen/metafile/metafileFlood.h: the records of a metafile that fill what lies around
// a point.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileFloods();

} // namespace tarvik
