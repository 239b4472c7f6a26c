#include "link/documents/file.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/text/lang.h"
#include "link/classes/model.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace tarvik {

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
    static ProcessState<FileOpeners> openers;
    return openers.Get();
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

} // namespace tarvik
