// screen/metafile/metafileBlit.h: copies pictures to the picture of a metafile with any ternary raster operation.
#pragma once

#include "screen/metafile/metafileContext.h"

namespace tarvik {

/// A ROP3 code: one result bit for each combination of pattern, source and picture. The bit number is the sum of
/// pattern (4), source (2) and picture (1).
using Rop3 = quint8;

inline constexpr Rop3 kSourceCopy = 0xCC;

bool UsesSource(Rop3 operation);
bool UsesPattern(Rop3 operation);

struct MetafileBlit {
    Rop3 Operation = kSourceCopy;
    QPoint Corner; ///< of the destination, logical units
    QPoint Opposite;
    QImage Source; ///< Format_RGB32; null if the operation has no source
    QRect From; ///< in source pixels; a negative size mirrors
};

/// Performs it; false if the work budget of the context is exhausted.
bool Paint(MetafileContext& context, const MetafileBlit& blit);

} // namespace tarvik
