#include "screen/bitmap/stretch.h"

#include <gtest/gtest.h>

namespace tarvik {

TEST(BlackAndWhite, LeavesPictureThatSharesPixels)
{
    QImage picture(3, 1, QImage::Format_RGB32);
    picture.fill(Qt::white);
    const QImage other = picture;
    ConvertToBlackAndWhite(picture);
    EXPECT_EQ(picture.pixel(2, 0), 0xFF000000U);
    EXPECT_EQ(other.pixel(2, 0), 0xFFFFFFFFU);
}

TEST(BlackAndWhite, HandlesRowsOfAnyWidth)
{
    for (const int width : { 1, 255, 256, 257, 600 }) {
        QImage picture(width, 2, QImage::Format_RGB32);
        picture.fill(Qt::black);
        ConvertToBlackAndWhite(picture);
        EXPECT_EQ(picture.pixel(width - 1, 1), 0xFFFFFFFFU) << width;
    }
}

TEST(BlackAndWhite, IgnoresNullPicture)
{
    QImage picture;
    ConvertToBlackAndWhite(picture);
    EXPECT_TRUE(picture.isNull());
}

TEST(Stretching, ReturnsSamePictureAtItsOwnSize)
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

TEST(Stretching, ReductionKeepsThinLines)
{
    for (int line = 0; line < 30; ++line) {
        QImage picture(30, 30, QImage::Format_RGB32);
        picture.fill(Qt::white);
        for (int along = 0; along < 30; ++along) {
            picture.setPixel(line, along, 0xFF000000U);
            picture.setPixel(along, line, 0xFF000000U);
        }
        const QImage reduced = Stretch(picture, { 10, 10 });
        const int other = line / 3 == 5 ? 2 : 5; // away from the crossing
        EXPECT_LT(qGray(reduced.pixel(line / 3, other)), 215) << "upright line at " << line;
        EXPECT_LT(qGray(reduced.pixel(other, line / 3)), 215) << "level line at " << line;
    }
}

} // namespace tarvik
