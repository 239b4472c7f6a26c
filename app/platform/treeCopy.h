// app/platform/treeCopy.h: moves files and folders between volumes, where no rename can.
#pragma once

#include <QByteArray>

namespace tarvik {

/// Copies the file, folder or link `from` to the new path `to`, flushes the copy to disk, then removes `from`. False,
/// with `from` complete and nothing at `to`, if that is not possible as a whole: no permission, a full disk, a device
/// or pipe, a mounted volume inside. If removing a folder stops half way, the copy stays. Paths are the system's bytes.
[[nodiscard]] bool MoveTreeByCopy(const QByteArray& from, const QByteArray& to);

} // namespace tarvik
