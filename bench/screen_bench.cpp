// bench/screen_bench.cpp: document windows in the frame: from a PNG file to its painted window, compared with decoding
// the file; redrawing the window, compared with a bare widget that paints the same picture; arranging 100 windows,
// compared with 100 bare windows with such widgets. Prints one JSON object in ms: medians, and the slowest arrangement.
#include "bench/benchFrame.h"
#include "bench/receiverScreen.h"
#include "bench/timing.h"
#include "closed/loader.h"
#include "composition.h"
#include "link/documents/file.h"
#include "screen/document/fit.h"
#include "screen/document/view.h"
#include "screen/window/arrange.h"
#include "screen/window/closing.h"
#include "screen/window/palette.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>
#include <vector>

#include <png.h>

namespace tarvik {

namespace {

constexpr int kRounds = 25;
constexpr int kWindows = 100;
constexpr int kTimeoutMs = 30000;
constexpr int kArrangements = 3; ///< repetitions per arrangement

TvImgContext ContextOf(QImage& picture)
{
    return { reinterpret_cast<uint32_t*>(picture.bits()), picture.width(), picture.height(),
        static_cast<int32_t>(picture.bytesPerLine() / 4) };
}

/// Counts the paint events of widgets with a name.
class PaintCount final : public QObject {
public:
    explicit PaintCount(QLatin1String name)
        : name_(name)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isPicture = event->type() == QEvent::Paint && watched->objectName() == name_;
        pictures_ += isPicture ? 1 : 0;
        return false;
    }

    /// Duration until one of them, and with it all visible ones, has been painted after `act`.
    template <typename Act>
    double Ms(Act act)
    {
        pictures_ = 0;
        return MsOf([&] {
            act();
            const QDeadlineTimer deadline(kTimeoutMs);
            while (pictures_ == 0) {
                QCoreApplication::processEvents();
                if (deadline.hasExpired())
                    qFatal("%s was not painted", name_.data());
            }
        });
    }

private:
    QLatin1String name_;
    int pictures_ = 0;
};

/// Paints a picture scaled to the widget, and nothing else.
class BarePicture final : public QWidget {
public:
    static constexpr QLatin1String kName{ "BarePicture" };

    explicit BarePicture(const QImage& picture)
        : picture_(picture.copy()) // each its own copy, like documents
    {
        setObjectName(kName);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    QSize sizeHint() const override
    {
        return picture_.size(); // for cascaded windows
    }

    void ShowColours()
    {
        shown_ = picture_;
        update();
    }

    void ShowGrey()
    {
        shown_ = picture_.copy();
        auto* pixel = reinterpret_cast<QRgb*>(shown_.bits());
        for (const QRgb* end = pixel + shown_.sizeInBytes() / qsizetype{ sizeof *pixel }; pixel != end; ++pixel) {
            const int grey = qGray(*pixel);
            *pixel = qRgb(grey, grey, grey);
        }
        update();
    }

protected:
    void resizeEvent(QResizeEvent* /*event*/) override
    {
        shown_ = picture_.scaled(size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter(this).drawImage(QPoint(), shown_);
    }

private:
    QImage picture_;
    QImage shown_;
};

class ScreenBench {
public:
    explicit ScreenBench(const QString& folder)
        : path_(folder + QStringLiteral("/screen.png"))
    {
    }

    bool StoreFile()
    {
        QImage picture = ReceiverScreen(0);
        const TvImgContext context = ContextOf(picture);
        return TvImg().ImgDcToPng(path_.toLocal8Bit().constData(), &context, picture.width(), picture.height()) == 0;
    }

    /// With libpng alone, in the format that windows use.
    double LibraryDecode()
    {
        QImage picture(kReceiverScreen, QImage::Format_RGB32);
        const QByteArray path = path_.toLocal8Bit();
        return MsOf([&] {
            png_image file{};
            file.version = PNG_IMAGE_VERSION;
            png_image_begin_read_from_file(&file, path.constData());
            file.format = PNG_FORMAT_BGRA;
            if (png_image_finish_read(
                    &file, nullptr, picture.bits(), static_cast<png_int_32>(picture.bytesPerLine()), nullptr)
                == 0)
                qFatal("not decoded");
        });
    }

    /// With the program's decoder.
    double OwnDecode()
    {
        QImage picture(kReceiverScreen, QImage::Format_RGB32);
        const TvImgContext context = ContextOf(picture);
        const QByteArray path = path_.toLocal8Bit();
        return MsOf([&] {
            if (TvImg().ImgPngToDc(path.constData(), &context) != 0)
                qFatal("not decoded");
        });
    }

    double Open()
    {
        return painted_.Ms([this] {
            if (!FileOpen(path_, true, true))
                qFatal("not opened");
        });
    }

    static void Close()
    {
        if (!CloseWindow(WindowTable().Active, true))
            qFatal("not closed");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    double Redraw(PaletteNumber palette)
    {
        const WindowId id = WindowTable().Active;
        PaletteStore(palette, id);
        return painted_.Ms([id] { DrawScreenWindow(id); });
    }

    double Arrange(Arrangement arrangement)
    {
        return painted_.Ms([arrangement] { ArrangeWindows(arrangement); });
    }

private:
    QString path_;
    PaintCount painted_{ QLatin1String("PbGraph") };
};

/// A bare MDI area of windows with such widgets.
class BareArea {
public:
    explicit BareArea(QSize size)
    {
        area_.resize(size);
        area_.show();
        if (!QTest::qWaitForWindowExposed(&area_))
            qFatal("no bare area");
    }

    void Open(int windows)
    {
        const QImage picture = ReceiverScreen(0);
        for (int window = 0; window < windows; ++window) {
            QMdiSubWindow* added = area_.addSubWindow(new BarePicture(picture));
            added->resize(kReceiverScreen);
            added->show();
        }
    }

    double Redraw()
    {
        return painted_.Ms([this] { Picture().ShowColours(); });
    }

    double RedrawGrey()
    {
        return painted_.Ms([this] { Picture().ShowGrey(); });
    }

    double Arrange(Arrangement arrangement)
    {
        return painted_.Ms([this, arrangement] { Place(arrangement); });
    }

    void Place(Arrangement arrangement)
    {
        if (arrangement == Arrangement::Cascade)
            area_.cascadeSubWindows();
        else
            area_.tileSubWindows();
    }

private:
    BarePicture& Picture() const
    {
        return *static_cast<BarePicture*>(area_.subWindowList().constFirst()->widget());
    }

    QMdiArea area_;
    PaintCount painted_{ BarePicture::kName };
};

void BenchOneWindow(ScreenBench& bench, BareArea& bare)
{
    std::vector<double> library;
    std::vector<double> own;
    std::vector<double> open;
    std::vector<double> redraw;
    std::vector<double> redrawGrey;
    std::vector<double> bareRedraw;
    std::vector<double> bareRedrawGrey;
    bare.Open(1);
    for (int round = 0; round < kRounds; ++round) {
        library.push_back(bench.LibraryDecode());
        own.push_back(bench.OwnDecode());
        open.push_back(bench.Open());
        redraw.push_back(bench.Redraw(PaletteNumber::Colour));
        redrawGrey.push_back(bench.Redraw(PaletteNumber::BlackAndWhite));
        bareRedraw.push_back(bare.Redraw());
        bareRedrawGrey.push_back(bare.RedrawGrey());
        PaletteStore(PaletteNumber::Colour, WindowTable().Active);
        ScreenBench::Close();
    }
    std::printf("{\"bareDecode\": %.3f, \"ownDecode\": %.3f, \"open\": %.3f, \"redraw\": %.3f, \"redrawGrey\": %.3f, "
                "\"bareRedraw\": %.3f, \"bareRedrawGrey\": %.3f, ",
        Median(library), Median(own), Median(open), Median(redraw), Median(redrawGrey), Median(bareRedraw),
        Median(bareRedrawGrey));
}

void BenchHundredWindows(ScreenBench& bench, BareArea& bare)
{
    double last = 0;
    for (int window = 0; window < kWindows; ++window)
        last = bench.Open();
    bare.Open(kWindows - 1);
    double slowest = 0;
    double bareSlowest = 0;
    for (const Arrangement arrangement :
        { Arrangement::TileHorizontally, Arrangement::TileVertically, Arrangement::Cascade }) {
        std::vector<double> own;
        std::vector<double> others;
        for (int round = 0; round < kArrangements; ++round) {
            const Arrangement other =
                arrangement == Arrangement::Cascade ? Arrangement::TileHorizontally : Arrangement::Cascade;
            ArrangeWindows(other); // so the windows have to move
            bare.Place(other);
            QCoreApplication::processEvents();
            own.push_back(bench.Arrange(arrangement));
            others.push_back(bare.Arrange(arrangement));
        }
        slowest = std::max(slowest, Median(own));
        bareSlowest = std::max(bareSlowest, Median(others));
    }
    std::printf("\"openHundredth\": %.3f, \"arrange\": %.3f, \"bareArrange\": %.3f}\n", last, slowest, bareSlowest);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ComposeProgram();
    const QString folder = QApplication::applicationDirPath() + QLatin1Char('/');
    for (const Module module :
        { Module::General, Module::Language, Module::Channel, Module::ListStore, Module::Pictures }) {
        if (!ModuleLoad(module, folder))
            return 1;
    }
    const QTemporaryDir files;
    MfMain frame(folder);
    if (!ShowBenchFrame(frame))
        return 1;
    ScreenBench bench(files.path());
    if (!bench.StoreFile())
        return 1;
    bench.Open(); // the first time also loads fonts and pictures
    ScreenBench::Close();
    BareArea bare(frame.size());
    BenchOneWindow(bench, bare);
    BenchHundredWindows(bench, bare);
    return 0;
}
