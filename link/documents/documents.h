// link/documents/documents.h: the ports to those who open and write the files of each kind: the document windows, and
// the list editors. Where one is absent, nothing opens and nothing is written.
#pragma once

#include "app/platform/port.h"
#include "link/documents/fileKind.h"

#include <QString>

namespace tarvik {

/// How writing a picture ended.
enum class PictureSaved { Written, Failed, FailedAndTold };

/// The document windows. A window is named by its number, 0 for none.
class Documents {
public:
    /// Opens a picture file; its window, or 0 after the failure has been reported.
    virtual int Open(const QString& path, ImageKind kind) = 0;

    virtual PictureSaved Save(const QString& path, ImageKind kind, int window) = 0;

    /// From here on the document is saved at its own size, not as its window shows it.
    virtual void ToOwnSize(int window) = 0;

    /// Closes without a question.
    virtual void Close(int window) = 0;

    [[nodiscard]] virtual bool IsDataSet(int window) const = 0;

protected:
    ~Documents() = default;
};
Port<Documents>& TheDocuments();

/// The list editors. Each call returns when the editor has closed.
class ListFiles {
public:
    /// Opens a list in the editor of its class; an empty path makes a new list. True on success.
    virtual bool Open(const QString& path, FileClass fileClass) = 0;

    /// Opens a list text in the editor that its first line names; only looks at that line unless `show`. False for the
    /// text of no list.
    virtual bool OpenText(const QString& path, bool show) = 0;

protected:
    ~ListFiles() = default;
};
Port<ListFiles>& TheListFiles();

} // namespace tarvik
