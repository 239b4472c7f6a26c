// closed/pictures/metafileBounds.h: the bounding box of what the records of a metafile draw.
#pragma once

#include "closed/pictures/metafileRecords.h"

#include <optional>

namespace tvpicture {

/// Logical units; all four edges are inclusive.
struct MetafileBox {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

/// Extends the box by the points of one record. Ignores records that draw nothing and points beyond the end of the
/// record.
void AddBounds(const MetafileRecord& record, std::optional<MetafileBox>& box);

} // namespace tvpicture
