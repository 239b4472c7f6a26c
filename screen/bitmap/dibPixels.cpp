#include "screen/bitmap/dibPixels.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>

namespace tarvik {

namespace {

constexpr QRgb kOpaque = 0xFF000000;

/// A picture that is filled line by line in file order.
class Lines {
public:
    Lines(QImage& image, bool topDown)
        : bits_(image.bits())
        , stride_(image.bytesPerLine())
        , height_(image.height())
        , topDown_(topDown)
    {
    }

    [[nodiscard]] QRgb* Line(int stored) const
    {
        const int y = topDown_ ? stored : height_ - 1 - stored;
        return reinterpret_cast<QRgb*>(bits_ + y * stride_);
    }

private:
    uchar* bits_;
    qsizetype stride_;
    int height_;
    bool topDown_;
};

qsizetype Stride(const DibHeader& header)
{
    return (qsizetype{ header.Width } * header.BitCount + 31) / 32 * 4;
}

/// The padding of the last line may be missing.
bool HasAllLines(QByteArrayView bytes, const DibHeader& header)
{
    const qsizetype last = (qsizetype{ header.Width } * header.BitCount + 7) / 8;
    return bytes.size() >= Stride(header) * (header.Height - 1) + last;
}

/// The colour of every byte value; values beyond the table are never shown.
using ColourTable = std::array<QRgb, 256>;

ColourTable TableOf(const QVector<QRgb>& colours)
{
    ColourTable table{};
    std::copy_n(colours.begin(), std::min<qsizetype>(colours.size(), 256), table.begin());
    return table;
}

/// Returns the highest index.
int DecodeBytes(const uchar* from, int width, const ColourTable& table, QRgb* to)
{
    uchar highest = 0;
    for (int x = 0; x < width; ++x) {
        highest = std::max(highest, from[x]);
        to[x] = table[from[x]];
    }
    return highest;
}

/// As above for 1, 2 and 4 bits per pixel, leftmost pixel in the highest bits.
int DecodeBits(const uchar* from, const DibHeader& header, const ColourTable& table, QRgb* to)
{
    const int bits = header.BitCount;
    const int mask = (1 << bits) - 1;
    int highest = 0;
    for (int x = 0, shift = 8 - bits; x < header.Width; ++x) {
        const int index = *from >> shift & mask;
        highest = std::max(highest, index);
        to[x] = table[static_cast<size_t>(index)];
        shift -= bits;
        if (shift < 0) {
            shift = 8 - bits;
            ++from;
        }
    }
    return highest;
}

/// Expands a value of fewer bits to 8 by repeating its bits.
uchar Spread(quint32 value, int bits)
{
    quint32 spread = 0;
    for (int at = 8 - bits; at > -bits; at -= bits)
        spread |= at >= 0 ? value << at : value >> -at;
    return static_cast<uchar>(spread & 0xFF);
}

/// Extracts one channel of a pixel, scaled to 8 bits.
class Channel {
public:
    explicit Channel(quint32 mask)
        : mask_(mask)
    {
        const int bits = std::popcount(mask);
        const int surplus = std::max(bits - 8, 0);
        shift_ = mask == 0 ? 0 : std::countr_zero(mask) + surplus;
        for (quint32 value = 0; bits > 0 && value < 1U << (bits - surplus); ++value)
            values_[value] = Spread(value, bits - surplus);
    }

    [[nodiscard]] int Value(quint32 pixel) const
    {
        return values_[(pixel & mask_) >> shift_];
    }

private:
    quint32 mask_;
    int shift_ = 0;
    std::array<uchar, 256> values_{};
};

/// Decodes pixels of 16 or 32 bits by masks.
class MaskDecoder {
public:
    explicit MaskDecoder(const DibMasks& masks)
        : red_(masks.Red)
        , green_(masks.Green)
        , blue_(masks.Blue)
        , alpha_(masks.Alpha)
        , hasAlpha_(masks.Alpha != 0)
    {
    }

    /// Returns the union of all alpha bits.
    int Decode(const uchar* from, const DibHeader& header, QRgb* to) const
    {
        int anyAlpha = 0;
        for (int x = 0; x < header.Width; ++x) {
            const quint32 pixel = header.BitCount == 16 ? qFromLittleEndian<quint16>(from + qsizetype{ 2 } * x)
                                                        : qFromLittleEndian<quint32>(from + qsizetype{ 4 } * x);
            const int opacity = hasAlpha_ ? alpha_.Value(pixel) : 0xFF;
            anyAlpha |= opacity;
            to[x] = qRgba(red_.Value(pixel), green_.Value(pixel), blue_.Value(pixel), opacity);
        }
        return anyAlpha;
    }

private:
    Channel red_;
    Channel green_;
    Channel blue_;
    Channel alpha_;
    bool hasAlpha_;
};

void DecodeBgr(const uchar* from, int width, QRgb* to)
{
    for (int x = 0; x < width; ++x, from += 3)
        to[x] = kOpaque | QRgb{ from[2] } << 16 | QRgb{ from[1] } << 8 | from[0];
}

/// Fast path for the usual masks of 32-bit files.
void DecodeBgrx(const uchar* from, int width, QRgb* to)
{
    for (int x = 0; x < width; ++x)
        to[x] = kOpaque | qFromLittleEndian<quint32>(from + qsizetype{ 4 } * x);
}

bool IsBgrx(const DibHeader& header)
{
    return header.BitCount == 32 && header.Masks.Red == 0xFF0000 && header.Masks.Green == 0x00FF00
        && header.Masks.Blue == 0x0000FF && header.Masks.Alpha == 0;
}

/// True if every index has a colour.
bool DecodeNumbers(QByteArrayView bytes, const DibHeader& header, const QVector<QRgb>& colours, const Lines& lines)
{
    const ColourTable table = TableOf(colours);
    for (int y = 0; y < header.Height; ++y) {
        const auto* const from = reinterpret_cast<const uchar*>(bytes.data()) + y * Stride(header);
        const int highest = header.BitCount == 8 ? DecodeBytes(from, header.Width, table, lines.Line(y))
                                                 : DecodeBits(from, header, table, lines.Line(y));
        if (highest >= colours.size())
            return false;
    }
    return true;
}

/// Returns the union of all alpha bits.
int DecodeColours(QByteArrayView bytes, const DibHeader& header, const Lines& lines)
{
    const MaskDecoder masks(header.Masks);
    int anyAlpha = 0;
    for (int y = 0; y < header.Height; ++y) {
        const auto* const from = reinterpret_cast<const uchar*>(bytes.data()) + y * Stride(header);
        if (header.BitCount == 24)
            DecodeBgr(from, header.Width, lines.Line(y));
        else if (IsBgrx(header))
            DecodeBgrx(from, header.Width, lines.Line(y));
        else
            anyAlpha |= masks.Decode(from, header, lines.Line(y));
    }
    return anyAlpha;
}

bool DecodeLines(QByteArrayView bytes, const DibHeader& header, const QVector<QRgb>& colours, QImage& image)
{
    const Lines lines(image, header.TopDown);
    if (header.BitCount <= 8)
        return DecodeNumbers(bytes, header, colours, lines);
    const int anyAlpha = DecodeColours(bytes, header, lines);
    if (header.Masks.Alpha != 0 && anyAlpha == 0)
        image.reinterpretAsFormat(QImage::Format_RGB32); // the alpha channel was never filled
    return true;
}

/// Decodes run-length encoded indexes of 4 or 8 bits. Pixels that the runs skip have the first colour.
class RunLengthDecoder {
public:
    RunLengthDecoder(QByteArrayView bytes, const DibHeader& header, const QVector<QRgb>& colours, QImage& image)
        : bytes_(bytes)
        , header_(header)
        , colours_(colours)
        , lines_(image, false)
    {
    }

    /// True if the codes fill the picture, up to its end or the end mark, and nothing beyond. Some writers encode the
    /// padding of uncompressed lines too.
    bool Decode()
    {
        while (!ended_) {
            if (at_ + 2 > bytes_.size())
                return IsFull();
            const int count = Byte();
            const int value = Byte();
            if (!(count > 0 ? Run(count, value) : Escape(value)))
                return false;
        }
        return true;
    }

private:
    enum EscapeCode { EndOfLine = 0, EndOfPicture = 1, Move = 2 };

    int Byte()
    {
        return static_cast<uchar>(bytes_[at_++]);
    }

    [[nodiscard]] bool IsFull() const
    {
        return y_ >= header_.Height || (y_ == header_.Height - 1 && x_ >= header_.Width);
    }

    /// Width of a line including the padding that it would have uncompressed.
    [[nodiscard]] int FilledWidth() const
    {
        return static_cast<int>(Stride(header_) * 8 / header_.BitCount);
    }

    [[nodiscard]] bool HasRoom(int count) const
    {
        return y_ < header_.Height && count <= FilledWidth() - x_;
    }

    bool Put(int index)
    {
        if (x_ >= header_.Width) {
            ++x_;
            return true;
        }
        if (index >= colours_.size())
            return false;
        lines_.Line(y_)[x_++] = colours_[index];
        return true;
    }

    /// The index of pixel `i` in a byte of one or two pixels.
    [[nodiscard]] int Index(int byte, int i) const
    {
        if (header_.Coding == DibCoding::Rle8)
            return byte;
        return i % 2 == 0 ? byte >> 4 : byte & 0x0F;
    }

    bool Run(int count, int value)
    {
        if (!HasRoom(count))
            return false;
        for (int i = 0; i < count; ++i) {
            if (!Put(Index(value, i)))
                return false;
        }
        return true;
    }

    bool Escape(int code)
    {
        if (code == EndOfPicture) {
            ended_ = true;
            return true;
        }
        if (code == EndOfLine) {
            x_ = 0;
            return ++y_ <= header_.Height;
        }
        return code == Move ? ApplyDelta() : Literal(code);
    }

    bool ApplyDelta()
    {
        if (at_ + 2 > bytes_.size())
            return false;
        x_ += Byte();
        y_ += Byte();
        return x_ <= FilledWidth() && y_ < header_.Height;
    }

    /// Uncompressed pixels, padded to whole words.
    bool Literal(int count)
    {
        const int used = header_.Coding == DibCoding::Rle8 ? count : (count + 1) / 2;
        if (!HasRoom(count) || at_ + used > bytes_.size())
            return false;
        const qsizetype start = at_;
        for (int i = 0; i < count; ++i) {
            const int place = header_.Coding == DibCoding::Rle8 ? i : i / 2;
            if (!Put(Index(static_cast<uchar>(bytes_[start + place]), i)))
                return false;
        }
        at_ = std::min(start + used + used % 2, bytes_.size());
        return true;
    }

    QByteArrayView bytes_;
    const DibHeader& header_;
    const QVector<QRgb>& colours_;
    Lines lines_;
    qsizetype at_ = 0;
    int x_ = 0;
    int y_ = 0;
    bool ended_ = false;
};

bool DecodeRuns(QByteArrayView bytes, const DibHeader& header, const QVector<QRgb>& colours, QImage& image)
{
    if (colours.isEmpty())
        return false;
    image.fill(colours.first());
    return RunLengthDecoder(bytes, header, colours, image).Decode();
}

} // namespace

std::optional<QImage> DecodeDibPixels(QByteArrayView bytes, const DibHeader& header, const QVector<QRgb>& colours)
{
    const bool runs = header.Coding == DibCoding::Rle8 || header.Coding == DibCoding::Rle4;
    if (!runs && !HasAllLines(bytes, header))
        return std::nullopt;
    QImage image(header.Width, header.Height, header.Masks.Alpha != 0 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (image.isNull())
        return std::nullopt;
    const bool whole = runs ? DecodeRuns(bytes, header, colours, image) : DecodeLines(bytes, header, colours, image);
    return whole ? std::optional(image) : std::nullopt;
}

} // namespace tarvik
