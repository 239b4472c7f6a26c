// closed/pictures/metafileRecords.h: the records of Windows metafiles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tvpicture {

using ByteView = std::span<const uint8_t>;

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
    MetaTextOut = 0x0521,
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

} // namespace tvpicture
