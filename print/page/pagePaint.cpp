#include "print/page/pagePaint.h"

#include "print/page/pageLayout.h"
#include "screen/document/description.h"
#include "screen/document/screenTable.h"
#include "screen/document/view.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace tarvik {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kScreenDotsPerInch = 96;
constexpr int kTextMarginDots = 2;

/// A diagram is drawn in no more detail: at 1200 dots per inch its picture would fill memory.
constexpr int kMostDiagramDots = 4096;

double PointsOf(double dots, const QPaintDevice& device)
{
    return dots * kPointsPerInch / device.logicalDpiY();
}

/// The font in steps below `points`; `fits` decides.
template <typename Fits>
QFont LargestFont(QFont font, double points, const Fits& fits)
{
    const double least = std::max(points - kFontStepsRangePoints, kLeastFontPoints);
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
    EntryPainter(QPainter& painter, const PageEntry& entry, const QRect& device)
        : painter_(painter)
        , entry_(entry)
        , bands_(BandsOf(entry, device))
        , box_(device)
    {
    }

    void Paint(bool blackAndWhite)
    {
        const DocumentPicture* picture = PictureOf(entry_.Window);
        if (picture == nullptr || box_.isEmpty())
            return;
        PaintPicture(*picture, blackAndWhite);
        PaintTitle();
        PaintDescription();
        PaintBox();
    }

private:
    QPaintDevice& Device() const
    {
        return *painter_.device();
    }

    void PaintPicture(const DocumentPicture& picture, bool blackAndWhite)
    {
        if (bands_.Picture.isEmpty())
            return;
        const QSize most(kMostDiagramDots, kMostDiagramDots);
        const QSize place = bands_.Picture.size();
        const QSize drawn = place.width() > most.width() || place.height() > most.height()
            ? place.scaled(most, Qt::KeepAspectRatio)
            : place;
        const double scale = Device().logicalDpiX() / kScreenDotsPerInch * drawn.width() / place.width();
        painter_.drawImage(bands_.Picture, picture.ForPage(drawn, std::max(scale, 1.0), blackAndWhite));
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
        const WindowRecord& window = WindowAt(entry_.Window);
        const QStringList lines = DescrLines(window.Description, entry_.Window);
        const QRect& band = bands_.Description;
        const QString blanks(window.DescriptionColumns, u' ');
        const auto fits = [&](const QFont& font) {
            const QFontMetricsF metrics(font, &Device());
            return metrics.horizontalAdvance(blanks) <= band.width() - 2 * kTextMarginDots
                && metrics.height() * static_cast<double>(lines.size()) <= band.height();
        };
        const double points =
            PointsOf(static_cast<double>(band.height()) / static_cast<double>(lines.size()), Device());
        const QFont font = LargestFont(DescrFont(window.Type), points, fits);
        const QFontMetricsF metrics(font, &Device());
        painter_.setFont(font);
        painter_.fillRect(band.left(), band.top() - 1, band.width(), 1, Qt::black);
        double baseline = band.top() + metrics.ascent();
        for (const QString& line : lines) {
            painter_.drawText(QPointF(band.left() + kTextMarginDots, baseline), line);
            baseline += metrics.height();
        }
    }

    /// Two boxes, one inside the other.
    void PaintBox()
    {
        if (!entry_.Outline)
            return;
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(Qt::black, 1));
        painter_.drawRect(box_);
        painter_.drawRect(box_.adjusted(1, 1, -1, -1));
    }

    QPainter& painter_;
    const PageEntry& entry_;
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
    return LargestFont(std::move(font), points,
        [&](const QFont& at) { return QFontMetricsF(at, device).horizontalAdvance(text) <= width; });
}

WindowExtent WindowExtentOf(WindowId id)
{
    const ScreenView* view = ViewOf(id);
    return { WindowTypeOf(id), view == nullptr ? QSize() : view->GraphSize(), DescrHeight(id) };
}

void PaintPage(QPainter& painter, const PageRecord& page, const Sheet& sheet)
{
    const auto order = DrawingOrder(page);
    for (int rank = 0; rank < page.Count; ++rank) {
        const PageEntry& entry = page.Entries[static_cast<size_t>(order[static_cast<size_t>(rank)])];
        PaintEntry(painter, entry, DeviceRectangle(entry.Rectangle, sheet), page.BlackAndWhite);
    }
}

void PaintEntry(QPainter& painter, const PageEntry& entry, const QRect& device, bool blackAndWhite)
{
    painter.save();
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::black);
    painter.setClipRect(device.adjusted(0, 0, 1, 1));
    EntryPainter(painter, entry, device).Paint(blackAndWhite);
    painter.restore();
}

} // namespace tarvik
