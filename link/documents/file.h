// link/documents/file.h: opening a file by its kind.
#pragma once

#include "link/documents/fileKind.h"

#include <QString>

namespace tarvik {

/// Opens a document or list by its extension; true on success. Message 12750 for a kind that can't be opened.
/// `resetFlag` forgets the answer that MsgAskOnce keeps; while that answer is No nothing is opened. `showFlag` false
/// only classifies a list text.
bool FileOpen(const QString& path, bool resetFlag, bool showFlag);

/// What opening a file came to.
struct OpenedFile {
    bool Success = false;
    int Window = 0; ///< of a picture; 0 for what opens elsewhere, in an editor
};

/// FileOpen for a file whose kind has been decided.
OpenedFile FileOpenOfKind(const QString& path, const FileKindInfo& kind, bool resetFlag, bool showFlag);

} // namespace tarvik
