// tests/closed/imgfixture.h: the picture module through its table of operations, and pictures to try it with.
#pragma once

#include "closed/tvimg.h"
#include "tests/closed/folderfixture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Pixels 0xffRRGGBB in memory, whose lines may be further apart than they are long.
class Picture {
public:
    Picture() = default;
    Picture(int width, int height, uint32_t color = 0xffffffff, int stride = 0);

    /// The same with every pixel from a function of its place.
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

/// A picture with `colors` different colours, at most one a pixel, each of them there.
Picture PictureOfColors(int width, int height, int colors);

/// A picture with more than 256 colours, among them runs and lone pixels.
Picture ColorfulPicture(int width, int height);

class ImgTest : public FolderTest {
protected:
    ImgTest();

    [[nodiscard]] std::string Path(const std::string& name = "picture") const
    {
        return FolderTest::Path(name);
    }

    /// Puts bytes into a file and gives its path.
    [[nodiscard]] std::string Store(const FileBytes& bytes, const std::string& name = "picture") const;

    /// What `ImgGetFileInfo` tells; all 0 when it refuses the file.
    [[nodiscard]] ScreenImageInfo Info(const FileBytes& bytes) const;
    [[nodiscard]] bool HasInfo(const FileBytes& bytes) const
    {
        return Info(bytes).Width != 0;
    }

    /// Decodes into a context of the size that `ImgGetFileInfo` tells, filled with `background`; a picture without a
    /// size when any of it is refused. A refused file leaves the context as it was, or white.
    [[nodiscard]] Picture DecodePng(const FileBytes& bytes, uint32_t background = 0xffffffff) const;
    [[nodiscard]] Picture DecodePcx(const FileBytes& bytes, uint32_t background = 0xffffffff) const;

    TvImgApi img{};
};

bool operator==(const ScreenImageInfo& left, const ScreenImageInfo& right);
void PrintTo(const ScreenImageInfo& info, std::ostream* stream);

/// A PNG file put together by hand: any header, any chunks.
struct PngFile {
    uint32_t Width = 1;
    uint32_t Height = 1;
    uint8_t Bits = 8;
    uint8_t ColorType = 2;
    uint8_t Interlace = 0;
    uint8_t Filter = 0; ///< of every line
    FileBytes Palette; ///< three bytes a colour; empty: no such chunk
    FileBytes Transparency;
    FileBytes Extra; ///< whole chunks before the pixels

    /// With the samples of all pixels, `channels` a pixel, packed as the header says. Interlaced where it says so.
    [[nodiscard]] FileBytes With(const std::function<unsigned(int x, int y, unsigned channel)>& sample) const;

    /// With these bytes in place of lines.
    [[nodiscard]] FileBytes WithLines(const FileBytes& lines) const;

    static FileBytes Chunk(const std::string& name, const FileBytes& content);
};

/// A PCX file put together by hand.
struct PcxFile {
    int Width = 1;
    int Height = 1;
    uint8_t Version = 5;
    uint8_t Encoding = 1;
    uint8_t Bits = 8;
    uint8_t Planes = 1;
    int Filling = 0; ///< bytes at the end of each line of a plane
    uint16_t PaletteInfo = 1;
    std::vector<uint32_t> HeaderColors; ///< at most 16
    std::vector<uint32_t> LargePalette; ///< 256, or none

    [[nodiscard]] FileBytes Header() const;

    /// With the value of each pixel: `Bits` of it for each plane, the first plane lowest. Coded without any run.
    [[nodiscard]] FileBytes With(const std::function<uint32_t(int x, int y)>& value) const;

    /// With these bytes in place of coded lines.
    [[nodiscard]] FileBytes WithData(const FileBytes& data) const;
};
