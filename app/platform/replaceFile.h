// app/platform/replaceFile.h: writes a file so that at any moment the old or the new one is there whole.
#pragma once

#include <QByteArrayView>
#include <QString>

namespace tarvik {

/// Puts `bytes` into the place of `path`, as closed/files does it. False, with the old file as it was, when the folder
/// can't be written, the disk is full, or the file is write-protected (also for a user whom the system would let
/// through), a folder, or busy.
[[nodiscard]] bool ReplaceFile(const QString& path, QByteArrayView bytes);

/// True if a file of this name can be made, or the one that is there be replaced: a blank is written beside it for a
/// trial. What is there stays as it is, and a process that is killed in the middle leaves no file of this name.
[[nodiscard]] bool CanReplaceFile(const QString& path);

} // namespace tarvik
