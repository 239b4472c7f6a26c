// bench/bench_screen.cpp: document windows in the whole frame: a PNG file to its painted window, beside the bare decode
// of the same file; the redraw of a window of that size; the arranging of a hundred of them. Prints one JSON object
// with ms: medians, and the slowest of the arrangements.
#include "app/frame/MfMain.h"
#include "app/state/project.h"
#include "bench/receiverScreen.h"
#include "closed/loader.h"
#include "composition.h"
#include "link/documents/file.h"
#include "screen/document/fit.h"
#include "screen/document/view.h"
#include "screen/window/arrange.h"
#include "screen/window/closing.h"
#include "screen/window/palette.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <png.h>

namespace tarvik {

namespace {

constexpr QSize kFrame(1400, 900); // the picture has room, with the borders of its window
constexpr int kRounds = 25;
constexpr int kWindows = 100;
constexpr double kNsPerMs = 1e6;

double Ms(const std::function<void()>& act)
{
    QElapsedTimer timer;
    timer.start();
    act();
    return static_cast<double>(timer.nsecsElapsed()) / kNsPerMs;
}

double Median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

TvImgContext ContextOf(QImage& picture)
{
    return { reinterpret_cast<uint32_t*>(picture.bits()), picture.width(), picture.height(),
        static_cast<int32_t>(picture.bytesPerLine() / 4) };
}

/// Counts the pictures that are painted.
class PaintCount final : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isPicture = event->type() == QEvent::Paint && watched->objectName() == QLatin1String("PbGraph");
        Pictures += isPicture ? 1 : 0;
        return false;
    }

    int Pictures = 0;
};

class ScreenBench {
public:
    ScreenBench(MfMain& frame, const QString& folder)
        : frame_(frame)
        , path_(folder + QStringLiteral("/screen.png"))
    {
        qApp->installEventFilter(&painted_);
    }

    bool StoreFile()
    {
        QImage picture = ReceiverScreen(0);
        const TvImgContext context = ContextOf(picture);
        return TvImg().ImgDcToPng(path_.toLocal8Bit().constData(), &context, picture.width(), picture.height()) == 0;
    }

    /// By the library alone, into the form that windows show.
    double LibraryDecode()
    {
        QImage picture(kReceiverScreen, QImage::Format_RGB32);
        const QByteArray path = path_.toLocal8Bit();
        return Ms([&] {
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

    /// By the program's own decoder.
    double OwnDecode()
    {
        QImage picture(kReceiverScreen, QImage::Format_RGB32);
        const TvImgContext context = ContextOf(picture);
        const QByteArray path = path_.toLocal8Bit();
        return Ms([&] {
            if (TvImg().ImgPngToDc(path.constData(), &context) != 0)
                qFatal("not decoded");
        });
    }

    double Open()
    {
        return Ms([this] {
            painted_.Pictures = 0;
            if (!FileOpen(path_, true, true))
                qFatal("not opened");
            UntilPainted(1);
        });
    }

    static void Close()
    {
        if (!CloseWindow(WindowTable().Active, true))
            qFatal("not closed");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    double Redraw(qint16 palette)
    {
        const WindowId id = WindowTable().Active;
        PaletteStore(palette, id);
        return Ms([this, id] {
            painted_.Pictures = 0;
            DrawScreenWindow(id);
            UntilPainted(1);
        });
    }

    double Arrange(int code)
    {
        return Ms([this, code] {
            painted_.Pictures = 0;
            ArrangeWindows(code);
            UntilPainted(1); // all that are seen are painted in one turn
        });
    }

private:
    void UntilPainted(int pictures)
    {
        while (painted_.Pictures < pictures)
            QCoreApplication::processEvents();
    }

    MfMain& frame_;
    QString path_;
    PaintCount painted_;
};

void BenchOneWindow(ScreenBench& bench)
{
    std::vector<double> library;
    std::vector<double> own;
    std::vector<double> open;
    std::vector<double> redraw;
    std::vector<double> redrawGrey;
    for (int round = 0; round < kRounds; ++round) {
        library.push_back(bench.LibraryDecode());
        own.push_back(bench.OwnDecode());
        open.push_back(bench.Open());
        redraw.push_back(bench.Redraw(PaletteColour));
        redrawGrey.push_back(bench.Redraw(PaletteBlackAndWhite));
        PaletteStore(PaletteColour, WindowTable().Active);
        ScreenBench::Close();
    }
    std::printf("{\"bareDecode\": %.3f, \"ownDecode\": %.3f, \"open\": %.3f, \"redraw\": %.3f, \"redrawGrey\": %.3f, ",
        Median(library), Median(own), Median(open), Median(redraw), Median(redrawGrey));
}

void BenchHundredWindows(ScreenBench& bench)
{
    double last = 0;
    for (int window = 0; window < kWindows; ++window)
        last = bench.Open();
    double slowest = 0;
    for (const int code : { ArrangeTileHorizontally, ArrangeTileVertically, ArrangeCascade, ArrangeTileHorizontally })
        slowest = std::max(slowest, bench.Arrange(code));
    std::printf("\"openHundredth\": %.3f, \"arrange\": %.3f}\n", last, slowest);
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
    frame.BuildTexts();
    Program().MainWindowState = WinStateNormal;
    frame.ShowFrame();
    frame.resize(kFrame);
    Program().Started = true;
    if (!QTest::qWaitForWindowActive(&frame))
        return 1;
    ScreenBench bench(frame, files.path());
    if (!bench.StoreFile())
        return 1;
    bench.Open(); // the first one also loads fonts and pictures
    ScreenBench::Close();
    BenchOneWindow(bench);
    BenchHundredWindows(bench);
    return 0;
}
