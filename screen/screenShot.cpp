#include "screen/screenShot.h"

#include "app/frameHooks.h"
#include "app/lang.h"
#include "app/message.h"
#include "app/project.h"
#include "app/seams.h"
#include "app/statusBar.h"
#include "link/channel.h"
#include "screen/arrange.h"
#include "screen/color.h"
#include "screen/pictureFile.h"

#include <QFile>

namespace {

constexpr int kTextLoading = 10104;
constexpr int kTextLinkLost = 12703;
constexpr int kTextSeparator = 14301;
constexpr int kTextLiveScreen = 14500;
constexpr int kTemporaryFiles = 10;
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

/// The file of a capture in a window of its own, which is modified: the picture is nowhere else.
WindowId ShowCapture(const QString& path, const QString& name)
{
    if (!PictureLibraryIsThere())
        return kFailed;
    const std::optional<QSize> size = PictureSize(path);
    if (!size)
        return kFailed;
    const WindowSlot slot = WindowAllocate(WindowScreen, SubtypeLive);
    if (slot.Id == 0)
        return kFailed;
    StatusSet(LngStr(kTextLiveScreen) + LngStr(kTextSeparator) + LngStr(kTextLoading));
    const QImage master = DecodePicture(path, ImagePng, *size, PaperOfNewDocument());
    if (master.isNull()) {
        if (!slot.Reused)
            WindowFreeSlot(slot.Id);
        ScreenStatusClear();
        return kFailed;
    }
    ScreenCreate(slot, { master, QDateTime(), name, true });
    QFile::remove(path);
    if (!slot.Reused)
        RetileIfWished();
    return slot.Id;
}

} // namespace

WindowId FetchScreen()
{
    if (!ChannelIsUp())
        return kFailed;
    const QString name = TemporaryName(kExtension);
    if (name.isEmpty())
        return kFailed;
    const QString path = Program().AppPath + name;
    if (FetchInto(path) != kChannelOk) {
        ChannelDisconnect();
        MsgOk(kTextLinkLost);
        return kFailed;
    }
    return ShowCapture(path, name);
}

void CaptureScreen()
{
    if (!PictureLibraryIsThere())
        return;
    BeginBusy();
    TheFrameHooks().ShowBusyPointer(true);
    FetchScreen();
    TheFrameHooks().ShowBusyPointer(false);
    EndBusy();
}

QString TemporaryName(const QString& extension)
{
    for (int number = 0; number < kTemporaryFiles; ++number) {
        QString name = QStringLiteral("temp%1.%2").arg(number, 2, 10, QLatin1Char('0')).arg(extension);
        const QString path = Program().AppPath + name;
        if (!QFile::exists(path) || QFile::remove(path))
            return name;
    }
    return {};
}
