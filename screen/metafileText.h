// screen/metafileText.h: the records of a metafile that write.
#pragma once

#include "screen/metafileContext.h"

std::span<const MetafileHandler> MetafileTexts();
