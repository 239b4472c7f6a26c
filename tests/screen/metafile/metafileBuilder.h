// tests/screen/metafile/metafileBuilder.h: builds metafiles record by record.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <initializer_list>
#include <vector>

namespace tarvik {

/// Appends little-endian numbers.
class ByteWriter {
public:
    ByteWriter& Add8(int value);
    ByteWriter& Add16(int value);
    ByteWriter& Add32(qint64 value);
    ByteWriter& Add(const QByteArray& bytes);

    [[nodiscard]] const QByteArray& Bytes() const
    {
        return bytes_;
    }

private:
    QByteArray bytes_;
};

/// A device-independent bitmap: a 40-byte header, colours, then the given pixels.
struct TestDib {
    int Width = 1;
    int Height = 1; ///< negative for top-down
    int BitCount = 24;
    int Compression = 0;
    std::vector<QRgb> Colours;
    QByteArray Pixels;
    int ColoursUsed = -1; ///< -1: the number of colours

    [[nodiscard]] QByteArray Bytes() const;
};

/// A 24-bit bitmap of a picture.
QByteArray DibOf(const QImage& picture);

class MetafileBuilder {
public:
    /// A placeable metafile with a window of this size, one pixel per unit.
    explicit MetafileBuilder(QSize size);

    /// A metafile without placeable header.
    MetafileBuilder();

    MetafileBuilder& Placeable(int left, int top, int right, int bottom, int unitsPerInch);

    MetafileBuilder& Record(int function, std::initializer_list<int> words, const QByteArray& more = {});

    // Common records. Colours are 0x00BBGGRR.
    MetafileBuilder& Window(int x, int y, int width, int height);
    MetafileBuilder& Pen(int style, int width, int colour); ///< created as the next object
    MetafileBuilder& Brush(int style, int colour, int hatch = 0);
    MetafileBuilder& Font(int height, const QByteArray& face, int escapement = 0, int characterSet = 0);
    MetafileBuilder& Select(int number);
    MetafileBuilder& Delete(int number);
    MetafileBuilder& Rectangle(int left, int top, int right, int bottom);
    MetafileBuilder& Region(std::initializer_list<QRect> rectangles); ///< one scan each

    /// The file, terminated by the end record.
    [[nodiscard]] QByteArray Bytes() const;

private:
    QByteArray placeable_;
    QByteArray records_;
};

inline constexpr int kRed = 0x0000FF;
inline constexpr int kGreen = 0x00FF00;
inline constexpr int kBlue = 0xFF0000;
inline constexpr int kBlack = 0;
inline constexpr int kWhite = 0xFFFFFF;

inline constexpr int kNoPen = 5;
inline constexpr int kHollow = 1;
inline constexpr int kHatched = 2;

/// The picture rendered on white; null for a file that is refused.
QImage Painted(const QByteArray& bytes);
QImage Painted(const MetafileBuilder& builder);

/// The colour of a pixel without alpha, as 0xRRGGBB.
QRgb At(const QImage& picture, int x, int y);

/// The bounding box of all pixels that are not white.
QRect Drawn(const QImage& picture);

/// The number of pixels of this colour, 0xRRGGBB.
int Count(const QImage& picture, QRgb colour);

} // namespace tarvik
