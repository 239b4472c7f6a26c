#include "screen/metafile/metafileBlit.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// Lines per step of an operation on three pictures.
constexpr int kBand = 64;

/// Cost of combining a pixel of three pictures, in painted pixels.
constexpr int kCombiningCost = 8;

constexpr int kStretchPlain = 3;

/// The ROP2 (metafileContext.h) of a ROP3 that does not use the source, from its bits 5, 4, 1 and 0.
int Rop2OfPattern(Rop3 operation)
{
    return 1 + ((operation >> 5 & 1) << 3 | (operation >> 4 & 1) << 2 | (operation & 3));
}

/// The ROP2 of a ROP3 that does not use the pattern.
int Rop2OfSource(Rop3 operation)
{
    return 1 + (operation & 0x0F);
}

/// Destination and part of the source; mirrored sources have been flipped.
struct Placing {
    QRect To;
    QImage Source;
    QRect From;
};

/// Normalises one dimension of a source, whose length may be negative.
void NormaliseSide(int& start, int& length, bool& mirrored)
{
    if (length >= 0)
        return;
    start += length;
    length = -length;
    mirrored = !mirrored;
}

Placing Place(const MetafileContext& context, const MetafileBlit& blit)
{
    const MetafileMapping& mapping = context.State.Mapping;
    const QPoint a = mapping.ToDevice(blit.Corner);
    const QPoint b = mapping.ToDevice(blit.Opposite);
    Placing placing{ mapping.ToDevice(blit.Corner, blit.Opposite), blit.Source, {} };
    if (placing.Source.isNull())
        return placing;
    bool mirrorX = b.x() < a.x();
    bool mirrorY = b.y() < a.y();
    int x = blit.From.x();
    int y = blit.From.y();
    int width = blit.From.width();
    int height = blit.From.height();
    NormaliseSide(x, width, mirrorX);
    NormaliseSide(y, height, mirrorY);
    if (mirrorX || mirrorY)
        placing.Source = placing.Source.mirrored(mirrorX, mirrorY);
    placing.From = QRect(mirrorX ? placing.Source.width() - x - width : x,
        mirrorY ? placing.Source.height() - y - height : y, width, height);
    return placing;
}

bool SpendPlacing(MetafileContext& context, const Placing& placing, int factor)
{
    const QRect seen = placing.To & context.Picture().rect();
    return context.Spend(
        factor * qint64{ seen.width() } * seen.height() + qint64{ placing.Source.width() } * placing.Source.height());
}

/// Scaling to less than half would skip pixels, so average them first.
void Shrink(Placing& placing)
{
    const bool lessThanHalf =
        placing.To.width() * 2 < placing.From.width() || placing.To.height() * 2 < placing.From.height();
    if (!lessThanHalf || placing.To.isEmpty())
        return;
    const QSize size = placing.To.size().boundedTo(placing.From.size());
    placing.Source = placing.Source.copy(placing.From).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    placing.From = placing.Source.rect();
}

bool PaintSource(MetafileContext& context, Placing placing, int rop2)
{
    if (!SpendPlacing(context, placing, 1))
        return false;
    const bool copies = rop2 == kRop2Copy;
    const bool smooth = copies && context.State.StretchMode != kStretchPlain;
    if (smooth && placing.Source.rect().contains(placing.From))
        Shrink(placing);
    QPainter& painter = context.Painter();
    painter.setCompositionMode(MetafileContext::ModeOf(rop2));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth && placing.To.size() != placing.From.size());
    painter.drawImage(placing.To, placing.Source, placing.From);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    return true;
}

bool PaintPattern(MetafileContext& context, const QRect& to, int rop2)
{
    if (!context.SpendArea(to))
        return false;
    QPainter& painter = context.Painter();
    painter.setCompositionMode(MetafileContext::ModeOf(rop2));
    painter.fillRect(to, context.BrushToPaint(*context.State.Brush));
    return true;
}

QRgb Combine(Rop3 operation, QRgb pattern, QRgb source, QRgb picture)
{
    QRgb result = 0;
    for (int term = 0; term < 8; ++term) {
        if ((operation >> term & 1) == 0)
            continue;
        result |= ((term & 4) != 0 ? pattern : ~pattern) & ((term & 2) != 0 ? source : ~source)
            & ((term & 1) != 0 ? picture : ~picture);
    }
    return result | 0xFF000000;
}

void CombineLine(Rop3 operation, const uchar* pattern, const uchar* source, uchar* picture, int width)
{
    const auto* const patterns = reinterpret_cast<const QRgb*>(pattern);
    const auto* const sources = reinterpret_cast<const QRgb*>(source);
    auto* const pictures = reinterpret_cast<QRgb*>(picture);
    for (int x = 0; x < width; ++x)
        pictures[x] = Combine(operation, patterns[x], sources[x], pictures[x]);
}

/// Combines pattern, source and picture for a few lines and writes the result through the clipping.
void PaintBand(MetafileContext& context, const MetafileBlit& blit, const Placing& placing, const QRect& band)
{
    QImage pattern = context.Picture().copy(band); // a null brush keeps the picture
    QImage source = pattern.copy();
    QImage result = pattern.copy();
    QPainter patternPainter(&pattern);
    patternPainter.setBrushOrigin(-band.topLeft());
    patternPainter.fillRect(pattern.rect(), context.BrushToPaint(*context.State.Brush));
    patternPainter.end();
    if (!placing.Source.isNull()) {
        QPainter sourcePainter(&source);
        sourcePainter.drawImage(placing.To.translated(-band.topLeft()), placing.Source, placing.From);
    }
    for (int y = 0; y < band.height(); ++y)
        CombineLine(
            blit.Operation, pattern.constScanLine(y), source.constScanLine(y), result.scanLine(y), band.width());
    context.Painter().drawImage(band.topLeft(), result);
}

bool PaintCombined(MetafileContext& context, const MetafileBlit& blit, const Placing& placing)
{
    if (!SpendPlacing(context, placing, kCombiningCost))
        return false;
    const QRect seen = placing.To & context.Picture().rect();
    for (int top = seen.top(); top <= seen.bottom(); top += kBand) {
        const int height = std::min(kBand, seen.bottom() + 1 - top);
        PaintBand(context, blit, placing, QRect(seen.left(), top, seen.width(), height));
    }
    return true;
}

} // namespace

bool UsesSource(Rop3 operation)
{
    return (operation >> 2 & 0x33) != (operation & 0x33);
}

bool UsesPattern(Rop3 operation)
{
    return operation >> 4 != (operation & 0x0F);
}

bool Paint(MetafileContext& context, const MetafileBlit& blit)
{
    const Placing placing = Place(context, blit);
    if (!UsesSource(blit.Operation))
        return PaintPattern(context, placing.To, Rop2OfPattern(blit.Operation));
    if (placing.Source.isNull() || placing.From.isEmpty())
        return true;
    if (!UsesPattern(blit.Operation))
        return PaintSource(context, placing, Rop2OfSource(blit.Operation));
    return PaintCombined(context, blit, placing);
}

} // namespace tarvik
