// closed/tvimg/pcxReader.h: reads PCX pictures of every version: 1, 2, 4 and 8 bits in 1 to 4 planes, run-length
// encoded or plain. Up to 8 bits in total are an index, with the first plane in the lowest bits; colours are the 16
// of the header or the 256 after the picture. More than 8 bits are red, green, blue and alpha, one plane each.
#pragma once

#include "closed/tvimg/picture.h"

#include <array>
#include <optional>

namespace tvimg {

struct PcxHeader {
    PictureSize Size;
    unsigned Version = 0;
    bool IsRunLength = true;
    unsigned Bits = 0; ///< per pixel and plane
    unsigned Planes = 0;
    size_t PlaneBytes = 0; ///< per row and plane, padding included
    bool IsGrey = false;
    bool HasColors = false; ///< false: the file has no palette, and `Palette` is the standard one
    std::array<uint32_t, 16> Palette{}; ///< 0xffRRGGBB

    /// Bytes per row and plane, without padding.
    [[nodiscard]] size_t UsedBytes() const
    {
        return (static_cast<size_t>(Size.Width) * Bits + 7) / 8;
    }
    [[nodiscard]] size_t LineBytes() const
    {
        return PlaneBytes * Planes;
    }
    [[nodiscard]] bool IsIndexed() const
    {
        return Bits * Planes <= 8;
    }
};

/// Nullopt for other content, an inconsistent header, a size beyond the limits, and a file that is too short for its
/// rows.
std::optional<PcxHeader> ParsePcxHeader(ByteView head, uint64_t fileBytes);

/// A decoded picture. Rows hold the planes in sequence, without padding.
struct PcxPicture {
    PcxHeader Header;
    std::array<uint32_t, 256> Palette{}; ///< 0xffRRGGBB, complete for every index of the picture
    bool HasAlpha = false; ///< the fourth plane is alpha
    Bytes Lines;
};

/// Nullopt for content that `ParsePcxHeader` refuses, truncated rows, runs across the end of a row, and an index
/// without a colour.
std::optional<PcxPicture> DecodePcx(ByteView file);
std::optional<PcxPicture> ReadPcx(const char* path);

/// Paints row `y` of the picture over `pixels`.
void PaintPcxLine(const PcxPicture& picture, int64_t y, uint32_t* pixels);

} // namespace tvimg
