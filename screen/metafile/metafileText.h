// screen/metafile/metafileText.h: the records of a metafile that write.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileTexts();

} // namespace tarvik
