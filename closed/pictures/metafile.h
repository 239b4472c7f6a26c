// closed/pictures/metafile.h: the headers of Windows metafiles and the size of the picture. The size query and the
// painter share it so that they agree on the size.
#pragma once

#include "closed/pictures/metafileRecords.h"

#include <optional>

namespace tvpicture {

/// Resolution of every picture, pixels per inch.
inline constexpr int kPixelsPerInch = 96;

/// First four bytes of the header of a placeable metafile, little-endian.
inline constexpr uint32_t kPlaceableKey = 0x9AC6CDD7;
inline constexpr size_t kPlaceableHeaderBytes = 22;
inline constexpr size_t kMetafileHeaderBytes = 18;

/// Maximum length in pixels of the longer side of a picture in units without a physical size.
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

/// Units per inch of a mode with units of a fixed size; 0 for the others.
double UnitsPerInch(uint16_t mapMode);

/// The window that a metafile shows, and the size of its picture.
struct MetafileFrame {
    bool Placeable = false;
    int WindowX = 0; ///< origin and extent of the window in logical units; the extents are never 0
    int WindowY = 0;
    int WindowWidth = 0; ///< negative where x runs to the left
    int WindowHeight = 0; ///< negative where y runs upwards
    int Width = 0; ///< size of the picture in pixels
    int Height = 0;
    size_t Records = 0; ///< offset of the first record
};

/// Reads the headers. A placeable metafile has its size in its header, in units per inch. For any other, the size is
/// that of the first window or viewport that its records set, else of the bounding box of what they draw; a unit is
/// one pixel unless the mapping mode gives it a size or the picture would exceed kLongestUnsizedSide. Nullopt for
/// other files, broken headers or records, and pictures without size.
std::optional<MetafileFrame> ReadMetafileFrame(ByteView bytes);

} // namespace tvpicture
