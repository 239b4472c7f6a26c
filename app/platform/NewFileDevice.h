// app/platform/NewFileDevice.h: a new file as a device, for writers that want one: pictures, PDF.
#pragma once

#include "closed/files/files.h"

#include <QIODevice>
#include <QString>

namespace tarvik {

/// Writes a file that replaces `path` on `Commit`, flushed to the disk, by closed/files. Without a commit, and after
/// any failure, `path` is unchanged and no temporary file remains. Sequential and write-only; opens once, and may be
/// closed before the commit. A failed write makes the commit fail too, so a writer need not check each write.
class NewFileDevice final : public QIODevice {
public:
    explicit NewFileDevice(const QString& path);

    /// `mode` is WriteOnly. False if no file can be created for `path`.
    [[nodiscard]] bool open(OpenMode mode) override;
    bool isSequential() const override
    {
        return true;
    }

    /// True if the file is in place with everything written.
    [[nodiscard]] bool Commit();

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    bool WritePiece();

    std::string path_;
    tvfile::NewFile file_;
    tvfile::Bytes piece_;
    bool wasOpened_ = false;
    bool isWhole_ = false; ///< open, and no write has failed
};

} // namespace tarvik
