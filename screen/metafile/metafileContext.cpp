#include "screen/metafile/metafileContext.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvik {

namespace {

constexpr size_t kDeepestSave = 1024;
constexpr size_t kMaxObjects = 65536;
constexpr qint64 kWorkBudget = qint64{ 1 } << 31;
constexpr qint64 kMaxKeptPixels = qint64{ 1 } << 24;
constexpr qint64 kRecordCost = 256;

/// Rows of the six 8 by 8 hatch patterns, left pixel in the highest bit.
constexpr std::array<std::array<uchar, 8>, 6> kHatches{ {
    { 0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00 },
    { 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08 },
    { 0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01 },
    { 0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80 },
    { 0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08 },
    { 0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81 },
} };

/// Lengths of dashes and gaps in pixels, by pen style.
const QVector<qreal>& Dashes(MetafilePen::Line style)
{
    static const std::array<QVector<qreal>, 4> kDashes{ QVector<qreal>{ 18, 6 }, { 3, 3 }, { 9, 6, 3, 6 },
        { 9, 3, 3, 3, 3, 3 } };
    return kDashes[static_cast<size_t>(style) - static_cast<size_t>(MetafilePen::Line::Dash)];
}

/// The 20 colours of the default palette.
QVector<QRgb> DefaultColours()
{
    return { 0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0, 0xC0DCC0, 0xA6CAF0,
        0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF };
}

QImage Hatch(int number, const QColor& line, const QColor& gap)
{
    QImage hatch(8, 8, QImage::Format_ARGB32_Premultiplied);
    hatch.fill(gap);
    const std::array<uchar, 8>& rows = kHatches[static_cast<size_t>(std::clamp(number, 0, 5))];
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            if ((rows[static_cast<size_t>(y)] & 0x80 >> x) != 0)
                hatch.setPixelColor(x, y, line);
        }
    }
    return hatch;
}

} // namespace

MetafileState::MetafileState(const tvpicture::MetafileFrame& frame)
    : Mapping(frame)
    , Pen(std::make_shared<MetafilePen>())
    , Brush(std::make_shared<MetafileBrush>())
    , Font(std::make_shared<MetafileFont>())
    , Palette(std::make_shared<MetafilePalette>())
{
    Palette->Colours = DefaultColours();
}

MetafileContext::MetafileContext(const tvpicture::MetafileFrame& frame, QImage& picture)
    : State(frame)
    , picture_(picture)
    , painter_(std::make_unique<QPainter>(&picture))
{
}

void MetafileContext::End()
{
    painter_->end();
}

QPainter& MetafileContext::Painter()
{
    if (State.Clip && State.Clip != clip_)
        painter_->setClipRegion(*State.Clip);
    else if (!State.Clip && clip_)
        painter_->setClipping(false);
    clip_ = State.Clip;
    painter_->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(Qt::NoBrush);
    return *painter_;
}

bool MetafileContext::Save()
{
    if (saved_.size() >= kDeepestSave)
        return false;
    saved_.push_back(State);
    return true;
}

void MetafileContext::Restore(int level)
{
    const auto depth = static_cast<int>(saved_.size());
    const int wanted = level < 0 ? depth + level : level - 1;
    if (wanted < 0 || wanted >= depth)
        return;
    State = saved_[static_cast<size_t>(wanted)];
    saved_.erase(saved_.begin() + wanted, saved_.end());
}

bool MetafileContext::Create(MetafileObject object)
{
    if (!freeNumbers_.empty()) {
        objects_[static_cast<size_t>(freeNumbers_.top())] = std::move(object);
        freeNumbers_.pop();
        return true;
    }
    if (objects_.size() >= kMaxObjects)
        return false;
    objects_.push_back(std::move(object));
    return true;
}

void MetafileContext::Delete(int number)
{
    if (std::holds_alternative<std::monostate>(Object(number)))
        return;
    objects_[static_cast<size_t>(number)] = std::monostate();
    freeNumbers_.push(number);
}

MetafileObject MetafileContext::Object(int number) const
{
    const auto at = static_cast<size_t>(number);
    return at < objects_.size() ? objects_[at] : MetafileObject();
}

bool MetafileContext::Spend(qint64 pixels)
{
    work_ += pixels + kRecordCost;
    return work_ <= kWorkBudget;
}

bool MetafileContext::SpendArea(const QRect& area)
{
    const QRect seen = area.intersected(picture_.rect());
    return Spend(qint64{ seen.width() } * seen.height());
}

bool MetafileContext::KeepPixels(qint64 pixels)
{
    keptPixels_ += pixels;
    return keptPixels_ <= kMaxKeptPixels && Spend(pixels);
}

QColor MetafileContext::Colour(MetafileColour colour) const
{
    constexpr quint32 kPaletteNumber = 0x01;
    if (colour >> 24 == kPaletteNumber)
        return QColor::fromRgb(State.Palette->Colours.value(static_cast<int>(colour & 0xFFFF), qRgb(0, 0, 0)));
    return { static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
        static_cast<int>(colour >> 16 & 0xFF) };
}

QPainter::CompositionMode MetafileContext::ModeOf(int rop2)
{
    static constexpr std::array<QPainter::CompositionMode, 16> kModes{
        QPainter::RasterOp_ClearDestination,
        QPainter::RasterOp_NotSourceAndNotDestination,
        QPainter::RasterOp_NotSourceAndDestination,
        QPainter::RasterOp_NotSource,
        QPainter::RasterOp_SourceAndNotDestination,
        QPainter::RasterOp_NotDestination,
        QPainter::RasterOp_SourceXorDestination,
        QPainter::RasterOp_NotSourceOrNotDestination,
        QPainter::RasterOp_SourceAndDestination,
        QPainter::RasterOp_NotSourceXorDestination,
        QPainter::CompositionMode_Destination,
        QPainter::RasterOp_NotSourceOrDestination,
        QPainter::CompositionMode_SourceOver,
        QPainter::RasterOp_SourceOrNotDestination,
        QPainter::RasterOp_SourceOrDestination,
        QPainter::RasterOp_SetDestination,
    };
    return kModes[static_cast<size_t>(std::clamp(rop2, 1, 16) - 1)];
}

QPen MetafileContext::PenToPaint() const
{
    const MetafilePen& pen = *State.Pen;
    if (pen.Style == MetafilePen::Line::None)
        return Qt::NoPen;
    const auto width = std::max<int>(1, static_cast<int>(std::lround(State.Mapping.Across(pen.Width))));
    QPen paint(Colour(pen.Colour), width);
    if (width > 1) { // wide lines are solid
        paint.setCapStyle(pen.Cap);
        paint.setJoinStyle(pen.Join);
        return paint;
    }
    paint.setCapStyle(Qt::FlatCap); // thin lines exclude the last point
    if (pen.Style >= MetafilePen::Line::Dash && pen.Style <= MetafilePen::Line::DashDotDot)
        paint.setDashPattern(Dashes(pen.Style));
    return paint;
}

QBrush MetafileContext::BrushToPaint(const MetafileBrush& brush) const
{
    switch (brush.Style) {
    case MetafileBrush::Kind::None:
        return Qt::NoBrush;
    case MetafileBrush::Kind::Hatched: {
        const QColor gap = State.Opaque ? Colour(State.BackColour) : QColor(Qt::transparent);
        return QBrush(Hatch(brush.Hatch, Colour(brush.Colour), gap));
    }
    case MetafileBrush::Kind::Pattern: {
        QImage pattern = brush.Picture;
        if (pattern.format() == QImage::Format_Mono)
            pattern.setColorTable({ Colour(State.TextColour).rgb(), Colour(State.BackColour).rgb() });
        return QBrush(pattern.convertToFormat(QImage::Format_RGB32));
    }
    default:
        return Colour(brush.Colour);
    }
}

} // namespace tarvik
