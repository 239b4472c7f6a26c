#include "link/file.h"

#include "app/general.h"
#include "app/lang.h"
#include "app/message.h"
#include "link/channel.h"
#include "link/model.h"
#include "link/transfer.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {

constexpr int kMessageUnknownKind = 12750;

struct KindText {
    int ExtensionId;
    FileKindInfo Info;
};

/// In the order of comparison.
constexpr std::array<KindText, 11> kKinds{ { { 11504, { FileKind::Bitmap, 0 } }, { 11510, { FileKind::Png, 0 } },
    { 11512, { FileKind::Pcx, 0 } }, { 11508, { FileKind::Metafile, 0 } }, { 11505, { FileKind::ListText, 0 } },
    { 11513, { FileKind::OtherText, 0 } }, { 10750, { FileKind::InstrumentList, FileClassAntennaList } },
    { 10755, { FileKind::InstrumentList, FileClassKfactorTable } },
    { 10760, { FileKind::InstrumentList, FileClassMemoryList } },
    { 10765, { FileKind::InstrumentList, FileClassSuppressList } },
    { 10770, { FileKind::InstrumentList, FileClassCorrectionSet } } } };

template <typename Opener, typename... Arguments>
bool Run(const Opener& opener, const Arguments&... arguments)
{
    return opener && opener(arguments...);
}

QString StampCommand(const char* what, const QString& name, std::initializer_list<int> numbers)
{
    QString command = QStringLiteral("MMEM:FILE:") + QLatin1String(what) + u' ' + ChannelQuoted(name);
    for (const int number : numbers)
        command += QStringLiteral(", ") + QString::number(number);
    return command;
}

} // namespace

FileKindInfo FileKindOf(const QString& path)
{
    const QString extension = u'.' + QFileInfo(path).suffix().toLower();
    const auto found = std::find_if(kKinds.begin(), kKinds.end(),
        [&extension](const KindText& kind) { return extension == LngStr(kind.ExtensionId).toLower(); });
    return found == kKinds.end() ? FileKindInfo{} : found->Info;
}

int ImageKindOf(FileKind kind)
{
    switch (kind) {
    case FileKind::Bitmap:
        return 1;
    case FileKind::Pcx:
        return 2;
    case FileKind::Png:
        return 3;
    case FileKind::Metafile:
        return 4;
    default:
        return 0;
    }
}

bool FileCanBeDropped(const QString& path)
{
    return FileKindOf(path).Kind != FileKind::None;
}

bool FileKnownExtension(const QString& path, bool listAnswer)
{
    const FileKindInfo info = FileKindOf(path);
    if (info.Kind == FileKind::InstrumentList)
        return listAnswer && info.FileClass != FileClassCorrectionSet;
    return info.Kind != FileKind::None;
}

FileOpeners& TheFileOpeners()
{
    static FileOpeners openers;
    return openers;
}

void FileOpenersReset()
{
    TheFileOpeners() = {};
}

bool FileOpen(const QString& path, bool resetFlag, bool showFlag)
{
    if (resetFlag)
        MsgAskOnceReset();
    if (TheMessage().RememberedAnswer == MsgResultNo)
        return false;

    const FileOpeners& openers = TheFileOpeners();
    const FileKindInfo info = FileKindOf(path);
    switch (info.Kind) {
    case FileKind::None:
        MsgOk(kMessageUnknownKind);
        return false;
    case FileKind::ListText:
        return Run(openers.OpenListFile, path, showFlag);
    case FileKind::OtherText:
        return Run(openers.OpenListFile, path, false);
    case FileKind::InstrumentList:
        return Run(openers.OpenEditor, info.FileClass, path);
    default:
        return Run(openers.OpenPicture, path, ImageKindOf(info.Kind));
    }
}

void FileSetPcDate(const QString& path, const QDateTime& date, bool readOnly)
{
    QFile file(path);
    if (date.isValid() && file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        file.setFileTime(QDateTime(date.date(), date.time()), QFileDevice::FileModificationTime);
        file.close();
    }
    if (readOnly)
        SetReadOnlyAttribute(path);
}

void FileSetInstrDate(const QString& name, const QDateTime& date, bool lock)
{
    if (date.isValid()) {
        const QDate day = date.date();
        const QTime time = date.time();
        ChannelSend(StampCommand("DATE", name, { day.year(), day.month(), day.day() }));
        ChannelSend(StampCommand("TIME", name, { time.hour(), time.minute(), time.second() }));
    }
    if (lock)
        TransferSetLock(name, true);
}
