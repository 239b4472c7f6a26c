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

/// The instrument takes its time before its display is on the way.
ChannelStatus FetchInto(const QString& path)
{
    ChannelSend(kFetchCommand);
    QFile::remove(path);
    TheSeams().Sleep(kInstrumentPauseMs);
    return ChannelGetStream(path);
}

/// Where a capture stands for a moment: in the program's folder, or where nothing can be written there, in one that
/// goes with this.
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

/// The file of a capture in a window of its own, which is modified: the picture is nowhere else.
WindowId ShowCapture(const QString& path)
{
    if (!PictureLibraryIsThere())
        return kFailed;
    const std::optional<QSize> size = PictureSize(path);
    if (!size)
        return kFailed;
    MsgAskOnceReset(); // what the user answered about files does not count here
    const WindowId id =
        ImgShow({ path, ImageKind::Png, *size, SubtypeLive, LngStr(TextId::LiveScreen), QDateTime(), true });
    if (id <= 0)
        return kFailed;
    QFile::remove(path);
    return id;
}

/// The frame's pointer shows that it works.
class FramePointer {
public:
    FramePointer()
    {
        TheFrame()->ShowBusyPointer(true);
    }
    ~FramePointer()
    {
        TheFrame()->ShowBusyPointer(false);
    }
    FramePointer(const FramePointer&) = delete;
    FramePointer& operator=(const FramePointer&) = delete;
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
    if (!PictureLibraryIsThere())
        return;
    const BusyScope busy;
    const FramePointer pointer;
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
