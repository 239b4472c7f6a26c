#include "closed/pictures/metafile.h"
#include "tests/screen/metafile/metafileBuilder.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

std::optional<tvpicture::MetafileFrame> FrameOf(const QByteArray& bytes)
{
    return tvpicture::ReadMetafileFrame(
        { reinterpret_cast<const uint8_t*>(bytes.constData()), static_cast<size_t>(bytes.size()) });
}

QSize SizeOf(const MetafileBuilder& builder)
{
    const auto frame = FrameOf(builder.Bytes());
    return frame ? QSize(frame->Width, frame->Height) : QSize();
}

} // namespace

TEST(MetafileSize, OfPlaceableDependsOnUnitsPerInch)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Placeable(0, 0, 1280, 720, 96)), QSize(1280, 720));
    EXPECT_EQ(SizeOf(MetafileBuilder().Placeable(-720, 100, 2160, 820, 1440)), QSize(192, 48));
}

TEST(MetafileSize, OfPlaceableIsRoundedAndNeverZero)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Placeable(0, 0, 26, 28, 254)), QSize(10, 11));
    EXPECT_EQ(SizeOf(MetafileBuilder().Placeable(0, 0, 1, 1, 2540)), QSize(1, 1));
}

TEST(MetafileSize, AcceptsCornersInAnyOrder)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Placeable(100, 50, 0, 0, 96)), QSize(100, 50));
}

TEST(MetafileSize, OfBareIsItsFirstWindow)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Window(5, 6, 300, 200).Window(0, 0, 10, 10)), QSize(300, 200));
    EXPECT_EQ(SizeOf(MetafileBuilder().Window(0, 0, 300, -200)), QSize(300, 200));
}

TEST(MetafileSize, OfBareIsItsViewportIfSet)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Window(0, 0, 3000, 2000).Record(0x020E, { 100, 150 })), QSize(150, 100));
}

TEST(MetafileSize, AcceptsAnyViewportDirection)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Window(0, 0, 300, 200).Record(0x020E, { -100, -150 })), QSize(150, 100));
}

TEST(MetafileSize, OfBareStartsAtFirstOrigin)
{
    const auto frame = FrameOf(MetafileBuilder().Window(5, 6, 300, 200).Window(70, 80, 10, 10).Bytes());
    ASSERT_TRUE(frame);
    EXPECT_EQ(QPoint(frame->WindowX, frame->WindowY), QPoint(5, 6));
}

TEST(MetafileSize, OfManyUnitsIsReduced)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Window(0, 0, 2048, 100)), QSize(2048, 100));
    EXPECT_EQ(SizeOf(MetafileBuilder().Window(0, 0, 20480, 10240)), QSize(2048, 1024));
}

TEST(MetafileSize, WithoutWindowIsBoundingBox)
{
    MetafileBuilder builder;
    builder.Rectangle(10, 20, 60, 50).Record(0x0213, { 70, 99 });
    const auto frame = FrameOf(builder.Bytes());
    ASSERT_TRUE(frame);
    EXPECT_EQ(QPoint(frame->WindowX, frame->WindowY), QPoint(10, 20));
    EXPECT_EQ(QSize(frame->Width, frame->Height), QSize(90, 51));
}

TEST(MetafileSize, WithoutWindowIncludesTextPositions)
{
    const QByteArray three = QByteArray("abc\0", 4) + ByteWriter().Add16(80).Add16(90).Bytes();
    MetafileBuilder plain;
    EXPECT_EQ(SizeOf(plain.Rectangle(0, 0, 10, 10).Record(0x0521, { 3 }, three)), QSize(91, 81));
    MetafileBuilder cut;
    EXPECT_EQ(SizeOf(cut.Rectangle(0, 0, 10, 10).Record(0x0521, { 9 }, three)), QSize(10, 10));
    MetafileBuilder other;
    EXPECT_EQ(SizeOf(other.Rectangle(0, 0, 10, 10).Record(0x0A32, { 80, 90, 1, 0, 'a' })), QSize(91, 81));
}

TEST(MetafileSize, WithoutWindowIncludesEveryDrawingRecord)
{
    const QByteArray bytes(200, '\0');
    const auto sizeWith = [&](int function, std::initializer_list<int> words) {
        MetafileBuilder builder;
        return SizeOf(builder.Rectangle(0, 0, 10, 10).Record(function, words, bytes));
    };
    const auto sizeOfExactly = [](int function, std::initializer_list<int> words) {
        MetafileBuilder builder;
        return SizeOf(builder.Rectangle(0, 0, 10, 10).Record(function, words));
    };
    EXPECT_EQ(sizeOfExactly(0x0214, { 29, 39 }), QSize(40, 30)); // move
    EXPECT_EQ(sizeOfExactly(0x041F, { 0, 0, 29, 39 }), QSize(40, 30)); // pixel
    EXPECT_EQ(sizeOfExactly(0x0418, { 30, 40, 0, 0 }), QSize(40, 30)); // ellipse
    EXPECT_EQ(sizeOfExactly(0x061C, { 99, 99, 30, 40, 0, 0 }), QSize(40, 30)); // round rectangle
    for (const int arc : { 0x0817, 0x081A, 0x0830 })
        EXPECT_EQ(sizeOfExactly(arc, { 99, 99, 99, 99, 30, 40, 0, 0 }), QSize(40, 30)) << arc;
    EXPECT_EQ(sizeOfExactly(0x061D, { 0, 0, 25, 35, 5, 5 }), QSize(40, 30)); // pattern
    EXPECT_EQ(sizeWith(0x0922, { 0, 0, 99, 99, 25, 35, 5, 5 }), QSize(40, 30)); // bitmaps
    EXPECT_EQ(sizeWith(0x0940, { 0, 0, 99, 99, 25, 35, 5, 5 }), QSize(40, 30));
    EXPECT_EQ(sizeWith(0x0B23, { 0, 0, 99, 99, 99, 99, 25, 35, 5, 5 }), QSize(40, 30));
    EXPECT_EQ(sizeWith(0x0B41, { 0, 0, 99, 99, 99, 99, 25, 35, 5, 5 }), QSize(40, 30));
    EXPECT_EQ(sizeWith(0x0D33, { 0, 9, 9, 99, 99, 25, 35, 5, 5 }), QSize(40, 30));
    EXPECT_EQ(sizeWith(0x0F43, { 0, 0, 0, 99, 99, 99, 99, 25, 35, 5, 5 }), QSize(40, 30));
    EXPECT_EQ(sizeOfExactly(0x0324, { 2, 0, 0, 39, 29 }), QSize(40, 30)); // polygon
    EXPECT_EQ(sizeOfExactly(0x0325, { 2, 0, 0, 39, 29 }), QSize(40, 30));
    EXPECT_EQ(sizeOfExactly(0x0538, { 2, 1, 1, 0, 0, 39, 29 }), QSize(40, 30));
    MetafileBuilder counts; // not points
    EXPECT_EQ(SizeOf(counts.Record(0x0538, { 2, 1, 1, 20, 20, 39, 29 })), QSize(20, 10));
    EXPECT_EQ(sizeOfExactly(0x02FA, { 0, 99, 99, 99, 99 }), QSize(10, 10)); // a pen draws nothing
}

TEST(MetafileSize, OfPhysicalUnitsIsPhysicalSize)
{
    EXPECT_EQ(SizeOf(MetafileBuilder().Record(0x0103, { 2 }).Rectangle(0, 0, 254, 508)), QSize(96, 192));
    EXPECT_EQ(SizeOf(MetafileBuilder().Record(0x0103, { 3 }).Rectangle(0, 0, 2540, 254)), QSize(96, 10));
    EXPECT_EQ(SizeOf(MetafileBuilder().Record(0x0103, { 4 }).Rectangle(0, 0, 100, 200)), QSize(96, 192));
    EXPECT_EQ(SizeOf(MetafileBuilder().Record(0x0103, { 5 }).Rectangle(0, 0, 1000, 2000)), QSize(96, 192));
    EXPECT_EQ(SizeOf(MetafileBuilder().Record(0x0103, { 6 }).Rectangle(0, 0, 1440, 720)), QSize(96, 48));
}

TEST(MetafileSize, IsUnknownIfNothingIsDrawn)
{
    EXPECT_FALSE(FrameOf(MetafileBuilder().Bytes()));
    EXPECT_FALSE(FrameOf(MetafileBuilder().Record(0x0103, { 8 }).Bytes()));
}

TEST(MetafileSize, OfZeroIsRefused)
{
    EXPECT_FALSE(FrameOf(MetafileBuilder().Placeable(7, 0, 7, 10, 96).Bytes()));
    EXPECT_FALSE(FrameOf(MetafileBuilder().Placeable(0, 7, 10, 7, 96).Bytes()));
    EXPECT_FALSE(FrameOf(MetafileBuilder().Placeable(0, 0, 10, 10, 0).Bytes()));
}

TEST(MetafileHeader, MustBeComplete)
{
    const QByteArray placeable = MetafileBuilder(QSize(10, 10)).Bytes();
    for (int length = 0; length < 40; ++length)
        EXPECT_FALSE(FrameOf(placeable.left(length))) << length;
    const QByteArray plain = MetafileBuilder().Window(0, 0, 5, 5).Bytes();
    for (int length = 0; length < plain.size(); ++length)
        EXPECT_FALSE(FrameOf(plain.left(length))) << length;
}

TEST(MetafileHeader, MustBeOfKnownType)
{
    const QByteArray plain = MetafileBuilder().Window(0, 0, 5, 5).Bytes();
    const std::pair<int, char> changes[] = { { 0, 3 }, { 2, 10 }, { 5, 2 } };
    for (const auto& [at, value] : changes) {
        QByteArray other = plain;
        other[at] = value;
        EXPECT_FALSE(FrameOf(other)) << at;
    }
}

TEST(MetafileHeader, MayBeOnDiskAndVersionOne)
{
    QByteArray plain = MetafileBuilder().Window(0, 0, 5, 5).Bytes();
    plain[0] = 2;
    EXPECT_TRUE(FrameOf(plain));
    plain[5] = 1;
    EXPECT_TRUE(FrameOf(plain));
}

TEST(MetafileHeader, MayHaveWrongChecksum)
{
    QByteArray bytes = MetafileBuilder(QSize(10, 20)).Bytes(); // as several programs write it
    bytes[20] = 0;
    bytes[21] = 0;
    ASSERT_TRUE(FrameOf(bytes));
    EXPECT_EQ(FrameOf(bytes)->Height, 20);
}

TEST(MetafileRecords, EndAtEndRecord)
{
    const QByteArray bytes = MetafileBuilder().Window(0, 0, 5, 5).Bytes() + "rest";
    EXPECT_TRUE(FrameOf(bytes));
}

TEST(MetafileRecords, AreBrokenIfOneIsShorterThanItsHeader)
{
    QByteArray bytes = MetafileBuilder().Window(0, 0, 5, 5).Bytes();
    bytes[18] = 2;
    EXPECT_FALSE(FrameOf(bytes));
    bytes[18] = 0;
    EXPECT_FALSE(FrameOf(bytes));
}

TEST(MetafileRecords, ReadZeroBeyondTheirEnd)
{
    const uint8_t bytes[] = { 1, 2, 3 };
    const tvpicture::MetafileParameters p{ tvpicture::ByteView(bytes) };
    EXPECT_EQ(p.Words(), 1);
    EXPECT_EQ(p.Word(0), 0x0201);
    EXPECT_EQ(p.Word(1), 0);
    EXPECT_EQ(p.Word(-1), 0);
    EXPECT_EQ(p.Long(0), 0x0201U);
    EXPECT_EQ(p.From(1).size(), 1U);
    EXPECT_TRUE(p.From(2).empty());
}

} // namespace tarvik
