// screen/metafile/metafileBlit.h: copies pictures onto the picture of a metafile, combined by any raster operation.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

/// The byte that names an operation: for pattern, source and picture, each set or not, one bit of the result. Pattern
/// counts 4, source 2, picture 1 in the number of the bit.
using RasterOperation = quint8;

inline constexpr RasterOperation kSourceCopy = 0xCC;

bool UsesSource(RasterOperation operation);
bool UsesPattern(RasterOperation operation);

struct MetafileBlit {
    RasterOperation Operation = kSourceCopy;
    QPoint Corner; ///< of the place, logical units
    QPoint Opposite;
    QImage Source; ///< Format_RGB32; null for an operation without source
    QRect From; ///< in the source; a negative size mirrors
};

/// Paints it; false when the work of the context is used up.
bool Paint(MetafileContext& context, const MetafileBlit& blit);

} // namespace tarvik
