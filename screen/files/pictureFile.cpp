#include "screen/files/pictureFile.h"

#include "app/platform/NewFileDevice.h"
#include "app/platform/paths.h"
#include "app/state/progressBar.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "screen/bitmap/bitmapReader.h"
#include "screen/document/color.h"
#include "screen/metafile/metafileReader.h"
#include "screen/metafile/metafileWriter.h"
#include "screen/window/screenWindow.h"

#include <QFile>

#include <new>

namespace tarvik {

namespace {

/// The largest bitmap with its header; no other kind that is read here needs more.
constexpr qint64 kMaxFileBytes = qint64{ 4 } * TVIMG_MAX_PIXELS + 0x10000;

constexpr int16_t kPlainMode = 1;

QByteArray ReadWholeFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMaxFileBytes)
        return {};
    return file.readAll();
}

TvImgContext ContextOf(QImage& picture)
{
    return { reinterpret_cast<uint32_t*>(picture.bits()), picture.width(), picture.height(),
        static_cast<int32_t>(picture.bytesPerLine() / 4) };
}

/// For a picture that the library only reads; does not detach shared pixels.
TvImgContext ReadOnlyContextOf(const QImage& picture)
{
    return { reinterpret_cast<uint32_t*>(const_cast<uchar*>(picture.constBits())), picture.width(), picture.height(),
        static_cast<int32_t>(picture.bytesPerLine() / 4) };
}

/// The frame's progress box for one picture. A batch has a form for all of them, and need not paint the box twice a
/// file.
class PictureProgress {
public:
    explicit PictureProgress(int lines)
    {
        if (!TheScreenWindows().Batch)
            ProgressStart(lines);
    }
    ~PictureProgress()
    {
        ProgressEnd();
    }
    PictureProgress(const PictureProgress&) = delete;
    PictureProgress& operator=(const PictureProgress&) = delete;
};

bool DecodePcx(const QByteArray& path, QSize size, const TvImgContext& context)
{
    int32_t width = 0;
    int32_t height = 0;
    return TvImg().ImgPcxToMem(path.constData(), &width, &height) == 0 && QSize(width, height) == size
        && TvImg().ImgMemToDc(&context, kPlainMode, &Progress().WorkCounter) == 0;
}

QImage DecodeByLibrary(const QString& path, ImageKind kind, QSize size, quint32 paper)
{
    QImage picture(size, QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    picture.fill(ColorOf(paper));
    const QByteArray name = ModulePath(path);
    const TvImgContext context = ContextOf(picture);
    const PictureProgress progress(size.height());
    const bool decoded =
        kind == ImageKind::Png ? TvImg().ImgPngToDc(name.constData(), &context) == 0 : DecodePcx(name, size, context);
    return decoded ? picture : QImage();
}

/// The file may have been replaced since its size was read.
QImage IfOfSize(const std::optional<QImage>& picture, QSize size)
{
    return picture && picture->size() == size ? *picture : QImage();
}

bool WriteByLibrary(const QString& path, ImageKind kind, const QImage& picture)
{
    const QByteArray name = ModulePath(path);
    const TvImgContext context = ReadOnlyContextOf(picture);
    const PictureProgress progress(picture.height());
    const int16_t result = kind == ImageKind::Png
        ? TvImg().ImgDcToPng(name.constData(), &context, picture.width(), picture.height())
        : TvImg().ImgDcToPcx(
            name.constData(), &context, picture.width(), picture.height(), kPlainMode, &Progress().WorkCounter);
    return result == 0;
}

bool WriteBitmap(const QString& path, const QImage& picture)
{
    NewFileDevice file(path);
    return file.open(QIODevice::WriteOnly) && picture.save(&file, "BMP") && file.Commit();
}

QImage Decode(const QString& path, ImageKind kind, QSize size, quint32 paper)
{
    switch (kind) {
    case ImageKind::Bitmap:
        return IfOfSize(ReadBitmap(ReadWholeFile(path), ColorOf(paper)), size);
    case ImageKind::Metafile:
        return IfOfSize(ReadMetafile(ReadWholeFile(path), ColorOf(paper)), size);
    case ImageKind::Png:
    case ImageKind::Pcx:
        return DecodeByLibrary(path, kind, size, paper);
    default:
        return {};
    }
}

bool Encode(const QString& path, ImageKind kind, const QImage& picture)
{
    switch (kind) {
    case ImageKind::Bitmap:
        return WriteBitmap(path, picture);
    case ImageKind::Metafile:
        return WriteMetafile(path, picture);
    case ImageKind::Png:
    case ImageKind::Pcx:
        return WriteByLibrary(path, kind, picture);
    default:
        return false;
    }
}

} // namespace

bool LoadPictureLibrary()
{
    return ModuleIsBound(Module::Pictures) || ModuleLoad(Module::Pictures, Program().AppPath);
}

std::optional<QSize> PictureSize(const QString& path)
{
    ScreenImageInfo info{};
    if (TvImg().ImgGetFileInfo(ModulePath(path).constData(), &info) != 0)
        return std::nullopt;
    return QSize(info.Width, info.Height);
}

// Running out of memory for a picture must not end the program with its open documents.

QImage DecodePicture(const QString& path, ImageKind kind, QSize size, quint32 paper)
{
    try {
        return Decode(path, kind, size, paper);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

bool EncodePicture(const QString& path, ImageKind kind, const QImage& picture)
{
    try {
        return Encode(path, kind, picture);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace tarvik
