// link/documents/fileSave.h: writing a document under a name and format that the user chooses.
#pragma once

#include "link/documents/fileKind.h"

#include <QString>
#include <QStringList>

namespace tarvik {

/// Writes a document in the format of the path's extension. False when that is no format (message 12750). A path under
/// which no picture could be written, which is told by the message of its kind, or no text, comes back empty. The two
/// kinds of text are tried and not written: with `confirm` the CSV text says so (12763), without it they are no format.
bool FileSaveAs(QString& path, int window, bool confirm);

/// FileSaveAs for a path whose kind has been decided.
bool FileSaveAsKind(QString& path, const FileKindInfo& kind, int window, bool confirm);

/// The save command of a document: asks for name and format, writes, remembers the name. True when a picture was
/// written; a kind of text holds nothing of a document, so that its window must not go.
bool FileSaveAsDlg(int window);

/// Remembers folder, name and extension of the first of these paths.
void FileRememberPath(const QStringList& paths);

} // namespace tarvik
