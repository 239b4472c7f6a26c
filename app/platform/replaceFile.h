// app/platform/replaceFile.h: replaces a file whole or not at all.
#pragma once

#include <QByteArrayView>
#include <QString>

namespace tarvik {

/// Replaces `path` by `bytes`, through closed/files. False, with the old file unchanged, if the folder can't be
/// written, the disk is full, or `path` is write-protected (even where the system would allow it), a folder, or busy;
/// `error` is then the error number of the system that says so.
[[nodiscard]] bool ReplaceFile(const QString& path, QByteArrayView bytes, int* error = nullptr);

/// True if a file of this name can be created, or the existing one replaced. Tries it by writing one byte to a
/// temporary file in the same folder; `path` itself is not touched, even if the process is killed.
[[nodiscard]] bool CanReplaceFile(const QString& path);

} // namespace tarvik
