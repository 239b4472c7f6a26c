#include "screen/files/screenShot.h"

#include "app/message/message.h"
#include "app/platform/replaceFile.h"
#include "app/platform/seams.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "link/channel/channel.h"
#include "screen/files/document.h"
#include "screen/files/pictureFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <optional>

namespace tarvik {

namespace {

constexpr int kInstrumentPauseMs = 2000;
constexpr WindowId kFailed = -1;

const QString kFetchCommand = QStringLiteral("DISP:WIND:FETC?");
const QString kExtension = QStringLiteral("png");

/// Pauses because the instrument needs time to prepare its picture.
ChannelStatus FetchInto(const QString& path)
{
    ChannelSend(kFetchCommand);
    QFile::remove(path);
    TheSeams().Sleep(kInstrumentPauseMs);
    return ChannelGetStream(path);
}

/// Temporary file of a capture: in the program's folder, or if that is not writable, in a temporary folder, removed
/// with this object.
class TemporaryFile {
public:
    explicit TemporaryFile(const QString& name)
        : path_(Program().AppPath + name)
    {
        if (CanReplaceFile(path_))
            return;
        folder_.emplace();
        path_ = folder_->filePath(name);
    }
    const QString& Path() const
    {
        return path_;
    }

private:
    std::optional<QTemporaryDir> folder_;
    QString path_;
};

/// Shows a captured file in a new window, marked modified, and deletes the file.
WindowId ShowCapture(const QString& path)
{
    if (!LoadPictureLibrary())
        return kFailed;
    const std::optional<QSize> size = PictureSize(path);
    if (!size)
        return kFailed;
    MsgAskOnceReset(); // answers given while opening files do not apply
    const WindowId id =
        ImgShow({ path, ImageKind::Png, *size, WindowSubtype::Live, LngStr(TextId::LiveScreen), QDateTime(), true });
    if (id <= 0)
        return kFailed;
    QFile::remove(path);
    return id;
}

class FrameBusyPointer {
public:
    FrameBusyPointer()
    {
        TheFrame()->ShowBusyPointer(true);
    }
    ~FrameBusyPointer()
    {
        TheFrame()->ShowBusyPointer(false);
    }
    FrameBusyPointer(const FrameBusyPointer&) = delete;
    FrameBusyPointer& operator=(const FrameBusyPointer&) = delete;
};

} // namespace

WindowId FetchScreen()
{
    if (!ChannelIsUp())
        return kFailed;
    const QString name = TemporaryName(kExtension);
    if (name.isEmpty())
        return kFailed;
    TheFrame()->FinishPainting();
    const TemporaryFile file(name);
    if (FetchInto(file.Path()) != ChannelStatus::Success) {
        ChannelDisconnect();
        MsgOk(TextId::LinkLost);
        return kFailed;
    }
    return ShowCapture(file.Path());
}

void CaptureScreen()
{
    if (!LoadPictureLibrary())
        return;
    const BusyScope busy;
    const FrameBusyPointer pointer;
    FetchScreen();
}

QString TemporaryName(const QString& extension)
{
    for (int number = 0; number < kTemporaryFiles; ++number) {
        QString name = TemporaryFileName(number, extension);
        const QString path = Program().AppPath + name;
        if (!QFile::exists(path) || QFile::remove(path))
            return name;
    }
    return {};
}

} // namespace tarvik
