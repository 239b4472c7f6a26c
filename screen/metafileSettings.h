// screen/metafileSettings.h: the records of a metafile that set how the following ones paint.
#pragma once

#include "screen/metafileContext.h"

std::span<const MetafileHandler> MetafileSettings();
