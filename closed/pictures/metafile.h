// closed/pictures/metafile.h: the headers of Windows metafiles, and the size of the picture. Whoever tells sizes and
// whoever paints reads them here, so that both speak of the same picture.
#pragma once

#include "closed/pictures/metafileRecords.h"

#include <optional>

namespace tvpicture {

/// Pixels per inch of every picture.
inline constexpr int kPixelsPerInch = 96;

/// First four bytes of the header that goes before a placeable metafile, as a little-endian number.
inline constexpr uint32_t kPlaceableKey = 0x9AC6CDD7;
inline constexpr size_t kPlaceableHeaderBytes = 22;
inline constexpr size_t kMetafileHeaderBytes = 18;

/// Longer side of a picture whose file tells its extent in units of no size, where one pixel a unit would be more.
inline constexpr int kLongestUnsizedSide = 2048;

/// Mapping modes of the SetMapMode record.
enum MapMode : uint16_t {
    MapText = 1,
    MapLoMetric = 2, ///< 0.1 mm, y upwards, as the next three
    MapHiMetric = 3, ///< 0.01 mm
    MapLoEnglish = 4, ///< 0.01 inch
    MapHiEnglish = 5, ///< 0.001 inch
    MapTwips = 6, ///< 1/1440 inch, y upwards
    MapIsotropic = 7,
    MapAnisotropic = 8,
};

/// Units of an inch in a mode with units of a fixed size; 0 for the others.
double UnitsPerInch(uint16_t mapMode);

/// What a metafile shows, and how large.
struct MetafileFrame {
    bool Placeable = false;
    int WindowX = 0; ///< origin and extent of the shown window, logical units; the extents are never 0
    int WindowY = 0;
    int WindowWidth = 0; ///< negative where x runs to the left
    int WindowHeight = 0; ///< negative where y runs upwards
    int Width = 0; ///< of the picture, pixels
    int Height = 0;
    size_t Records = 0; ///< offset of the first record
};

/// Reads the headers. The size of a placeable metafile is in its header, in units per inch. Another one shows the first
/// window or viewport that its records set, else the box around what they draw; its unit is a pixel unless the mapping
/// mode gives it a size or the picture would be larger than kLongestUnsizedSide. Nothing for other files, broken
/// headers and records, and pictures without size.
std::optional<MetafileFrame> ReadMetafileFrame(ByteView bytes);

} // namespace tvpicture
