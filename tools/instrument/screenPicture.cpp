#include "tools/instrument/screenPicture.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvik {

namespace {

constexpr QRgb kBackground = 0xFF10161D;
constexpr QRgb kPanel = 0xFF1A232D;
constexpr QRgb kGrid = 0xFF2E3B48;
constexpr QRgb kDim = 0xFF93A4B5;
constexpr QRgb kBright = 0xFFF2F6FA;
constexpr QRgb kAccent = 0xFF4FC3F7;
constexpr QRgb kTrace = 0xFFFFD54F;
constexpr QRgb kMarker = 0xFFFF6E6E;

constexpr int kMarginPx = 8;
constexpr int kScalePx = 34; // space for the level scale
constexpr int kPlotLeft = kMarginPx + kScalePx;
constexpr int kPlotWidth = kScreenWidthPx - kPlotLeft - kMarginPx;
constexpr int kTitleHeight = 26;
constexpr QRect kTuning(kMarginPx, kTitleHeight + 6, kScreenWidthPx - 2 * kMarginPx, 64);
constexpr QRect kSpectrum(kPlotLeft, 106, kPlotWidth, 150);
constexpr QRect kWaterfall(kPlotLeft, 276, kPlotWidth, 134);
constexpr int kKeysTop = kScreenHeightPx - 26;
constexpr int kGridColumns = 10;
constexpr int kLevelStep = 20; // dB between grid lines

QFont Font(int heightPx, bool isBold = false)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(heightPx);
    font.setBold(isBold);
    return font;
}

void Text(QPainter& painter, const QRect& place, int alignment, const QFont& font, QRgb color, const QString& text)
{
    painter.setFont(font);
    painter.setPen(QColor::fromRgb(color));
    const QString fitted = painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width());
    painter.drawText(place, alignment | Qt::TextSingleLine, fitted);
}

int LevelY(double level)
{
    const double part = (kHighestLevel - level) / (kHighestLevel - kLowestLevel);
    return kSpectrum.top() + static_cast<int>(std::lround(part * (kSpectrum.height() - 1)));
}

void DrawTitle(QPainter& painter, const ScreenContent& content)
{
    const QRect bar(0, 0, kScreenWidthPx, kTitleHeight);
    painter.fillRect(bar, QColor::fromRgb(kPanel));
    const QRect inside = bar.adjusted(kMarginPx, 0, -kMarginPx, 0);
    Text(painter, inside, Qt::AlignLeft | Qt::AlignVCenter, Font(13, true), kBright, content.Model);
    Text(painter, inside, Qt::AlignHCenter | Qt::AlignVCenter, Font(12), kAccent, QStringLiteral("MEMORY SCAN"));
    Text(painter, inside, Qt::AlignRight | Qt::AlignVCenter, Font(12), kDim,
        content.Now.toString(QStringLiteral("yyyy-MM-dd  HH:mm:ss")));
}

void DrawLevelBar(QPainter& painter, const QRect& place, double level)
{
    const double part = (level - kLowestLevel) / (kHighestLevel - kLowestLevel);
    painter.fillRect(place, QColor::fromRgb(kGrid));
    painter.fillRect(QRect(place.topLeft(), QSize(static_cast<int>(part * place.width()), place.height())),
        QColor::fromRgb(kAccent));
}

void DrawTuning(QPainter& painter, const ScreenContent& content)
{
    const Carrier& tuned = content.Tuned;
    const double level = std::clamp(CarrierLevel(tuned, content.Sweep), kLowestLevel, kHighestLevel);
    painter.fillRect(kTuning, QColor::fromRgb(kPanel));
    const QRect inside = kTuning.adjusted(10, 5, -10, -6);
    const QRect left(inside.topLeft(), QSize(360, inside.height()));
    const QRect right(left.right() + 8, inside.top(), inside.right() - left.right() - 8, inside.height());
    Text(painter, left, Qt::AlignLeft | Qt::AlignTop, Font(28, true), kBright,
        FrequencyText(tuned.FrequencyHz) + QStringLiteral(" MHz"));
    Text(painter, left, Qt::AlignLeft | Qt::AlignBottom, Font(13), kAccent, tuned.Description);
    Text(painter, right, Qt::AlignRight | Qt::AlignTop, Font(20, true), kBright,
        QString::number(level, 'f', 1) + QStringLiteral(" dB\u00B5V"));
    Text(painter, right, Qt::AlignRight | Qt::AlignBottom, Font(13), kDim,
        DemodulationText(tuned.Demodulation) + QStringLiteral("  ") + WidthText(tuned.BandwidthHz));
    DrawLevelBar(painter, QRect(right.left(), right.top() + 28, right.width(), 5), level);
}

void DrawGrid(QPainter& painter, const ScreenContent& content)
{
    for (int column = 0; column <= kGridColumns; ++column) {
        const int x = kSpectrum.left() + column * (kSpectrum.width() - 1) / kGridColumns;
        painter.fillRect(QRect(x, kSpectrum.top(), 1, kSpectrum.height()), QColor::fromRgb(kGrid));
    }
    for (int level = static_cast<int>(kLowestLevel); level <= kHighestLevel; level += kLevelStep) {
        const int y = LevelY(level);
        painter.fillRect(QRect(kSpectrum.left(), y, kSpectrum.width(), 1), QColor::fromRgb(kGrid));
        Text(painter, QRect(kMarginPx, y - 7, kScalePx - 5, 14), Qt::AlignRight | Qt::AlignVCenter, Font(10), kDim,
            QString::number(level));
    }
    const double halfHz = content.Tuned.SpanHz / 2;
    const QRect labels(kSpectrum.left(), kSpectrum.bottom() + 4, kSpectrum.width(), 14);
    Text(painter, labels, Qt::AlignLeft, Font(11), kDim, FrequencyText(content.Tuned.FrequencyHz - halfHz));
    Text(painter, labels, Qt::AlignHCenter, Font(11), kDim, QStringLiteral("span ") + WidthText(content.Tuned.SpanHz));
    Text(painter, labels, Qt::AlignRight, Font(11), kDim, FrequencyText(content.Tuned.FrequencyHz + halfHz));
}

std::vector<double> Levels(const ScreenContent& content, SweepNumber sweep)
{
    return SweepLevels(content.Carriers, content.Tuned.FrequencyHz, content.Tuned.SpanHz, kPlotWidth, sweep);
}

void DrawTrace(QPainter& painter, const ScreenContent& content)
{
    const std::vector<double> levels = Levels(content, content.Sweep);
    QPolygonF trace;
    for (int point = 0; point < kPlotWidth; ++point)
        trace << QPointF(kSpectrum.left() + point, LevelY(levels[static_cast<size_t>(point)]));
    QPolygonF area = trace;
    area << QPointF(kSpectrum.right(), kSpectrum.bottom()) << QPointF(kSpectrum.left(), kSpectrum.bottom());
    QColor fill = QColor::fromRgb(kTrace);
    fill.setAlpha(40);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawPolygon(area);
    painter.setPen(QColor::fromRgb(kTrace));
    painter.drawPolyline(trace);

    QColor marker = QColor::fromRgb(kMarker);
    marker.setAlpha(150);
    painter.fillRect(QRect(kSpectrum.center().x(), kSpectrum.top(), 1, kSpectrum.height()), marker);
}

/// Dark blue via green and yellow to white.
QRgb HeatColor(double part)
{
    struct Stop {
        double At;
        int Red, Green, Blue;
    };
    static constexpr std::array kStops{ Stop{ 0, 8, 14, 40 }, Stop{ 0.25, 14, 60, 120 }, Stop{ 0.45, 0, 160, 150 },
        Stop{ 0.7, 250, 210, 60 }, Stop{ 1, 255, 255, 255 } };
    size_t next = 1;
    while (next + 1 < kStops.size() && part > kStops[next].At)
        ++next;
    const Stop& low = kStops[next - 1];
    const Stop& high = kStops[next];
    const double share = (part - low.At) / (high.At - low.At);
    const auto mix = [share](int from, int to) { return from + static_cast<int>(share * (to - from)); };
    return qRgb(mix(low.Red, high.Red), mix(low.Green, high.Green), mix(low.Blue, high.Blue));
}

void DrawWaterfall(QPainter& painter, const ScreenContent& content)
{
    QImage rows(kWaterfall.size(), QImage::Format_RGB32);
    for (int row = 0; row < rows.height(); ++row) {
        // Negative sweep numbers wrap around and are valid too.
        const std::vector<double> levels = Levels(content, content.Sweep - static_cast<SweepNumber>(row));
        auto* pixels = reinterpret_cast<QRgb*>(rows.scanLine(row));
        std::transform(levels.begin(), levels.end(), pixels, [](double level) {
            return HeatColor(std::clamp((level - kLowestLevel) / (kHighestLevel - kLowestLevel - 20), 0.0, 1.0));
        });
    }
    painter.drawImage(kWaterfall.topLeft(), rows);
    Text(painter, QRect(kMarginPx, kWaterfall.top() - 2, kScalePx - 5, 14), Qt::AlignRight, Font(10), kDim,
        QStringLiteral("0 s"));
    Text(painter, QRect(kMarginPx, kWaterfall.bottom() - 12, kScalePx - 5, 14), Qt::AlignRight, Font(10), kDim,
        QStringLiteral("-%1 s").arg(kWaterfall.height() / 20.0, 0, 'f', 1));
}

void DrawKeys(QPainter& painter)
{
    static const std::array<QString, 6> keys{ QStringLiteral("FREQ"), QStringLiteral("SPAN"), QStringLiteral("DEMOD"),
        QStringLiteral("SCAN"), QStringLiteral("MEMORY"), QStringLiteral("CONFIG") };
    const int width = (kScreenWidthPx - 2 * kMarginPx + 4) / static_cast<int>(keys.size());
    for (size_t i = 0; i < keys.size(); ++i) {
        const QRect key(kMarginPx + static_cast<int>(i) * width, kKeysTop, width - 4, 20);
        painter.fillRect(key, QColor::fromRgb(kPanel));
        Text(painter, key, Qt::AlignCenter, Font(11), keys[i] == QLatin1String("SCAN") ? kAccent : kDim, keys[i]);
    }
}

} // namespace

QImage DrawScreen(const ScreenContent& content)
{
    QImage picture(kScreenWidthPx, kScreenHeightPx, QImage::Format_RGB32);
    picture.fill(kBackground);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::TextAntialiasing);
    DrawTitle(painter, content);
    DrawTuning(painter, content);
    DrawGrid(painter, content);
    DrawTrace(painter, content);
    DrawWaterfall(painter, content);
    DrawKeys(painter);
    return picture;
}

QString DemodulationText(int code)
{
    static const std::array<QString, 8> texts{ QStringLiteral("FM"), QStringLiteral("AM"), QStringLiteral("PULSE"),
        QStringLiteral("IQ"), QStringLiteral("CW"), QStringLiteral("USB"), QStringLiteral("LSB"),
        QStringLiteral("ISB") };
    return code >= 0 && static_cast<size_t>(code) < texts.size() ? texts[static_cast<size_t>(code)] : QString();
}

QString FrequencyText(double frequencyHz)
{
    const QString text = QString::number(frequencyHz / 1e6, 'f', 6);
    return text.chopped(3) + u' ' + text.last(3);
}

QString WidthText(double widthHz)
{
    if (widthHz >= 1e6)
        return QStringLiteral("%1 MHz").arg(widthHz / 1e6);
    return widthHz >= 1e3 ? QStringLiteral("%1 kHz").arg(widthHz / 1e3) : QStringLiteral("%1 Hz").arg(widthHz);
}

} // namespace tarvik
