#include "screen/metafile/metafileBlit.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// Lines that an operation on three pictures handles at a time.
constexpr int kBand = 64;

/// Touching a pixel by way of three pictures costs as much as this many.
constexpr int kWorkOfCombining = 8;

constexpr int kStretchPlain = 3;

/// The mix (metafileContext.h) of an operation that does not use the source; bits 5, 4, 1 and 0 tell it.
int MixOfPattern(RasterOperation operation)
{
    return 1 + ((operation >> 5 & 1) << 3 | (operation >> 4 & 1) << 2 | (operation & 3));
}

/// The mix of an operation that does not use the pattern.
int MixOfSource(RasterOperation operation)
{
    return 1 + (operation & 0x0F);
}

/// Where the source goes, and which part of it: mirrored sources have been turned over.
struct Placing {
    QRect To;
    QImage Source;
    QRect From;
};

/// One side of a source from its start over a length that may be negative.
void Straighten(int& start, int& length, bool& mirrored)
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
    Straighten(x, width, mirrorX);
    Straighten(y, height, mirrorY);
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

/// Shrinking to less than half leaves out pixels unless all of them are averaged first.
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

bool PaintSource(MetafileContext& context, Placing placing, int mix)
{
    if (!SpendPlacing(context, placing, 1))
        return false;
    const bool copies = mix == kMixCopy;
    const bool smooth = copies && context.State.StretchMode != kStretchPlain;
    if (smooth && placing.Source.rect().contains(placing.From))
        Shrink(placing);
    QPainter& painter = context.Painter();
    painter.setCompositionMode(MetafileContext::ModeOf(mix));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth && placing.To.size() != placing.From.size());
    painter.drawImage(placing.To, placing.Source, placing.From);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    return true;
}

bool PaintPattern(MetafileContext& context, const QRect& to, int mix)
{
    if (!context.SpendArea(to))
        return false;
    QPainter& painter = context.Painter();
    painter.setCompositionMode(MetafileContext::ModeOf(mix));
    painter.fillRect(to, context.BrushToPaint(*context.State.Brush));
    return true;
}

QRgb Combine(RasterOperation operation, QRgb pattern, QRgb source, QRgb picture)
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

void CombineLine(RasterOperation operation, const uchar* pattern, const uchar* source, uchar* picture, int width)
{
    const auto* const patterns = reinterpret_cast<const QRgb*>(pattern);
    const auto* const sources = reinterpret_cast<const QRgb*>(source);
    auto* const pictures = reinterpret_cast<QRgb*>(picture);
    for (int x = 0; x < width; ++x)
        pictures[x] = Combine(operation, patterns[x], sources[x], pictures[x]);
}

/// Pattern, source and picture of a few lines, combined and put back through the clipping.
void PaintBand(MetafileContext& context, const MetafileBlit& blit, const Placing& placing, const QRect& band)
{
    QImage pattern = context.Picture().copy(band); // a brush without colour leaves what is there
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
    if (!SpendPlacing(context, placing, kWorkOfCombining))
        return false;
    const QRect seen = placing.To & context.Picture().rect();
    for (int top = seen.top(); top <= seen.bottom(); top += kBand) {
        const int height = std::min(kBand, seen.bottom() + 1 - top);
        PaintBand(context, blit, placing, QRect(seen.left(), top, seen.width(), height));
    }
    return true;
}

} // namespace

bool UsesSource(RasterOperation operation)
{
    return (operation >> 2 & 0x33) != (operation & 0x33);
}

bool UsesPattern(RasterOperation operation)
{
    return operation >> 4 != (operation & 0x0F);
}

bool Paint(MetafileContext& context, const MetafileBlit& blit)
{
    const Placing placing = Place(context, blit);
    if (!UsesSource(blit.Operation))
        return PaintPattern(context, placing.To, MixOfPattern(blit.Operation));
    if (placing.Source.isNull() || placing.From.isEmpty())
        return true;
    if (!UsesPattern(blit.Operation))
        return PaintSource(context, placing, MixOfSource(blit.Operation));
    return PaintCombined(context, blit, placing);
}

} // namespace tarvik
