// screen/metafileObjects.h: the records of a metafile that make, select and drop pens, brushes, fonts, regions,
// palettes.
#pragma once

#include "screen/metafileContext.h"

std::span<const MetafileHandler> MetafileObjectRecords();
