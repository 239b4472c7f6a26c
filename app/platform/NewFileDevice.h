// app/platform/NewFileDevice.h: a new file as a device, for writers that want one: pictures, PDF.
#pragma once

#include "closed/files/files.h"

#include <QIODevice>
#include <QString>

namespace tarvik {

/// Writes a file that takes the place of `path` on `Commit`, flushed to the disk, as closed/files does it. Without a
/// commit, and after any failure, `path` is what it was and nothing is left beside it. Sequential and write-only; it is
/// opened once, and may be closed before the commit. A write that fails makes the commit fail too, so that a writer
/// which looks at no result can be trusted.
class NewFileDevice final : public QIODevice {
public:
    explicit NewFileDevice(const QString& path);

    /// `mode` is WriteOnly. False where no file can be made for `path`.
    [[nodiscard]] bool open(OpenMode mode) override;
    bool isSequential() const override
    {
        return true;
    }

    /// True if the file is in its place, with all that was written.
    [[nodiscard]] bool Commit();

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    bool WritePiece();

    std::string path_;
    tvfile::NewFile file_;
    tvfile::Bytes piece_;
    bool isBegun_ = false;
    bool isWhole_ = false; ///< nothing that was written is lost
};

} // namespace tarvik
