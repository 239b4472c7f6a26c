// screen/metafile/metafileText.h: metafile records that draw text.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

std::span<const MetafileHandler> MetafileTexts();

} // namespace tarvik
