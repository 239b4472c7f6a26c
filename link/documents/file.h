// link/documents/file.h: opens files by their kind.
#pragma once

#include "link/documents/fileKind.h"

#include <QString>

namespace tarvik {

/// Opens a document or list by its extension; true on success. Message 12750 for a kind that can't be opened.
/// `resetFlag` clears the answer remembered by MsgAskOnce; while that is No, nothing is opened. With `showFlag` false a
/// list text is only classified. A picture becomes a recent file; a list does when its editor has read it.
bool FileOpen(const QString& path, bool resetFlag, bool showFlag);

/// Result of opening a file.
struct OpenedFile {
    bool Success = false;
    int Window = 0; ///< of a picture; 0 for a list, which opens in an editor
};

/// FileOpen for a file of known kind.
OpenedFile FileOpenOfKind(const QString& path, const FileKindInfo& kind, bool resetFlag, bool showFlag);

} // namespace tarvik
