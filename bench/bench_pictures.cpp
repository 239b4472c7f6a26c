// bench_pictures make FOLDER                 writes twenty screens with noise, grid and text: FOLDER/00.bmp to 19.bmp
// bench_pictures bare FORMAT FOLDER FILE...  decodes each file and encodes it as png or pcx into FOLDER, and nothing
// else
#include "closed/tvimg.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <random>

namespace {

constexpr int kScreens = 20;
constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr int kWaterfallTop = 460; ///< below it, a line of noise for each moment
constexpr int kStations = 12;

TvImgContext ContextOf(QImage& image)
{
    return { reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height(),
        static_cast<int32_t>(image.bytesPerLine() / static_cast<qsizetype>(sizeof(uint32_t))) };
}

/// A level of 0 to 255 as a waterfall shows it: blue, green, yellow, red.
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
                QStringLiteral("M%1 %2 MHz %3 dBuV")
                    .arg(station)

                    .arg(Random(8800, 10799) / 100.0)
                    .arg(Random(0, 89)));
    }

    unsigned number_;
    std::mt19937 random_;
    std::normal_distribution<double> noise_;
    QImage image_;
};

bool Make(const QString& folder)
{
    for (unsigned number = 0; number < kScreens; ++number) {
        if (!Screen(number).Draw().save(QStringLiteral("%1/%2.bmp").arg(folder).arg(number, 2, 10, QChar('0'))))
            return false;
    }
    return true;
}

QImage Decode(const TvImgApi& img, const QString& path)
{
    const QByteArray bytes = path.toUtf8();
    if (path.endsWith("bmp"))
        return QImage(path).convertToFormat(QImage::Format_RGB32);
    ScreenImageInfo info{};
    if (img.ImgGetFileInfo(bytes.constData(), &info) != 0)
        return {};
    QImage image(info.Width, info.Height, QImage::Format_RGB32);
    const TvImgContext context = ContextOf(image);
    const bool isDecoded = path.endsWith("png") ? img.ImgPngToDc(bytes.constData(), &context) == 0
                                                : img.ImgPcxToMem(bytes.constData(), &info.Width, &info.Height) == 0
            && img.ImgMemToDc(&context, 1, nullptr) == 0;
    return isDecoded ? image : QImage();
}

bool Convert(const TvImgApi& img, const QString& format, const QString& folder, const QString& path)
{
    QImage image = Decode(img, path);
    if (image.isNull())
        return false;
    const TvImgContext context = ContextOf(image);
    const QByteArray target = (folder + "/" + QFileInfo(path).completeBaseName() + "." + format).toUtf8();
    if (format == "png")
        return img.ImgDcToPng(target.constData(), &context, context.Width, context.Height) == 0;
    return img.ImgDcToPcx(target.constData(), &context, context.Width, context.Height, 1, nullptr) == 0;
}

bool Bare(const QStringList& arguments)
{
    TvImgApi img{};
    img.Size = sizeof img;
    return TvImgBind(&img) == 0 && std::all_of(arguments.begin() + 4, arguments.end(), [&](const QString& path) {
        return Convert(img, arguments[2], arguments[3], path);
    });
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == "make")
        return Make(arguments[2]) ? 0 : 1;
    if (arguments.size() > 4 && arguments[1] == "bare")
        return Bare(arguments) ? 0 : 1;
    (void)std::fprintf(stderr, "usage: bench_pictures make FOLDER | bare png|pcx FOLDER FILE...\n");
    return 2;
}
