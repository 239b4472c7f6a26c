// app/frame/dropFiles.h: which files may be dropped on the frame, and what a drop does.
#pragma once

#include <QString>
#include <QStringList>

class QMimeData;

namespace tarvik {

/// True when the frame may take these files: the program can act and one of them passes the file test.
bool DropIsAllowed(const QStringList& files);

/// The same for data of any other kind.
bool DropIsAllowed(const QMimeData& data);

/// Opens each file that passes the file test as the command line would; the first that fails ends it, and so does the
/// end of the program between two of them. Nothing while the program cannot act.
void DropOpenFiles(const QStringList& files);

} // namespace tarvik
