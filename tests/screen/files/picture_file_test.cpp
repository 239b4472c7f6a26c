#include "screen/files/pictureFile.h"

#include "tests/support/fixture.h"

#include <QtEndian>

#include <array>
#include <memory>
#include <new>

#if defined(Q_OS_LINUX)
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace tarvik {

namespace {

/// Reading and writing of picture files.
class PictureFiles : public ProgramTest {
protected:
    QString File(const char* name) const
    {
        return FilePath(QLatin1String(name));
    }

    QString StorePicture(const char* name, ImageKind kind, QSize size) const
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        EXPECT_TRUE(EncodePicture(File(name), kind, picture));
        return File(name);
    }
};

struct KindCase {
    const char* Name;
    ImageKind Kind;
};

constexpr std::array<KindCase, 4> kCases{ {
    { "a.bmp", ImageKind::Bitmap },
    { "a.pcx", ImageKind::Pcx },
    { "a.png", ImageKind::Png },
    { "a.wmf", ImageKind::Metafile },
} };

constexpr quint32 kPaper = 0x102030; // blue, green, red
constexpr QRgb kPaperColour = 0xFF302010;

void Add16(QByteArray& bytes, int value)
{
    bytes.append(2, '\0');
    qToLittleEndian(static_cast<quint16>(value), bytes.data() + bytes.size() - 2);
}

void Add32(QByteArray& bytes, quint32 value)
{
    Add16(bytes, static_cast<int>(value & 0xFFFF));
    Add16(bytes, static_cast<int>(value >> 16));
}

/// Two pixels of 32 bits, the first transparent, the second red.
QByteArray TransparentBitmap()
{
    QByteArray bytes("BM");
    for (const quint32 value : { 14U + 108 + 8, 0U, 14U + 108, 108U, 2U, 1U, 0x00200001U, 3U, 8U, 0U, 0U, 0U, 0U,
             0xFF0000U, 0xFF00U, 0xFFU, 0xFF000000U })
        Add32(bytes, value);
    bytes.append(14 + 108 - bytes.size(), '\0');
    Add32(bytes, 0);
    Add32(bytes, 0xFFFF0000);
    return bytes;
}

/// As above in four planes of 8 bits.
QByteArray TransparentPcx()
{
    QByteArray bytes(128, '\0');
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[3] = 8;
    bytes[8] = 1;
    bytes[65] = 4;
    bytes[66] = 2;
    return bytes + QByteArray("\0\xFF\0\0\0\0\0\xFF", 8);
}

/// A metafile of 2 by 1 pixels that sets the second one.
QByteArray MetafileWithAPixel()
{
    QByteArray bytes;
    for (const quint32 value : { 0x9AC6CDD7U, 0U, 0x00020000U, 0x00600001U, 0U })
        Add32(bytes, value);
    Add16(bytes, 0);
    for (const int word : { 1, 9, 0x0300, 9 + 7 + 3, 0, 0, 7, 0, 0 })
        Add16(bytes, word);
    for (const int word : { 7, 0, 0x041F, 0x00FF, 0, 0, 1 })
        Add16(bytes, word);
    for (const int word : { 3, 0, 0 })
        Add16(bytes, word);
    return bytes;
}

} // namespace

TEST_F(PictureFiles, OfUnexpectedSizeAreRefused)
{
    for (const KindCase& kind : kCases) {
        const QString path = StorePicture(kind.Name, kind.Kind, { 20, 10 });
        EXPECT_FALSE(DecodePicture(path, kind.Kind, { 20, 10 }, kPaper).isNull()) << kind.Name;
        EXPECT_TRUE(DecodePicture(path, kind.Kind, { 19, 10 }, kPaper).isNull()) << kind.Name;
        EXPECT_TRUE(DecodePicture(path, kind.Kind, { 20, 9 }, kPaper).isNull()) << kind.Name;
    }
}

TEST_F(PictureFiles, ShowPaperWhereTransparent)
{
    QImage transparent(2, 1, QImage::Format_ARGB32);
    transparent.fill(Qt::transparent);
    transparent.setPixelColor(1, 0, Qt::red);
    ASSERT_TRUE(transparent.save(File("a.png")));
    Store(File("a.bmp"), TransparentBitmap());
    Store(File("a.pcx"), TransparentPcx());
    Store(File("a.wmf"), MetafileWithAPixel());
    for (const KindCase& kind : kCases) {
        ASSERT_EQ(PictureSize(File(kind.Name)), QSize(2, 1)) << kind.Name;
        const QImage picture = DecodePicture(File(kind.Name), kind.Kind, { 2, 1 }, kPaper);
        ASSERT_FALSE(picture.isNull()) << kind.Name;
        EXPECT_EQ(picture.format(), QImage::Format_RGB32) << kind.Name;
        EXPECT_EQ(picture.pixel(0, 0), kPaperColour) << kind.Name;
        EXPECT_EQ(picture.pixel(1, 0), 0xFFFF0000U) << kind.Name;
    }
}

TEST_F(PictureFiles, OfUnknownKindAreNeitherReadNorWritten)
{
    const QString path = StorePicture("a.png", ImageKind::Png, { 20, 10 });
    const QByteArray before = Contents(path);
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (const int number : { 0, 5 }) {
        const auto kind = static_cast<ImageKind>(number);
        EXPECT_TRUE(DecodePicture(path, kind, { 20, 10 }, kPaper).isNull()) << number;
        EXPECT_FALSE(EncodePicture(path, kind, picture)) << number;
    }
    EXPECT_EQ(Contents(path), before);
}

TEST_F(PictureFiles, AreUnchangedAfterFailedWrite)
{
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (const KindCase& kind : kCases) {
        const QString path = StorePicture(kind.Name, kind.Kind, { 20, 10 });
        const QByteArray before = Contents(path);
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadUser));
        EXPECT_FALSE(EncodePicture(path, kind.Kind, picture)) << kind.Name;
        EXPECT_EQ(Contents(path), before) << kind.Name;
    }
    EXPECT_EQ(QDir(Folder()).entryList(QDir::Files | QDir::Hidden).size(), 4);
}

TEST_F(PictureFiles, LongerThanAnyPictureAreNotRead)
{
    for (const KindCase& kind : { KindCase{ "a.bmp", ImageKind::Bitmap }, KindCase{ "a.wmf", ImageKind::Metafile } }) {
        QFile file(StorePicture(kind.Name, kind.Kind, { 20, 10 }));
        ASSERT_TRUE(file.resize(file.size() + 1000)); // zeros after the picture
        EXPECT_FALSE(DecodePicture(file.fileName(), kind.Kind, { 20, 10 }, kPaper).isNull()) << kind.Name;
        ASSERT_TRUE(file.resize(qint64{ 1 } << 30));
        EXPECT_TRUE(DecodePicture(file.fileName(), kind.Kind, { 20, 10 }, kPaper).isNull()) << kind.Name;
    }
}

// Address sanitizer reserves all address space and aborts on exhaustion.
#if defined(Q_OS_LINUX) && !defined(__SANITIZE_ADDRESS__)

namespace {

/// Uses up freed heap memory, to which no limit applies.
void UseUpHeap()
{
    constexpr size_t kPiece = 1 << 20;
    static std::array<std::unique_ptr<char[]>, 10000> pieces; // static, to need no heap
    for (auto& piece : pieces) {
        piece.reset(new (std::nothrow) char[kPiece]);
        if (piece == nullptr)
            return;
    }
}

void SetLimit(rlim_t bytes)
{
    const rlimit limit{ bytes, RLIM_INFINITY };
    setrlimit(RLIMIT_AS, &limit);
}

/// Limits the process to `more` bytes above its current size.
void LimitMemory(rlim_t more)
{
    QFile sizes(QStringLiteral("/proc/self/statm"));
    if (!sizes.open(QIODevice::ReadOnly))
        _exit(2);
    const rlim_t pages = sizes.readAll().split(' ').first().toULongLong();
    const rlim_t bytes = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    SetLimit(bytes);
    UseUpHeap();
    SetLimit(bytes + more);
}

constexpr rlim_t kLittle = 16 << 20;

} // namespace

TEST_F(PictureFiles, AreNotReadWithoutMemory)
{
    for (const KindCase& kind : kCases) {
        const QSize size(4000, 3000); // 48 MB
        const QString path = StorePicture(kind.Name, kind.Kind, size);
        const auto read = [&] {
            LimitMemory(kLittle);
            _exit(DecodePicture(path, kind.Kind, size, kPaper).isNull() ? 0 : 1);
        };
        EXPECT_EXIT(read(), testing::ExitedWithCode(0), "") << kind.Name;
    }
}

TEST_F(PictureFiles, AreNotWrittenWithoutMemoryUnlessInPieces)
{
    QImage picture(4000, 3000, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x & 0xFF, y & 0xFF, x * y & 0xFF));
    }
    for (const KindCase& kind : kCases) {
        const bool isInPieces =
            kind.Kind == ImageKind::Bitmap || kind.Kind == ImageKind::Pcx; // which need little memory
        Store(File(kind.Name), "old");
        const auto write = [&] {
            LimitMemory(kLittle);
            _exit(EncodePicture(File(kind.Name), kind.Kind, picture) ? 1 : 0);
        };
        EXPECT_EXIT(write(), testing::ExitedWithCode(isInPieces ? 1 : 0), "") << kind.Name;
        if (isInPieces)
            EXPECT_EQ(DecodePicture(File(kind.Name), kind.Kind, picture.size(), kPaper), picture) << kind.Name;
        else
            EXPECT_EQ(Contents(File(kind.Name)), "old") << kind.Name;
    }
}

#endif

} // namespace tarvik
