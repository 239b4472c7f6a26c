// tools/tarvikctl/readList.h: reads list files of any family and form.
#pragma once

#include "tools/tarvikctl/listFile.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

struct ReadList {
    FileClass Class = FileClassUnknown;
    std::unique_ptr<ListFile> List; ///< null after a message
};

/// Reads a binary file by its extension, a JSON file by its member "family", any other one as CSV by its first line. A
/// file of which a data line is refused is not taken over.
ReadList ReadListFile(const QString& path, Terminal& terminal);

/// Reads the text of a JSON file. An empty text, or what is wrong with it; values that a family refuses show their
/// messages.
QString ReadListJson(const QByteArray& text, ReadList& read);

/// The family whose binary form has this extension; FileClassUnknown for another one.
FileClass ClassOfExtension(const QString& path);

bool IsJsonFile(const QString& path);

} // namespace tarvik
