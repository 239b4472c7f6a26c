#include "screen/stretch.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// The formula in 64-bit floats, rounded as the platform rounds: halves to even.
uint32_t Expected(uint32_t pixel)
{
    const double first = pixel & 0xFF;
    const double second = pixel >> 8 & 0xFF;
    const double third = pixel >> 16 & 0xFF;
    const auto grey = static_cast<uint32_t>(std::nearbyint(second * 0.587 + first * 0.299 + third * 0.114));
    return 0xFF000000U | (255 - grey) * 0x010101U;
}

} // namespace

TEST(BlackAndWhite, IsTheFormulaForEveryColour)
{
    constexpr int kSide = 4096;
    QImage picture(kSide, kSide, QImage::Format_RGB32);
    uint32_t colour = 0xFF000000U;
    for (int row = 0; row < kSide; ++row) {
        auto* const pixels = reinterpret_cast<uint32_t*>(picture.scanLine(row));
        for (int column = 0; column < kSide; ++column)
            pixels[column] = colour++;
    }
    ConvertToBlackAndWhite(picture);
    colour = 0xFF000000U;
    int wrong = 0;
    for (int row = 0; row < kSide; ++row) {
        const auto* const pixels = reinterpret_cast<const uint32_t*>(picture.constScanLine(row));
        for (int column = 0; column < kSide; ++column)
            wrong += pixels[column] == Expected(colour++) ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0);
}

TEST(BlackAndWhite, LeavesAPictureThatSharesThePixels)
{
    QImage picture(3, 1, QImage::Format_RGB32);
    picture.fill(Qt::white);
    const QImage other = picture;
    ConvertToBlackAndWhite(picture);
    EXPECT_EQ(picture.pixel(2, 0), 0xFF000000U);
    EXPECT_EQ(other.pixel(2, 0), 0xFFFFFFFFU);
}

TEST(BlackAndWhite, TakesRowsOfAnyWidth)
{
    for (const int width : { 1, 255, 256, 257, 600 }) {
        QImage picture(width, 2, QImage::Format_RGB32);
        picture.fill(Qt::black);
        ConvertToBlackAndWhite(picture);
        EXPECT_EQ(picture.pixel(width - 1, 1), 0xFFFFFFFFU) << width;
    }
}

TEST(BlackAndWhite, DoesNothingToAPictureWithoutPixels)
{
    QImage picture;
    ConvertToBlackAndWhite(picture);
    EXPECT_TRUE(picture.isNull());
}

TEST(Stretching, GivesThePictureItselfAtItsOwnSize)
{
    QImage picture(7, 5, QImage::Format_RGB32);
    picture.fill(Qt::red);
    EXPECT_EQ(Stretch(picture, { 7, 5 }).constBits(), picture.constBits());
}

TEST(Stretching, FillsTheWholeSize)
{
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (const QSize size : { QSize(1, 1), QSize(3, 20), QSize(16, 16) }) {
        const QImage stretched = Stretch(picture, size);
        EXPECT_EQ(stretched.size(), size);
        EXPECT_EQ(stretched.format(), QImage::Format_RGB32);
        EXPECT_EQ(stretched.pixel(size.width() - 1, size.height() - 1), 0xFFFF0000U);
    }
}
