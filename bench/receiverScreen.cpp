#include "bench/receiverScreen.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <random>

namespace tarvik {

namespace {

constexpr int kWidth = kReceiverScreen.width();
constexpr int kHeight = kReceiverScreen.height();
constexpr int kWaterfallTop = 460; ///< below it one line of noise per time step
constexpr int kStations = 12;

/// Colour of a level of 0 to 255: blue, green, yellow, red.
QRgb WaterfallColor(int level)
{
    return qRgb(std::clamp(3 * level - 300, 0, 255), std::clamp(2 * level - 100, 0, 255),
        std::clamp(160 - std::abs(level - 60), 0, 255));
}

class Screen {
public:
    explicit Screen(unsigned number)
        : number_(number)
        , random_(number)
        , image_(kWidth, kHeight, QImage::Format_RGB32)
    {
    }
    QImage Draw()
    {
        image_.fill(qRgb(8, 12, 24));
        DrawWaterfall();
        QPainter painter(&image_);
        DrawGrid(painter);
        DrawTrace(painter);
        DrawText(painter);
        return image_;
    }

private:
    /// Level of the band at a column, noise included.
    double Level(int x)
    {
        double level = 40 + 12 * noise_(random_);
        for (int station = 0; station < kStations; ++station) {
            const double away = x - (station * 107 + static_cast<int>(number_) * 13) % kWidth;
            level += 150 * std::exp(-away * away / 60);
        }
        return std::clamp(level, 0.0, 255.0);
    }
    void DrawWaterfall()
    {
        for (int y = kWaterfallTop; y < kHeight; ++y) {
            auto* line = reinterpret_cast<QRgb*>(image_.scanLine(y));
            for (int x = 0; x < kWidth; ++x)
                line[x] = WaterfallColor(static_cast<int>(Level(x)));
        }
    }
    int Random(int least, int most)
    {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }
    static void DrawGrid(QPainter& painter)
    {
        painter.setPen(QColor(60, 70, 90));
        for (int x = 0; x < kWidth; x += 128)
            painter.drawLine(x, 0, x, kWaterfallTop);
        for (int y = 0; y < kWaterfallTop; y += 46)
            painter.drawLine(0, y, kWidth, y);
    }
    void DrawTrace(QPainter& painter)
    {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::green);
        QPolygonF trace;
        for (int x = 0; x < kWidth; ++x)
            trace << QPointF(x, kWaterfallTop - 20 - 1.5 * Level(x));
        painter.drawPolyline(trace);
    }
    void DrawText(QPainter& painter)
    {
        painter.setPen(Qt::white);
        painter.setFont(QFont("DejaVu Sans", 11));
        for (int station = 0; station < kStations; ++station)
            painter.drawText(12 + station % 6 * 210, 20 + station / 6 * 20,
                QStringLiteral("M%1 %2 MHz %3 dBuV").arg(station).arg(Random(8800, 10799) / 100.0).arg(Random(0, 89)));
    }

    unsigned number_;
    std::mt19937 random_;
    std::normal_distribution<double> noise_;
    QImage image_;
};

} // namespace

QImage ReceiverScreen(unsigned number)
{
    return Screen(number).Draw();
}

} // namespace tarvik
