// closed/tvimg/pcxReader.h: reads PCX pictures of every version: 1, 2, 4 and 8 bits in 1 to 4 planes, run-length coded
// or plain. Up to 8 bits in all are an index: the planes from the lowest bits to the highest, colours from the 16 of
// the header or the 256 behind the picture. More than 8 bits are red, green, blue and how opaque, a plane each.
#pragma once

#include "closed/tvimg/picture.h"

#include <array>
#include <optional>

namespace tvimg {

struct PcxHeader {
    PictureSize Size;
    unsigned Version = 0;
    bool IsRunLength = true;
    unsigned Bits = 0; ///< of a pixel in one plane
    unsigned Planes = 0;
    size_t PlaneBytes = 0; ///< of one line in one plane, filling included
    bool IsGrey = false;
    bool HasColors = false; ///< the file has a palette of its own; the standard one is in its place otherwise
    std::array<uint32_t, 16> Palette{}; ///< 0xffRRGGBB

    /// Bytes of a line in one plane without filling.
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

/// Nothing for other content, for a header that contradicts itself, for a size beyond the limits, and where the file is
/// too short for all its lines.
std::optional<PcxHeader> ParsePcxHeader(ByteView head, uint64_t fileBytes);

/// A decoded picture. Lines hold the planes one after the other, without filling.
struct PcxPicture {
    PcxHeader Header;
    std::array<uint32_t, 256> Palette{}; ///< 0xffRRGGBB, complete for every index of the picture
    bool HasAlpha = false; ///< the fourth plane says how opaque the pixels are
    Bytes Lines;
};

/// Nothing for content that `ParsePcxHeader` refuses, for lines that end too early, for runs across the end of a line,
/// and for an index that has no colour.
std::optional<PcxPicture> DecodePcx(ByteView file);
std::optional<PcxPicture> ReadPcx(const char* path);

/// Paints the line `y` of the picture; transparent places let `pixels` through.
void PaintPcxLine(const PcxPicture& picture, int64_t y, uint32_t* pixels);

} // namespace tvimg
