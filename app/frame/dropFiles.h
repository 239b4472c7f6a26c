// app/frame/dropFiles.h: which files may be dropped on the frame, and what a drop does.
#pragma once

#include <QString>
#include <QStringList>

class QMimeData;

namespace tarvik {

/// True if the program can act and one of the files passes the file test.
bool DropIsAllowed(const QStringList& files);

/// As above, for data of any other kind.
bool DropIsAllowed(const QMimeData& data);

/// Opens each file that passes the file test, as from the command line. Stops at the first failure, or when the program
/// ends. No effect while the program can't act.
void DropOpenFiles(const QStringList& files);

} // namespace tarvik
