#include "screen/stretch.h"

#include <array>
#include <cstdint>

namespace {

constexpr int kWhite = 255;
constexpr int kBlockPixels = 256;

/// Weights of the channels in thousandths.
constexpr float kBlueWeight = 299;
constexpr float kGreenWeight = 587;
constexpr float kRedWeight = 114;
constexpr float kWhole = 1000;
constexpr float kOneOfWhole = 0.001F;

/// Rounds the formula as it stands, where exact arithmetic finds a half between `upper` and the number below it: in
/// 64-bit floats the sum can lie on either side.
uint32_t RoundedHalf(uint32_t pixel, uint32_t upper)
{
    const double blue = pixel & 0xFF;
    const double green = pixel >> 8 & 0xFF;
    const double red = pixel >> 16 & 0xFF;
    const double grey = green * 0.587 + blue * 0.299 + red * 0.114;
    const double half = upper - 0.5;
    if (grey != half)
        return grey > half ? upper : upper - 1;
    return upper & ~uint32_t{ 1 };
}

uint32_t Inverted(uint32_t grey)
{
    return 0xFF000000U | (kWhite - grey) * 0x010101U;
}

/// Sums in thousandths are whole numbers below 2^24, which 32-bit floats hold exactly, and the quotient of such a sum
/// and a half is never near enough to a whole number for its rounding to matter. Loops without branches, so that the
/// compiler makes vectors of them.
void ConvertBlock(uint32_t* pixels, int count)
{
    std::array<uint32_t, kBlockPixels> greys;
    std::array<uint32_t, kBlockPixels> halves;
    uint32_t anyHalf = 0;
    for (int at = 0; at < count; ++at) {
        const auto channel = [pixel = pixels[at]](
                                 int shift) { return static_cast<float>(static_cast<int32_t>(pixel >> shift & 0xFF)); };
        const float sum = channel(0) * kBlueWeight + channel(8) * kGreenWeight + channel(16) * kRedWeight + kWhole / 2;
        const auto grey = static_cast<int32_t>((sum + 0.5F) * kOneOfWhole);
        const uint32_t isHalf = sum == static_cast<float>(grey) * kWhole ? 1 : 0;
        greys[static_cast<size_t>(at)] = static_cast<uint32_t>(grey);
        halves[static_cast<size_t>(at)] = isHalf;
        anyHalf |= isHalf;
    }
    for (int at = 0; anyHalf != 0 && at < count; ++at) {
        uint32_t& grey = greys[static_cast<size_t>(at)];
        if (halves[static_cast<size_t>(at)] != 0)
            grey = RoundedHalf(pixels[at], grey);
    }
    for (int at = 0; at < count; ++at)
        pixels[at] = Inverted(greys[static_cast<size_t>(at)]);
}

} // namespace

QImage Stretch(const QImage& picture, QSize size)
{
    if (picture.size() == size)
        return picture;
    return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB32);
}

void ConvertToBlackAndWhite(QImage& picture)
{
    for (int row = 0; row < picture.height(); ++row) {
        auto* const pixels = reinterpret_cast<uint32_t*>(picture.scanLine(row));
        for (int column = 0; column < picture.width(); column += kBlockPixels)
            ConvertBlock(pixels + column, std::min(picture.width() - column, kBlockPixels));
    }
}
