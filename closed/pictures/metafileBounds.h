// closed/pictures/metafileBounds.h: the box around what the records of a metafile draw.
#pragma once

#include "closed/pictures/metafileRecords.h"

#include <optional>

namespace tvpicture {

/// Logical units; all four edges belong to it.
struct MetafileBox {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

/// Widens the box by the points of one record. Records that draw nothing, and points that a record's own length does
/// not hold, leave it.
void AddBounds(const MetafileRecord& record, std::optional<MetafileBox>& box);

} // namespace tvpicture
