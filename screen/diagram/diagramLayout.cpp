#include "screen/diagram/diagramLayout.h"

#include "screen/document/window.h"

#include <QFontMetrics>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr int kBandLines = 3; ///< lines of text around the plot
constexpr int kBandX = 5; ///< and this at the default size of the window, pixels
constexpr int kBandY = 3;
constexpr int kMinPlotPx = 10;
constexpr double kMinShareOfPlot = 0.75;
constexpr int kSmallestFontPx = 8;
constexpr int kLargestFontPx = 16;
constexpr int kTextMarginPx = 1; ///< on both sides of a text: antialiased edges
const QString kWidestUnit = QStringLiteral("dB");

/// The program's font, as large as on a screen of 96 pixels per inch, so that a diagram looks alike on every screen.
int ProgramFontPx()
{
    const QFont font = QGuiApplication::font();
    const double pixels = font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * 96 / 72;
    return std::clamp(static_cast<int>(std::lround(pixels)), kSmallestFontPx, kLargestFontPx);
}

QFont FontOf(int pixels, double scale)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(static_cast<int>(std::lround(pixels * scale)), 1));
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

int Band(int parts, int size, int defaultSize)
{
    return parts * size / defaultSize;
}

/// First and last pixel of the plot in one direction; their distance is even.
std::pair<int, int> Span(int before, int after, int size)
{
    const int end = std::max(size - after, before + kMinPlotPx);
    return { before, end + (end - before) % 2 };
}

int BandHeight(int lineHeight, int height)
{
    return kBandLines * lineHeight + Band(kBandY, height, WindowDefaultSize(WindowType::DataSet, {}).height());
}

bool Fits(const QFont& font, int height)
{
    const QFontMetrics metrics(font);
    const int band = BandHeight(metrics.height(), height);
    const auto [top, bottom] = Span(band, band, height);
    return bottom - top >= kMinShareOfPlot * height && metrics.horizontalAdvance(kWidestUnit) <= bottom - top;
}

/// Puts the parts of one diagram in place.
class Layouter {
public:
    Layouter(const DiagramText& text, QSize size, double scale)
        : text_(text)
        , picture_(QPoint(), size)
        , metrics_(DiagramFont(size.height(), scale))
    {
        layout_.Font = DiagramFont(size.height(), scale);
        layout_.LineWidth = std::max(static_cast<int>(std::lround(scale)), 1);
        lineHeight_ = metrics_.height();
        gap_ = std::max(lineHeight_ / 4, 2);
    }

    DiagramLayout Run()
    {
        PlacePlot();
        PlaceGrid();
        PlaceTitle();
        PlaceXAxis();
        PlaceYAxis();
        PlaceLegend();
        return std::move(layout_);
    }

private:
    int WidthOf(const QString& text) const
    {
        return text.isEmpty() ? 0 : metrics_.horizontalAdvance(text) + 2 * kTextMarginPx;
    }

    QRect PlaceOf(const QString& text, int left, int top) const
    {
        return { left, top, WidthOf(text), lineHeight_ };
    }

    bool IsFree(const QRect& place) const
    {
        return picture_.contains(place)
            && std::none_of(layout_.Labels.begin(), layout_.Labels.end(),
                [&place](const DiagramLabel& other) { return other.Place.intersects(place); });
    }

    void Add(const QString& text, const QRect& place)
    {
        if (!text.isEmpty() && IsFree(place))
            layout_.Labels.append({ text, place });
    }

    void PlacePlot()
    {
        const QSize defaultSize = WindowDefaultSize(WindowType::DataSet, {});
        const int bandX = Band(kBandX, picture_.width(), defaultSize.width());
        int widest = WidthOf(text_.YCaption);
        for (const QString& label : text_.YLabels)
            widest = std::max(widest, WidthOf(label));
        const int leftBand = std::clamp(
            widest + gap_, kBandLines * lineHeight_, std::max(picture_.width() / 2, kBandLines * lineHeight_));
        const auto [left, right] = Span(leftBand + bandX, kBandLines * lineHeight_ + bandX, picture_.width());
        const int band = BandHeight(lineHeight_, picture_.height());
        const auto [top, bottom] = Span(band, band, picture_.height());
        layout_.Plot = { left, top, right - left, bottom - top };
    }

    void PlaceGrid()
    {
        const QRect& plot = layout_.Plot;
        const int centre = plot.top() + plot.height() / 2;
        for (int at = 1; at < kDivisions; ++at) {
            layout_.Columns.append(plot.left() + at * plot.width() / kDivisions);
            layout_.Rows.append(centre + (at - kDivisions / 2) * plot.height() / kDivisions);
        }
    }

    void PlaceTitle()
    {
        const QString title = metrics_.elidedText(text_.Title, Qt::ElideRight, picture_.width() - 2 * gap_);
        Add(title, PlaceOf(title, (picture_.width() - WidthOf(title)) / 2, gap_ / 2));
    }

    /// Centred below the grid lines; those at the ends stay in the picture.
    void PlaceXAxis()
    {
        const QRect& plot = layout_.Plot;
        const int top = plot.bottom() + 1 + lineHeight_ / 2 + layout_.LineWidth;
        const auto place = [&](int at) {
            const int width = WidthOf(text_.XLabels[static_cast<size_t>(at)]);
            const int left = plot.left() + at * plot.width() / kDivisions - width / 2;
            return QRect(std::max(std::min(left, picture_.width() - width), 0), top, width, lineHeight_);
        };
        AddLabels(text_.XLabels, place, gap_);
        const int captionWidth = WidthOf(text_.XCaption);
        Add(text_.XCaption,
            PlaceOf(text_.XCaption, plot.left() + (plot.width() - captionWidth) / 2, top + lineHeight_));
    }

    /// Left of the grid lines, the caption above them.
    void PlaceYAxis()
    {
        const QRect& plot = layout_.Plot;
        const int right = plot.left() - layout_.LineWidth - gap_;
        const auto place = [&](int at) {
            const QString& label = text_.YLabels[static_cast<size_t>(at)];
            const int centre = plot.bottom() + 1 - at * plot.height() / kDivisions;
            return PlaceOf(label, right - WidthOf(label), centre - lineHeight_ / 2);
        };
        AddLabels(text_.YLabels, place, 0);
        Add(text_.YCaption,
            PlaceOf(text_.YCaption, right - WidthOf(text_.YCaption), plot.top() - lineHeight_ / 2 - lineHeight_ - 1));
    }

    /// As many labels as have room with at least `gap` between them.
    template <typename Place>
    void AddLabels(const AxisLabels& labels, Place place, int gap)
    {
        for (const int step : { 1, 2, 5, kDivisions }) {
            if (!HasRoom(labels, place, step, gap) && step != kDivisions)
                continue;
            for (int at = 0; at <= kDivisions; at += step)
                Add(labels[static_cast<size_t>(at)], place(at));
            return;
        }
    }

    template <typename Place>
    bool HasRoom(const AxisLabels& labels, Place place, int step, int gap) const
    {
        QRect before;
        for (int at = 0; at <= kDivisions; at += step) {
            if (labels[static_cast<size_t>(at)].isEmpty())
                continue;
            const QRect here = place(at);
            if (here.adjusted(-gap, 0, gap, 0).intersects(before))
                return false;
            before = here;
        }
        return true;
    }

    /// One line above the plot, from its left edge: a sample and the name of each trace.
    void PlaceLegend()
    {
        const auto count = static_cast<int>(text_.Legend.size());
        const int sampleWidth = 5 * lineHeight_ / 2;
        const int separator = WidthOf(text_.LegendSeparator);
        const int taken = count * (sampleWidth + gap_) + (count - 1) * separator;
        const int nameWidth = (layout_.Plot.width() - taken) / std::max(count, 1);
        const int top = lineHeight_ + gap_ + gap_ / 2;
        int left = layout_.Plot.left();
        for (int at = 0; at < count; ++at) {
            const QRect sample(left, top, sampleWidth, lineHeight_);
            if (sample.right() > layout_.Plot.right())
                return;
            layout_.Samples.append({ at, sample });
            left += sampleWidth + gap_;
            const QString name = Elided(text_.Legend[static_cast<size_t>(at)], nameWidth);
            Add(name, PlaceOf(name, left, top));
            left += WidthOf(name);
            const QRect between = PlaceOf(text_.LegendSeparator, left, top);
            if (at + 1 == count || between.right() > layout_.Plot.right())
                return;
            Add(text_.LegendSeparator, between);
            left += separator;
        }
    }

    /// Empty where not even the first letter fits.
    QString Elided(const QString& text, int width) const
    {
        const QString elided = metrics_.elidedText(text, Qt::ElideRight, width - 2 * kTextMarginPx);
        return WidthOf(elided) > width ? QString() : elided;
    }

    const DiagramText& text_;
    QRect picture_;
    QFontMetrics metrics_;
    int lineHeight_ = 0;
    int gap_ = 0; ///< between a label and what is beside it
    DiagramLayout layout_;
};

} // namespace

QFont DiagramFont(int height, double scale)
{
    int pixels = ProgramFontPx();
    while (pixels > kSmallestFontPx && !Fits(FontOf(pixels, scale), height))
        --pixels;
    return FontOf(pixels, scale);
}

DiagramLayout LayOutDiagram(const DiagramText& text, QSize size, double scale)
{
    return Layouter(text, size, scale).Run();
}

} // namespace tarvik
