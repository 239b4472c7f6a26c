#include "screen/files/document.h"

#include "app/message/message.h"
#include "app/platform/paths.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "screen/document/color.h"
#include "screen/document/compose.h"
#include "screen/document/view.h"
#include "screen/files/pictureFile.h"
#include "screen/window/arrange.h"

#include <QFileInfo>

namespace tarvik {

namespace {

/// Message for a picture that can't be read.
TextNumber<1> UnreadableText(ImageKind kind)
{
    switch (kind) {
    case ImageKind::Bitmap:
        return TextId::BmpNotRead;
    case ImageKind::Pcx:
        return TextId::PcxNotRead;
    case ImageKind::Png:
        return TextId::PngNotRead;
    default:
        return TextId::WmfNotRead;
    }
}

OpenedImage Refuse(const QString& path, ImageKind kind)
{
    MsgOk1(UnreadableText(kind), QFileInfo(path).fileName());
    return {};
}

/// Last change of a file; invalid if unknown.
QDateTime FileDate(const QString& path)
{
    int16_t year = 0;
    int16_t month = 0;
    int16_t day = 0;
    int16_t hour = 0;
    int16_t minute = 0;
    int16_t second = 0;
    const QByteArray name = ModulePath(path);
    if (TvGen().GenFileDateAndTime(name.constData(), &year, &month, &day, &hour, &minute, &second) != 0)
        return {};
    return { QDate(year, month, day), QTime(hour, minute, second) };
}

} // namespace

WindowId ImgShow(const PictureToShow& picture)
{
    const WindowSlot slot = WindowAllocate(WindowType::Screen, picture.Subtype);
    if (slot.Id == 0)
        return 0;
    if (!TheScreenWindows().Batch)
        StatusSet(picture.Title + LngStr(TextId::WindowTitleSeparator) + LngStr(TextId::StatusLoadingPicture));
    const QImage master = DecodePicture(picture.Path, picture.Kind, picture.Size, PaperOfNewDocument());
    if (master.isNull()) {
        if (!slot.Reused)
            WindowFreeSlot(slot.Id);
        ScreenStatusClear();
        return kNotDecoded;
    }
    ScreenCreate(slot, { master, picture.Date, QFileInfo(picture.Path).fileName(), picture.Modified });
    if (!slot.Reused)
        RetileIfAutoTile();
    return slot.Id;
}

OpenedImage ImgOpen(const QString& path, ImageKind kind, WindowSubtype subtype)
{
    if (!LoadPictureLibrary())
        return {};
    const std::optional<QSize> size = PictureSize(path);
    if (!size)
        return Refuse(path, kind);
    const WindowId id = ImgShow({ path, kind, *size, subtype, QFileInfo(path).fileName(), FileDate(path), false });
    if (id == kNotDecoded)
        return Refuse(path, kind);
    return { id == 0 ? 1 : 0, id };
}

bool ImgSave(const QString& path, ImageKind kind, WindowId id)
{
    if (kind == ImageKind::None || !LoadPictureLibrary())
        return false;
    ScreenStatus(id, TextId::StatusSavingPicture);
    const QImage whole = ComposeWindow(id);
    const bool written = !whole.isNull() && EncodePicture(path, kind, whole);
    ScreenStatusClear();
    const QString name = QFileInfo(path).fileName();
    if (!written) {
        if (kind == ImageKind::Metafile)
            MsgOk1(TextId::WmfNotWritten, name);
        return false;
    }
    WindowAt(id).Modified = false;
    ScreenView* view = ViewOf(id);
    if (WindowIsFileImage(id) && view != nullptr)
        view->SetCaption(name);
    return true;
}

QImage ImgRead(const QString& path, ImageKind kind)
{
    if (!LoadPictureLibrary())
        return {};
    const std::optional<QSize> size = PictureSize(path);
    QImage picture = size ? DecodePicture(path, kind, *size, PaperOfNewDocument()) : QImage();
    if (picture.isNull())
        Refuse(path, kind);
    return picture;
}

} // namespace tarvik
