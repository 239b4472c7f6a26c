// closed/pictures/metafileRecords.h: the records of Windows metafiles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tvpicture {

using ByteView = std::span<const uint8_t>;

/// Record functions used in more than one place.
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

/// Parameters of a record: 16-bit little-endian words, accessed by index. Words beyond the end read as 0.
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
    [[nodiscard]] uint32_t Long(int index) const; ///< two words, low word first
    [[nodiscard]] ByteView From(int index) const; ///< all bytes from this word to the end

private:
    ByteView bytes_;
};

struct MetafileRecord {
    uint16_t Function = MetaEof;
    MetafileParameters Parameters;
};

/// Iterates over the records, starting at `offset`.
class MetafileRecords {
public:
    MetafileRecords(ByteView bytes, size_t offset)
        : rest_(bytes.subspan(offset))
    {
    }

    enum class Step {
        Record,
        End, ///< the record that terminates every metafile
        Broken, ///< a record shorter than its own header or beyond the end of the file, or no terminator
    };
    [[nodiscard]] Step Next(MetafileRecord& record);

private:
    ByteView rest_;
};

} // namespace tvpicture
