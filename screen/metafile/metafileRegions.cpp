#include "screen/metafile/metafileRegions.h"

#include <cmath>

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

/// Cost of each rectangle of a region when regions are combined, in pixels.
constexpr qint64 kRectangleCost = 16;

/// Pixels. Clipping moved further away is lost.
constexpr int kMaxClipCoordinate = 1 << 28;

/// bottom, right, top, left
QRect Corners(const MetafileContext& context, const MetafileParameters& p)
{
    return context.State.Mapping.ToDevice(QPoint(p.Signed(3), p.Signed(2)), QPoint(p.Signed(1), p.Signed(0)));
}

/// The clipping, or the whole picture without one.
QRegion Clip(MetafileContext& context)
{
    return context.State.Clip.value_or(QRegion(context.Picture().rect()));
}

bool SetClip(MetafileContext& context, const QRegion& clip)
{
    context.State.Clip = clip;
    return context.Spend(kRectangleCost * clip.rectCount());
}

bool IntersectClip(MetafileContext& context, const MetafileParameters& p)
{
    return SetClip(context, Clip(context) & Corners(context, p));
}

bool ExcludeClip(MetafileContext& context, const MetafileParameters& p)
{
    return SetClip(context, Clip(context) - Corners(context, p));
}

bool OffsetClip(MetafileContext& context, const MetafileParameters& p)
{
    if (!context.State.Clip)
        return true;
    const MetafileMapping& mapping = context.State.Mapping;
    const QPoint by = mapping.ToDevice(QPoint(p.Signed(1), p.Signed(0))) - mapping.ToDevice(QPoint());
    const QPoint corner = context.State.Clip->boundingRect().topLeft() + by;
    const bool isWithinReach = std::abs(corner.x()) <= kMaxClipCoordinate && std::abs(corner.y()) <= kMaxClipCoordinate;
    return SetClip(context, isWithinReach ? context.State.Clip->translated(by) : QRegion());
}

/// Null for an index that is not a region.
MetafileShared<MetafileRegion> RegionAt(const MetafileContext& context, int number)
{
    const MetafileObject object = context.Object(number);
    const auto* const region = std::get_if<MetafileShared<MetafileRegion>>(&object);
    return region == nullptr ? nullptr : *region;
}

/// Clears the clipping if there is no region.
bool SelectClip(MetafileContext& context, const MetafileParameters& p)
{
    const MetafileShared<MetafileRegion> region = RegionAt(context, p.Word(0));
    if (!region) {
        context.State.Clip.reset();
        return true;
    }
    const std::optional<QRegion> clip = MetafileDeviceRegion(context, *region);
    return clip && SetClip(context, *clip);
}

bool Fill(MetafileContext& context, const QRegion& region, const QBrush& brush, int rop2)
{
    if (!context.SpendArea(region.boundingRect()) || !context.Spend(kRectangleCost * region.rectCount()))
        return false;
    QPainter& painter = context.Painter();
    painter.setCompositionMode(MetafileContext::ModeOf(rop2));
    for (const QRect& part : region)
        painter.fillRect(part, brush);
    return true;
}

bool FillWith(MetafileContext& context, int number, const MetafileBrush& brush, int rop2)
{
    const MetafileShared<MetafileRegion> region = RegionAt(context, number);
    if (!region)
        return true;
    const std::optional<QRegion> device = MetafileDeviceRegion(context, *region);
    return device && Fill(context, *device, context.BrushToPaint(brush), rop2);
}

MetafileShared<MetafileBrush> BrushAt(const MetafileContext& context, int number)
{
    const MetafileObject object = context.Object(number);
    const auto* const brush = std::get_if<MetafileShared<MetafileBrush>>(&object);
    return brush == nullptr ? nullptr : *brush;
}

bool FillRegion(MetafileContext& context, const MetafileParameters& p)
{
    const MetafileShared<MetafileBrush> brush = BrushAt(context, p.Word(1));
    return !brush || FillWith(context, p.Word(0), *brush, context.State.Rop2);
}

bool PaintRegion(MetafileContext& context, const MetafileParameters& p)
{
    return FillWith(context, p.Word(0), *context.State.Brush, context.State.Rop2);
}

bool InvertRegion(MetafileContext& context, const MetafileParameters& p)
{
    return FillWith(context, p.Word(0), MetafileBrush(), kRop2Invert);
}

/// What a region loses when its edge is moved inwards.
QRegion Edge(const QRegion& region, int across, int down)
{
    const QRegion inner = region & region.translated(across, 0) & region.translated(-across, 0)
        & region.translated(0, down) & region.translated(0, -down);
    return region - inner;
}

/// region, brush, height, width
bool FrameRegion(MetafileContext& context, const MetafileParameters& p)
{
    const MetafileShared<MetafileRegion> region = RegionAt(context, p.Word(0));
    const MetafileShared<MetafileBrush> brush = BrushAt(context, p.Word(1));
    if (!region || !brush)
        return true;
    const std::optional<QRegion> device = MetafileDeviceRegion(context, *region);
    if (!device)
        return false;
    const MetafileMapping& mapping = context.State.Mapping;
    const auto across = std::max<int>(1, static_cast<int>(std::lround(mapping.Across(p.Signed(3)))));
    const auto down = std::max<int>(1, static_cast<int>(std::lround(mapping.Down(p.Signed(2)))));
    return Fill(context, Edge(*device, across, down), context.BrushToPaint(*brush), context.State.Rop2);
}

constexpr MetafileHandler kHandlers[] = {
    { 0x012A, 1, InvertRegion },
    { 0x012B, 1, PaintRegion },
    { 0x012C, 1, SelectClip },
    { 0x0220, 2, OffsetClip },
    { 0x0228, 2, FillRegion },
    { 0x0415, 4, ExcludeClip },
    { 0x0416, 4, IntersectClip },
    { 0x0429, 4, FrameRegion },
};

} // namespace

std::span<const MetafileHandler> MetafileRegions()
{
    return kHandlers;
}

std::optional<QRegion> MetafileDeviceRegion(MetafileContext& context, const MetafileRegion& region)
{
    QRegion device;
    // Extends regions that touch the picture's edge beyond it, so that their frame does not run along the edge.
    const QRect reach = context.Picture().rect().adjusted(-1024, -1024, 1024, 1024);
    for (const MetafileRegion::Part& part : region.Parts) {
        device += context.State.Mapping.ToDevice(part.Corner, part.Opposite) & reach;
        if (!context.Spend(kRectangleCost * device.rectCount()))
            return std::nullopt;
    }
    return device;
}

} // namespace tarvik
