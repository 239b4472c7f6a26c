#include "print/page/pagePaint.h"

#include "print/page/pageLayout.h"
#include "screen/bitmap/stretch.h"
#include "screen/document/description.h"
#include "screen/document/screenTable.h"
#include "screen/document/view.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace tarvik {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kScreenDotsPerInch = 96;
constexpr int kTextMarginDots = 2;
constexpr double kFontSlackPoints = 0.5;

/// A diagram is drawn in no more detail: at 1200 dots per inch its picture would fill memory.
constexpr int kMostDiagramDots = 4096;

double PointsOf(double dots, const QPaintDevice& device)
{
    return dots * kPointsPerInch / device.logicalDpiY();
}

/// The font in steps from `points` down to `least`, or to kLeastFontPoints; `fits` decides.
template <typename Fits>
QFont LargestFont(QFont font, double points, double least, const Fits& fits)
{
    least = std::max(least, kLeastFontPoints);
    for (double size = points; size > least; size -= kFontStepPoints) {
        font.setPointSizeF(size);
        if (fits(font))
            return font;
    }
    font.setPointSizeF(least);
    return font;
}

QString CaptionOf(WindowId id)
{
    const ScreenView* view = ViewOf(id);
    return view == nullptr ? QString() : view->Caption();
}

class EntryPainter {
public:
    EntryPainter(QPainter& painter, const PageEntry& entry, const QRect& device, const EntryStyle& style)
        : painter_(painter)
        , entry_(entry)
        , style_(style)
        , bands_(BandsOf(entry, device))
        , box_(device)
    {
    }

    void Paint()
    {
        const DocumentPicture* picture = PictureOf(entry_.Window);
        if (picture == nullptr || box_.isEmpty())
            return;
        PaintPicture(*picture);
        PaintTitle();
        PaintDescription();
        if (style_.Box && entry_.Outline)
            PaintBox();
    }

private:
    QPaintDevice& Device() const
    {
        return *painter_.device();
    }

    void PaintPicture(const DocumentPicture& picture)
    {
        if (bands_.Picture.isEmpty())
            return;
        const QSize most(kMostDiagramDots, kMostDiagramDots);
        const QSize place = bands_.Picture.size();
        const QSize drawn = place.width() > most.width() || place.height() > most.height()
            ? place.scaled(most, Qt::KeepAspectRatio)
            : place;
        const double scale = Device().logicalDpiX() / kScreenDotsPerInch * drawn.width() / place.width();
        const QImage image = picture.ForPage(drawn, std::max(scale, 1.0), style_.BlackAndWhite);
        painter_.drawImage(bands_.Picture, style_.OwnPixels ? image : Stretch(image, place));
    }

    void PaintTitle()
    {
        if (bands_.Title.isEmpty())
            return;
        const QRect& band = bands_.Title;
        const QString caption = CaptionOf(entry_.Window);
        const QFont font = FontForWidth(
            QFont(QStringLiteral("Arial")), PointsOf(band.height() - 2, Device()), caption, band.width(), &Device());
        painter_.setFont(font);
        const QString shown = QFontMetricsF(font, &Device()).elidedText(caption, Qt::ElideMiddle, band.width());
        painter_.drawText(band, static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextSingleLine), shown);
        painter_.fillRect(band.left(), band.bottom() + 1, band.width(), 1, Qt::black);
    }

    void PaintDescription()
    {
        if (bands_.Description.isEmpty())
            return;
        const QStringList lines = DescrLines(WindowAt(entry_.Window).Description, entry_.Window);
        const QRect& band = bands_.Description;
        const QFont font = DescriptionFont(lines, band);
        const QFontMetricsF metrics(font, &Device());
        painter_.setFont(font);
        painter_.fillRect(band.left(), band.top() - 1, band.width(), 1, Qt::black);
        double baseline = band.top() + metrics.ascent();
        for (const QString& line : lines) {
            painter_.drawText(QPointF(band.left() + kTextMarginDots, baseline), line);
            baseline += metrics.height();
        }
        const int end = qCeil(baseline - metrics.ascent()) + kTextMarginDots;
        box_.setBottom(std::min(end, box_.bottom()));
    }

    /// As large as the row of the window's columns and all lines fit into the band. Searched from a little above the
    /// size that the width of the columns suggests.
    QFont DescriptionFont(const QStringList& lines, const QRect& band) const
    {
        const WindowRecord& window = WindowAt(entry_.Window);
        const QString columns(window.DescriptionColumns, u' ');
        const auto count = static_cast<double>(lines.size());
        const double most = PointsOf(band.height() / count, Device());
        QFont font = DescrFont(window.Type);
        font.setPointSizeF(std::max(most, kLeastFontPoints));
        const double width = band.width() - 2 * kTextMarginDots;
        const double byWidth = most * width / QFontMetricsF(font, &Device()).horizontalAdvance(columns);
        return LargestFont(font, std::min(most, byWidth + kFontSlackPoints), 0, [&](const QFont& at) {
            const QFontMetricsF metrics(at, &Device());
            return metrics.horizontalAdvance(columns) <= width && metrics.height() * count <= band.height();
        });
    }

    /// Two boxes, one inside the other.
    void PaintBox()
    {
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(Qt::black, 1));
        painter_.drawRect(box_);
        painter_.drawRect(box_.adjusted(1, 1, -1, -1));
    }

    QPainter& painter_;
    const PageEntry& entry_;
    const EntryStyle& style_;
    EntryBands bands_;
    QRect box_;
};

} // namespace

EntryBands BandsOf(const PageEntry& entry, const QRect& device)
{
    const auto heightOf = [&device](float share) { return qRound(share * static_cast<float>(device.height())); };
    EntryBands bands;
    QRect rest = device;
    if (entry.Title) {
        bands.Title = device;
        bands.Title.setHeight(heightOf(entry.Shares.Title));
        rest.setTop(bands.Title.bottom() + 1);
    }
    if (entry.Shares.Description > 0) {
        bands.Description = device;
        bands.Description.setTop(device.bottom() + 1 - heightOf(entry.Shares.Description));
        rest.setBottom(bands.Description.top() - 1);
    }
    bands.Picture = rest;
    return bands;
}

QFont FontForWidth(QFont font, double points, const QString& text, int width, QPaintDevice* device)
{
    return LargestFont(std::move(font), points, points - kFontStepsRangePoints,
        [&](const QFont& at) { return QFontMetricsF(at, device).horizontalAdvance(text) <= width; });
}

WindowExtent WindowExtentOf(WindowId id)
{
    const ScreenView* view = ViewOf(id);
    return { WindowTypeOf(id), view == nullptr ? QSize() : view->GraphSize(), DescrPrintedHeight(id) };
}

void PaintPage(QPainter& painter, const PageRecord& page, const Sheet& sheet)
{
    const auto order = DrawingOrder(page);
    for (int rank = 0; rank < page.Count; ++rank) {
        const PageEntry& entry = page.Entries[static_cast<size_t>(order[static_cast<size_t>(rank)])];
        PaintEntry(painter, entry, DeviceRectangle(entry.Rectangle, sheet), { page.BlackAndWhite });
    }
}

void PaintEntry(QPainter& painter, const PageEntry& entry, const QRect& device, const EntryStyle& style)
{
    painter.save();
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::black);
    painter.setClipRect(device.adjusted(0, 0, 1, 1));
    EntryPainter(painter, entry, device, style).Paint();
    painter.restore();
}

} // namespace tarvik
