// link/documents/documents.h: the ports through which files are opened and written: document windows and list editors.
// If one is absent, nothing opens and nothing is written.
#pragma once

#include "app/platform/port.h"
#include "link/documents/fileKind.h"

#include <QString>

#include <optional>

namespace tarvik {

/// Result of writing a picture.
enum class PictureSaved { Written, Failed, FailedAndReported };

/// The document windows. A window is identified by its number, 0 for none.
class Documents {
public:
    /// Opens a picture file; returns its window, or 0 after reporting a failure.
    virtual int Open(const QString& path, ImageKind kind) = 0;

    virtual PictureSaved Save(const QString& path, ImageKind kind, int window) = 0;

    /// From now on the document is saved at its own size instead of that of its window.
    virtual void UseOwnSize(int window) = 0;

    /// Closes without asking.
    virtual void Close(int window) = 0;

    /// True if new pictures are shown in black and white.
    [[nodiscard]] virtual bool IsBlackAndWhite() const = 0;

    /// Until EndBatch, which restores the present state, documents open without a window of their own: in the given
    /// palette, or in that of new documents.
    virtual void BeginBatch(std::optional<bool> blackAndWhite) = 0;
    virtual void EndBatch() = 0;

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

    /// Opens a list text in the editor named by its first line; unless `show`, only checks that line. False if the text
    /// is no list.
    virtual bool OpenText(const QString& path, bool show) = 0;

protected:
    ~ListFiles() = default;
};
Port<ListFiles>& TheListFiles();

} // namespace tarvik
