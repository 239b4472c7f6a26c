// link/documents/fileSave.h: saves a document under a name and format chosen by the user.
#pragma once

#include "link/documents/fileKind.h"

#include <QString>
#include <QStringList>

namespace tarvik {

/// Writes a document in the format of the path's extension. False if that is no document format (message 12750). Clears
/// `path` if the file can't be written, for a picture after the message of its format. The two kinds of text are only
/// checked, not written: with `confirm` a message says so for CSV (12763), without it they are no format.
bool FileSaveAs(QString& path, int window, bool confirm);

/// FileSaveAs for a path of known kind.
bool FileSaveAsKind(QString& path, const FileKindInfo& kind, int window, bool confirm);

/// The save command of a document: asks for name and format, writes, remembers the name; a picture becomes a recent
/// file. True if a picture was written; false for a text, which does not save the document.
bool FileSaveAsDlg(int window);

/// Remembers folder, name and extension of the first path.
void FileRememberPath(const QStringList& paths);

} // namespace tarvik
