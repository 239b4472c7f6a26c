#include "screen/metafile/metafileMapping.h"

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// Coordinates are clamped to this: far outside every picture, and sums of two do not overflow.
constexpr double kMaxCoordinate = 1 << 24;

/// Extents after scaling are kept in this range; a factor of 0 is ignored.
constexpr double kMinExtent = 1.0 / 65536;
constexpr double kMaxExtent = 1 << 24;

int ClampCoordinate(double position)
{
    return static_cast<int>(std::lround(std::clamp(position, -kMaxCoordinate, kMaxCoordinate)));
}

double Scaled(double extent, int by, int over)
{
    if (by == 0 || over == 0)
        return extent;
    const double scaled = extent * by / over;
    return std::copysign(std::clamp(std::abs(scaled), kMinExtent, kMaxExtent), scaled);
}

bool IsExtent(QPoint extent)
{
    return extent.x() != 0 && extent.y() != 0;
}

} // namespace

MetafileMapping::MetafileMapping(const tvpicture::MetafileFrame& frame)
    : frame_(frame)
    , windowOrigin_(frame.WindowX, frame.WindowY)
    , windowExtent_(frame.WindowWidth, frame.WindowHeight)
    , viewportExtent_(frame.Width, frame.Height)
{
    Update();
}

void MetafileMapping::SetMode(quint16 mode)
{
    if (mode < tvpicture::MapText || mode > tvpicture::MapAnisotropic)
        return;
    mode_ = mode;
    if (mode == tvpicture::MapText) {
        windowExtent_ = QPointF(frame_.WindowWidth, frame_.WindowHeight);
        viewportExtent_ = QPointF(frame_.Width, frame_.Height);
    }
    Update();
}

void MetafileMapping::SetWindowOrigin(QPoint origin)
{
    windowOrigin_ = origin;
}

void MetafileMapping::MoveWindowOrigin(QPoint by)
{
    const QPoint moved = windowOrigin_ + by;
    windowOrigin_ = QPoint(ClampCoordinate(moved.x()), ClampCoordinate(moved.y()));
}

void MetafileMapping::SetWindowExtent(QPoint extent)
{
    if (!IsExtent(extent))
        return;
    windowExtent_ = extent;
    Update();
}

void MetafileMapping::ScaleWindowExtent(QPoint by, QPoint over)
{
    windowExtent_ = QPointF(Scaled(windowExtent_.x(), by.x(), over.x()), Scaled(windowExtent_.y(), by.y(), over.y()));
    Update();
}

void MetafileMapping::SetViewportOrigin(QPoint origin)
{
    viewportOrigin_ = origin;
}

void MetafileMapping::MoveViewportOrigin(QPoint by)
{
    const QPoint moved = viewportOrigin_ + by;
    viewportOrigin_ = QPoint(ClampCoordinate(moved.x()), ClampCoordinate(moved.y()));
}

void MetafileMapping::SetViewportExtent(QPoint extent)
{
    if (!IsExtent(extent))
        return;
    viewportExtent_ = extent;
    Update();
}

void MetafileMapping::ScaleViewportExtent(QPoint by, QPoint over)
{
    viewportExtent_ =
        QPointF(Scaled(viewportExtent_.x(), by.x(), over.x()), Scaled(viewportExtent_.y(), by.y(), over.y()));
    Update();
}

QPoint MetafileMapping::ToDevice(QPoint logical) const
{
    const double x = double{ scale_.x() } * (logical.x() - windowOrigin_.x()) + viewportOrigin_.x();
    const double y = double{ scale_.y() } * (logical.y() - windowOrigin_.y()) + viewportOrigin_.y();
    return { ClampCoordinate(x), ClampCoordinate(y) };
}

QRect MetafileMapping::ToDevice(QPoint corner, QPoint opposite) const
{
    const QPoint a = ToDevice(corner);
    const QPoint b = ToDevice(opposite);
    return { QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
        QSize(std::abs(a.x() - b.x()), std::abs(a.y() - b.y())) };
}

double MetafileMapping::Across(int units) const
{
    return std::min(std::abs(units * scale_.x()), kMaxCoordinate);
}

double MetafileMapping::Down(int units) const
{
    return std::min(std::abs(units * scale_.y()), kMaxCoordinate);
}

void MetafileMapping::Update()
{
    const double unitsPerInch = tvpicture::UnitsPerInch(mode_);
    if (unitsPerInch != 0) {
        const double pixels = tvpicture::kPixelsPerInch / unitsPerInch;
        scale_ = QPointF(pixels, -pixels);
        return;
    }
    scale_ = QPointF(viewportExtent_.x() / windowExtent_.x(), viewportExtent_.y() / windowExtent_.y());
    if (mode_ == tvpicture::MapIsotropic) {
        const double same = std::min(std::abs(scale_.x()), std::abs(scale_.y()));
        scale_ = QPointF(std::copysign(same, scale_.x()), std::copysign(same, scale_.y()));
    }
}

} // namespace tarvik
