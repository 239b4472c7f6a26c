#include "screen/metafile/metafileWriter.h"

#include "closed/tvimg.h"
#include "screen/metafile/metafileReader.h"
#include "tests/screen/metafile/metafileBuilder.h"
#include "tests/support/fixture.h"

#include <QtEndian>

namespace tarvik {

namespace {

/// Every pixel has a different colour.
QImage Colourful(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, qRgb(7 * x % 256, 11 * y % 256, (x + y) % 256));
    }
    return picture;
}

int Word(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

quint32 Long(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

} // namespace

TEST(MetafileWriter, StartsWithPlaceableHeader)
{
    const QByteArray bytes = MetafileBytes(Colourful(642, 442));
    const QByteArray header = ByteWriter()
                                  .Add32(0x9AC6CDD7)
                                  .Add16(0)
                                  .Add16(0)
                                  .Add16(0)
                                  .Add16(642)
                                  .Add16(442)
                                  .Add16(96)
                                  .Add32(0)
                                  .Add16(0x5711 ^ 642 ^ 442 ^ 96)
                                  .Bytes();
    EXPECT_EQ(bytes.left(22).toHex(), header.toHex());
}

TEST(MetafileWriter, ChecksumIsExclusiveOrOfTenWords)
{
    const QByteArray bytes = MetafileBytes(Colourful(123, 45));
    int check = 0;
    for (qsizetype at = 0; at < 20; at += 2)
        check ^= Word(bytes, at);
    EXPECT_EQ(Word(bytes, 20), check);
}

TEST(MetafileWriter, GivesLengthsInWords)
{
    const QByteArray bytes = MetafileBytes(Colourful(5, 3));
    const qsizetype copyBytes = 22 + 40 + 3 * 16;
    EXPECT_EQ(Word(bytes, 22), 1);
    EXPECT_EQ(Word(bytes, 24), 9);
    EXPECT_EQ(Word(bytes, 26), 0x0300);
    EXPECT_EQ(qsizetype{ Long(bytes, 28) } * 2, bytes.size() - 22);
    EXPECT_EQ(Word(bytes, 32), 0);
    EXPECT_EQ(qsizetype{ Long(bytes, 34) } * 2, copyBytes);
    EXPECT_EQ(Word(bytes, 38), 0);
}

TEST(MetafileWriter, WritesModeExtentPictureAndEnd)
{
    const QByteArray bytes = MetafileBytes(Colourful(5, 3));
    const QByteArray begin = ByteWriter()
                                 .Add32(4)
                                 .Add16(0x0103)
                                 .Add16(8)
                                 .Add32(5)
                                 .Add16(0x020C)
                                 .Add16(3)
                                 .Add16(5)
                                 .Add32((22 + 40 + 48) / 2)
                                 .Add16(0x0940)
                                 .Add32(0x00CC0020)
                                 .Add16(0)
                                 .Add16(0)
                                 .Add16(3)
                                 .Add16(5)
                                 .Add16(0)
                                 .Add16(0)
                                 .Bytes();
    EXPECT_EQ(bytes.mid(40, begin.size()).toHex(), begin.toHex());
    const QByteArray dib = ByteWriter()
                               .Add32(40)
                               .Add32(5)
                               .Add32(3)
                               .Add16(1)
                               .Add16(24)
                               .Add32(0)
                               .Add32(48)
                               .Add(QByteArray(16, '\0'))
                               .Bytes();
    EXPECT_EQ(bytes.mid(40 + begin.size(), 40).toHex(), dib.toHex());
    EXPECT_EQ(bytes.mid(40 + begin.size() + 40 + 48).toHex(), ByteWriter().Add32(3).Add16(0).Bytes().toHex());
    EXPECT_EQ(bytes.mid(40 + begin.size() + 40, 4).toHex(),
        QByteArray("02160003")); // blue, green, red; then blue
    for (qsizetype line = 0; line < 3; ++line)
        EXPECT_EQ(bytes[40 + begin.size() + 40 + 16 * line + 15], 0) << line; // the padding
}

TEST(MetafileWriter, RoundTripsEveryPixel)
{
    for (const QSize size : { QSize(1, 1), QSize(2, 3), QSize(3, 2), QSize(643, 442) }) {
        const QImage picture = Colourful(size.width(), size.height());
        const auto read = ReadMetafile(MetafileBytes(picture), Qt::magenta);
        ASSERT_TRUE(read);
        EXPECT_EQ(*read, picture) << size.width();
    }
}

TEST(MetafileWriter, WritesNothingForNullOrTooLargePicture)
{
    EXPECT_TRUE(MetafileBytes(QImage()).isEmpty());
    EXPECT_TRUE(MetafileBytes(QImage(TVIMG_MAX_SIDE + 1, 1, QImage::Format_RGB32)).isEmpty());
    EXPECT_TRUE(MetafileBytes(QImage(1, TVIMG_MAX_SIDE + 1, QImage::Format_RGB32)).isEmpty());
    EXPECT_FALSE(MetafileBytes(QImage(TVIMG_MAX_SIDE, 1, QImage::Format_RGB32)).isEmpty());
}

class MetafileFile : public ProgramTest { };

TEST_F(MetafileFile, ContainsTheBytes)
{
    const QImage picture = Colourful(20, 10);
    ASSERT_TRUE(WriteMetafile(FilePath("a.wmf"), picture));
    EXPECT_EQ(Contents(FilePath("a.wmf")), MetafileBytes(picture));
}

TEST_F(MetafileFile, IsUnchangedIfThereIsNothingToWrite)
{
    Store(FilePath("a.wmf"), "old");
    EXPECT_FALSE(WriteMetafile(FilePath("a.wmf"), QImage()));
    EXPECT_EQ(Contents(FilePath("a.wmf")), "old");
}

TEST_F(MetafileFile, IsNotWrittenToMissingFolder)
{
    EXPECT_FALSE(WriteMetafile(FilePath("none/a.wmf"), Colourful(2, 2)));
}

} // namespace tarvik
