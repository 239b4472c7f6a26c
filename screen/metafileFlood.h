// screen/metafileFlood.h: the records of a metafile that fill what lies around
// a point.
#pragma once

#include "screen/metafileContext.h"

std::span<const MetafileHandler> MetafileFloods();
