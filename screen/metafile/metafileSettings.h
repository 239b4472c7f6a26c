// screen/metafile/metafileSettings.h: metafile records that set attributes of the device context.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileSettings();

} // namespace tarvik
