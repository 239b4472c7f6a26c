// bench_pictures make FOLDER                 writes twenty screens with noise, grid and text: FOLDER/00.bmp to 19.bmp
// bench_pictures bare FORMAT FOLDER FILE...  only decodes each file and encodes it as png or pcx in FOLDER
#include "bench/receiverScreen.h"
#include "closed/tvimg.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>

#include <algorithm>
#include <cstdio>

namespace tarvik {

namespace {

constexpr int kScreens = 20;

TvImgContext ContextOf(QImage& image)
{
    return { reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height(),
        static_cast<int32_t>(image.bytesPerLine() / static_cast<qsizetype>(sizeof(uint32_t))) };
}

bool Make(const QString& folder)
{
    for (unsigned number = 0; number < kScreens; ++number) {
        if (!ReceiverScreen(number).save(QStringLiteral("%1/%2.bmp").arg(folder).arg(number, 2, 10, QChar('0'))))
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

} // namespace tarvik

using namespace tarvik;

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
