// tests/closed/imgfixture.h: the picture module through its table of operations, and sample pictures.
#pragma once

#include "closed/tvimg.h"
#include "tests/closed/folderfixture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Pixels 0xffRRGGBB in memory; the stride may exceed the width.
class Picture {
public:
    Picture() = default;
    Picture(int width, int height, uint32_t color = 0xffffffff, int stride = 0);

    /// As above, with each pixel computed from its coordinates.
    static Picture From(int width, int height, const std::function<uint32_t(int x, int y)>& color);

    [[nodiscard]] TvImgContext Context()
    {
        return { pixels_.data(), Width, Height, Stride };
    }
    [[nodiscard]] uint32_t& At(int x, int y)
    {
        return pixels_[static_cast<size_t>(y) * static_cast<size_t>(Stride) + static_cast<size_t>(x)];
    }
    [[nodiscard]] const std::vector<uint32_t>& Pixels() const
    {
        return pixels_;
    }
    [[nodiscard]] bool IsAll(uint32_t color) const;
    friend bool operator==(const Picture&, const Picture&) = default;

    int Width = 0;
    int Height = 0;
    int Stride = 0;

private:
    std::vector<uint32_t> pixels_;
};

/// A picture that uses exactly `colors` different colours, at most one per pixel.
Picture PictureOfColors(int width, int height, int colors);

/// A picture with more than 256 colours, with runs and isolated pixels.
Picture ColorfulPicture(int width, int height);

class ImgTest : public FolderTest {
protected:
    ImgTest();

    [[nodiscard]] std::string Path(const std::string& name = "picture") const
    {
        return FolderTest::Path(name);
    }

    /// Writes bytes to a file and returns its path.
    [[nodiscard]] std::string Store(const FileBytes& bytes, const std::string& name = "picture") const;

    /// The result of `ImgGetFileInfo`; all 0 if it refuses the file.
    [[nodiscard]] ScreenImageInfo Info(const FileBytes& bytes) const;
    [[nodiscard]] bool HasInfo(const FileBytes& bytes) const
    {
        return Info(bytes).Width != 0;
    }

    /// Decodes into a context of the size that `ImgGetFileInfo` gives, filled with `background`; an empty picture if
    /// either is refused. A refused file must leave the context unchanged, or white.
    [[nodiscard]] Picture DecodePng(const FileBytes& bytes, uint32_t background = 0xffffffff) const;
    [[nodiscard]] Picture DecodePcx(const FileBytes& bytes, uint32_t background = 0xffffffff) const;

    TvImgApi img{};
};

bool operator==(const ScreenImageInfo& left, const ScreenImageInfo& right);
void PrintTo(const ScreenImageInfo& info, std::ostream* stream);

/// A hand-made PNG file with any header and any chunks.
struct PngFile {
    uint32_t Width = 1;
    uint32_t Height = 1;
    uint8_t Bits = 8;
    uint8_t ColorType = 2;
    uint8_t Interlace = 0;
    uint8_t Filter = 0; ///< of every row
    FileBytes Palette; ///< three bytes per colour; no chunk if empty
    FileBytes Transparency;
    FileBytes Extra; ///< complete chunks before the pixels

    /// The file with the given samples, `channels` per pixel, packed and interlaced as the header says.
    [[nodiscard]] FileBytes With(const std::function<unsigned(int x, int y, unsigned channel)>& sample) const;

    /// The file with these bytes as its rows.
    [[nodiscard]] FileBytes WithLines(const FileBytes& lines) const;

    static FileBytes Chunk(const std::string& name, const FileBytes& content);
};

/// A hand-made PCX file.
struct PcxFile {
    int Width = 1;
    int Height = 1;
    uint8_t Version = 5;
    uint8_t Encoding = 1;
    uint8_t Bits = 8;
    uint8_t Planes = 1;
    int Filling = 0; ///< padding bytes per row and plane
    uint16_t PaletteInfo = 1;
    std::vector<uint32_t> HeaderColors; ///< at most 16
    std::vector<uint32_t> LargePalette; ///< 256 or none

    [[nodiscard]] FileBytes Header() const;

    /// The file with the given pixels: `Bits` of the value for each plane, first plane lowest. Encoded without runs.
    [[nodiscard]] FileBytes With(const std::function<uint32_t(int x, int y)>& value) const;

    /// The file with these bytes as its encoded rows.
    [[nodiscard]] FileBytes WithData(const FileBytes& data) const;
};
