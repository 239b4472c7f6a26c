// closed/pictures/metafile.h: the outer form of Windows metafiles: their headers, their records, and the size of the
// picture. Whoever tells sizes and whoever paints reads them here, so that both speak of the same picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace tvpicture {

using ByteView = std::span<const uint8_t>;

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

/// Functions of the records that more than one place knows.
enum MetafileFunction : uint16_t {
    MetaEof = 0x0000,
    MetaSetMapMode = 0x0103,
    MetaSetWindowOrg = 0x020B,
    MetaSetWindowExt = 0x020C,
    MetaSetViewportExt = 0x020E,
    MetaLineTo = 0x0213,
    MetaMoveTo = 0x0214,
    MetaPolygon = 0x0324,
    MetaPolyline = 0x0325,
    MetaEllipse = 0x0418,
    MetaRectangle = 0x041B,
    MetaSetPixel = 0x041F,
    MetaPolyPolygon = 0x0538,
    MetaRoundRect = 0x061C,
    MetaPatBlt = 0x061D,
    MetaArc = 0x0817,
    MetaPie = 0x081A,
    MetaChord = 0x0830,
    MetaBitBlt = 0x0922,
    MetaDibBitBlt = 0x0940,
    MetaExtTextOut = 0x0A32,
    MetaStretchBlt = 0x0B23,
    MetaDibStretchBlt = 0x0B41,
    MetaSetDibToDev = 0x0D33,
    MetaStretchDib = 0x0F43,
};

/// Parameters of a record: 16-bit words, little-endian, told by their index. What lies beyond the end reads as 0.
class MetafileParameters {
public:
    MetafileParameters() = default;
    explicit MetafileParameters(ByteView bytes)
        : bytes_(bytes)
    {
    }

    [[nodiscard]] int Words() const
    {
        return static_cast<int>(bytes_.size() / 2);
    }
    [[nodiscard]] uint16_t Word(int index) const;
    [[nodiscard]] int Signed(int index) const
    {
        return static_cast<int16_t>(Word(index));
    }
    [[nodiscard]] uint32_t Long(int index) const; ///< two words, the lower one first
    [[nodiscard]] ByteView From(int index) const; ///< all bytes from this word on

private:
    ByteView bytes_;
};

struct MetafileRecord {
    uint16_t Function = MetaEof;
    MetafileParameters Parameters;
};

/// Walks the records from `offset` on.
class MetafileRecords {
public:
    MetafileRecords(ByteView bytes, size_t offset)
        : rest_(bytes.subspan(offset))
    {
    }

    enum class Step {
        Record,
        End, ///< the record that ends every metafile
        Broken, ///< a record that is shorter than its own head or goes beyond the file, or no end
    };
    [[nodiscard]] Step Next(MetafileRecord& record);

private:
    ByteView rest_;
};

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
