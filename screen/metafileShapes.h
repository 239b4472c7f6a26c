// screen/metafileShapes.h: the records of a metafile that draw lines and fill outlines.
#pragma once

#include "screen/metafileContext.h"

std::span<const MetafileHandler> MetafileShapes();
