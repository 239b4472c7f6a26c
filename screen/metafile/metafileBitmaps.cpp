#include "screen/metafile/metafileBitmaps.h"

#include "screen/metafile/metafileBlit.h"
#include "screen/metafile/metafilePictures.h"

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

/// Parameter words before the bitmap.
constexpr int kCopiedBitmapAt = 8;
constexpr int kStretchedBitmapAt = 10;

/// A record that copies within the picture has no bitmap, but an unused word between source and destination.
bool HasBitmap(const MetafileParameters& p, quint16 function)
{
    return p.Words() != function >> 8;
}

Rop3 OperationOf(const MetafileParameters& p)
{
    return static_cast<Rop3>(p.Word(1) & 0xFF);
}

/// height, width, y, x
void SetPlace(MetafileBlit& blit, const MetafileParameters& p, int word)
{
    blit.Corner = QPoint(p.Signed(word + 3), p.Signed(word + 2));
    blit.Opposite = blit.Corner + QPoint(p.Signed(word + 1), p.Signed(word));
}

/// Sets the source to a part of the picture, in logical units, for a copy within it.
bool SetSourceFromPicture(MetafileContext& context, MetafileBlit& blit, const QRect& from)
{
    const QPoint corner = from.topLeft();
    const QRect pixels = context.State.Mapping.ToDevice(corner, corner + QPoint(from.width(), from.height()));
    if (!context.Picture().rect().contains(pixels) || pixels.isEmpty())
        return true;
    blit.Source = context.Picture().copy(pixels);
    blit.From = blit.Source.rect();
    return context.SpendArea(pixels);
}

enum class Bitmap { Independent, OfDevice };

std::optional<QImage> BitmapAt(MetafileContext& context, const MetafileParameters& p, int word, Bitmap kind)
{
    constexpr int kDeviceHeadWords = 5;
    if (kind == Bitmap::Independent)
        return MetafileDib(context, p, word, 0);
    std::optional<QImage> picture = MetafileDeviceBitmap(context, p, word, word + kDeviceHeadWords);
    if (picture && picture->format() == QImage::Format_Mono) {
        const MetafileState& state = context.State;
        picture->setColorTable({ context.Colour(state.TextColour).rgb(), context.Colour(state.BackColour).rgb() });
        picture->convertTo(QImage::Format_RGB32);
    }
    return picture;
}

/// Paints with the bitmap that starts at a word or, if there is none, with the part of the picture at `from`.
bool PaintFrom(MetafileContext& context, const MetafileParameters& p, MetafileBlit blit, const QRect& from,
    std::optional<int> bitmapWord, Bitmap kind)
{
    if (!UsesSource(blit.Operation))
        return Paint(context, blit);
    if (!bitmapWord)
        return SetSourceFromPicture(context, blit, from) && Paint(context, blit);
    const std::optional<QImage> picture = BitmapAt(context, p, *bitmapWord, kind);
    if (!picture)
        return false;
    blit.Source = *picture;
    blit.From = from;
    return Paint(context, blit);
}

/// operation, source y and x, then the destination
template <quint16 Function, Bitmap Kind>
bool BitBlt(MetafileContext& context, const MetafileParameters& p)
{
    const bool hasBitmap = HasBitmap(p, Function);
    const int place = hasBitmap ? 4 : 5;
    MetafileBlit blit;
    blit.Operation = OperationOf(p);
    SetPlace(blit, p, place);
    const QRect from(p.Signed(3), p.Signed(2), p.Signed(place + 1), p.Signed(place));
    return PaintFrom(context, p, blit, from, hasBitmap ? std::optional(kCopiedBitmapAt) : std::nullopt, Kind);
}

/// operation, source height, width, y and x, then the destination
template <quint16 Function, Bitmap Kind>
bool StretchBlt(MetafileContext& context, const MetafileParameters& p)
{
    const bool hasBitmap = HasBitmap(p, Function);
    MetafileBlit blit;
    blit.Operation = OperationOf(p);
    SetPlace(blit, p, hasBitmap ? 6 : 7);
    const QRect from(p.Signed(5), p.Signed(4), p.Signed(3), p.Signed(2));
    return PaintFrom(context, p, blit, from, hasBitmap ? std::optional(kStretchedBitmapAt) : std::nullopt, Kind);
}

bool IsTopDown(const MetafileParameters& p, int word)
{
    constexpr int kPlainHeaderBytes = 40;
    return p.Long(word) >= kPlainHeaderBytes && static_cast<qint32>(p.Long(word + 4)) < 0;
}

/// operation, colour usage, source height, width, y and x, destination, bitmap. The source's y counts from the bottom
/// line.
bool StretchDib(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kBitmapAt = 11;
    MetafileBlit blit;
    blit.Operation = OperationOf(p);
    SetPlace(blit, p, 7);
    if (!UsesSource(blit.Operation))
        return Paint(context, blit);
    const std::optional<QImage> picture = MetafileDib(context, p, kBitmapAt, p.Word(2));
    if (!picture)
        return false;
    blit.Source = *picture;
    const int height = p.Signed(3);
    const int y = IsTopDown(p, kBitmapAt) ? p.Signed(5) : picture->height() - p.Signed(5) - height;
    blit.From = QRect(p.Signed(6), y, p.Signed(4), height);
    return Paint(context, blit);
}

/// colour usage, number of lines stored, first of them, source y and x, destination, bitmap. Lines count from the
/// bottom.
bool SetDibToDevice(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kBitmapAt = 9;
    const int lines = p.Word(1);
    const int first = p.Word(2);
    const std::optional<QImage> picture = MetafileDib(context, p, kBitmapAt, p.Word(0), lines);
    if (!picture)
        return false;
    MetafileBlit blit;
    SetPlace(blit, p, 5);
    blit.Source = *picture;
    const int height = p.Signed(5);
    const int y = IsTopDown(p, kBitmapAt) ? p.Signed(3) - first : first + picture->height() - p.Signed(3) - height;
    blit.From = QRect(p.Signed(4), y, p.Signed(6), height);
    return Paint(context, blit);
}

/// operation, destination
bool PatBlt(MetafileContext& context, const MetafileParameters& p)
{
    MetafileBlit blit;
    blit.Operation = OperationOf(p);
    SetPlace(blit, p, 2);
    return UsesSource(blit.Operation) || Paint(context, blit);
}

constexpr MetafileHandler kHandlers[] = {
    { tvpicture::MetaPatBlt, 6, PatBlt },
    { tvpicture::MetaBitBlt, 9, BitBlt<tvpicture::MetaBitBlt, Bitmap::OfDevice> },
    { tvpicture::MetaDibBitBlt, 9, BitBlt<tvpicture::MetaDibBitBlt, Bitmap::Independent> },
    { tvpicture::MetaStretchBlt, 11, StretchBlt<tvpicture::MetaStretchBlt, Bitmap::OfDevice> },
    { tvpicture::MetaDibStretchBlt, 11, StretchBlt<tvpicture::MetaDibStretchBlt, Bitmap::Independent> },
    { tvpicture::MetaSetDibToDev, 9, SetDibToDevice },
    { tvpicture::MetaStretchDib, 11, StretchDib },
};

} // namespace

std::span<const MetafileHandler> MetafileBitmaps()
{
    return kHandlers;
}

} // namespace tarvik
