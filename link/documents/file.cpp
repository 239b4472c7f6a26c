#include "link/documents/file.h"

#include "app/menu/recentFiles.h"
#include "app/message/message.h"
#include "app/text/textId.h"
#include "link/documents/documents.h"

#include <QFileInfo>

namespace tarvik {

bool FileOpen(const QString& path, bool resetFlag, bool showFlag)
{
    const OpenedFile opened = FileOpenOfKind(path, FileKindOf(path), resetFlag, showFlag);
    if (opened.Window != 0)
        RecentFileAdd(path);
    return opened.Success;
}

OpenedFile FileOpenOfKind(const QString& path, const FileKindInfo& kind, bool resetFlag, bool showFlag)
{
    if (resetFlag)
        MsgAskOnceReset();
    if (TheMessage().RememberedAnswer == MsgResult::No)
        return {};
    switch (kind.Kind) {
    case FileKind::None:
        MsgOk1(TextId::UnknownFileType, QFileInfo(path).fileName());
        return {};
    case FileKind::ListText:
        return { TheListFiles()->OpenText(path, showFlag) };
    case FileKind::OtherText:
        return { TheListFiles()->OpenText(path, false) };
    case FileKind::InstrumentList:
        return { TheListFiles()->Open(path, kind.Class) };
    default:
        const int window = TheDocuments()->Open(path, kind.Image);
        return { window != 0, window };
    }
}

} // namespace tarvik
