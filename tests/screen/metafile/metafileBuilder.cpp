#include "tests/screen/metafile/metafileBuilder.h"

#include "screen/metafile/metafileReader.h"

namespace tarvik {

ByteWriter& ByteWriter::Add8(int value)
{
    bytes_.append(static_cast<char>(value));
    return *this;
}

ByteWriter& ByteWriter::Add16(int value)
{
    return Add8(value & 0xFF).Add8(value >> 8 & 0xFF);
}

ByteWriter& ByteWriter::Add32(qint64 value)
{
    return Add16(static_cast<int>(value & 0xFFFF)).Add16(static_cast<int>(value >> 16 & 0xFFFF));
}

ByteWriter& ByteWriter::Add(const QByteArray& bytes)
{
    bytes_.append(bytes);
    return *this;
}

QByteArray TestDib::Bytes() const
{
    ByteWriter writer;
    writer.Add32(40).Add32(Width).Add32(Height).Add16(1).Add16(BitCount).Add32(Compression).Add32(0).Add32(0).Add32(0);
    writer.Add32(ColoursUsed < 0 ? static_cast<int>(Colours.size()) : ColoursUsed).Add32(0);
    for (const QRgb colour : Colours)
        writer.Add8(qBlue(colour)).Add8(qGreen(colour)).Add8(qRed(colour)).Add8(0);
    return writer.Add(Pixels).Bytes();
}

QByteArray DibOf(const QImage& picture)
{
    ByteWriter pixels;
    for (int y = picture.height() - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb colour = picture.pixel(x, y);
            pixels.Add8(qBlue(colour)).Add8(qGreen(colour)).Add8(qRed(colour));
        }
        pixels.Add(QByteArray(picture.width() % 4, '\0'));
    }
    TestDib dib;
    dib.Width = picture.width();
    dib.Height = picture.height();
    dib.Pixels = pixels.Bytes();
    return dib.Bytes();
}

MetafileBuilder::MetafileBuilder(QSize size)
{
    Placeable(0, 0, size.width(), size.height(), 96);
    Window(0, 0, size.width(), size.height());
}

MetafileBuilder::MetafileBuilder() = default;

MetafileBuilder& MetafileBuilder::Placeable(int left, int top, int right, int bottom, int unitsPerInch)
{
    const int check = 0x5711 ^ left ^ top ^ right ^ bottom ^ unitsPerInch;
    placeable_ = ByteWriter()
                     .Add32(0x9AC6CDD7)
                     .Add16(0)
                     .Add16(left)
                     .Add16(top)
                     .Add16(right)
                     .Add16(bottom)
                     .Add16(unitsPerInch)
                     .Add32(0)
                     .Add16(check)
                     .Bytes();
    return *this;
}

MetafileBuilder& MetafileBuilder::Record(int function, std::initializer_list<int> words, const QByteArray& more)
{
    ByteWriter parameters;
    for (const int word : words)
        parameters.Add16(word);
    parameters.Add(more).Add(QByteArray(more.size() % 2, '\0'));
    records_ += ByteWriter().Add32(3 + parameters.Bytes().size() / 2).Add16(function).Add(parameters.Bytes()).Bytes();
    return *this;
}

MetafileBuilder& MetafileBuilder::Window(int x, int y, int width, int height)
{
    return Record(0x020B, { y, x }).Record(0x020C, { height, width });
}

MetafileBuilder& MetafileBuilder::Pen(int style, int width, int colour)
{
    return Record(0x02FA, { style, width, 0, colour & 0xFFFF, colour >> 16 });
}

MetafileBuilder& MetafileBuilder::Brush(int style, int colour, int hatch)
{
    return Record(0x02FC, { style, colour & 0xFFFF, colour >> 16, hatch });
}

MetafileBuilder& MetafileBuilder::Font(int height, const QByteArray& face, int escapement, int characterSet)
{
    return Record(0x02FB, { height, 0, escapement, escapement, 400, 0, characterSet << 8, 0, 0 }, face + '\0');
}

MetafileBuilder& MetafileBuilder::Select(int number)
{
    return Record(0x012D, { number });
}

MetafileBuilder& MetafileBuilder::Delete(int number)
{
    return Record(0x01F0, { number });
}

MetafileBuilder& MetafileBuilder::Rectangle(int left, int top, int right, int bottom)
{
    return Record(0x041B, { bottom, right, top, left });
}

MetafileBuilder& MetafileBuilder::Region(std::initializer_list<QRect> rectangles)
{
    ByteWriter lines;
    for (const QRect& r : rectangles)
        lines.Add16(2).Add16(r.top()).Add16(r.bottom() + 1).Add16(r.left()).Add16(r.right() + 1).Add16(2);
    const auto count = static_cast<int>(rectangles.size());
    return Record(0x06FF, { 0, 6, 0, 0, 0, count, 2, 0, 0, 0, 0 }, lines.Bytes());
}

QByteArray MetafileBuilder::Bytes() const
{
    const QByteArray end = ByteWriter().Add32(3).Add16(0).Bytes();
    const QByteArray header = ByteWriter()
                                  .Add16(1)
                                  .Add16(9)
                                  .Add16(0x0300)
                                  .Add32(9 + (records_.size() + end.size()) / 2)
                                  .Add16(16)
                                  .Add32(0)
                                  .Add16(0)
                                  .Bytes();
    return placeable_ + header + records_ + end;
}

QImage Painted(const QByteArray& bytes)
{
    return ReadMetafile(bytes, Qt::white).value_or(QImage());
}

QImage Painted(const MetafileBuilder& builder)
{
    return Painted(builder.Bytes());
}

QRgb At(const QImage& picture, int x, int y)
{
    return picture.pixel(x, y) & 0xFFFFFF;
}

QRect Drawn(const QImage& picture)
{
    QRect drawn;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (At(picture, x, y) != 0xFFFFFF)
                drawn |= QRect(x, y, 1, 1);
        }
    }
    return drawn;
}

int Count(const QImage& picture, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += At(picture, x, y) == colour ? 1 : 0;
    }
    return count;
}

} // namespace tarvik
