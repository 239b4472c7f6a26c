// screen/metafile/metafileSettings.h: the records of a metafile that set how the following ones paint.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileSettings();

} // namespace tarvik
