// screen/metafile/metafileFlood.h: metafile records that flood-fill.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileFloods();

} // namespace tarvik
