// app/platform/trash.h: the desktop's trash, in the layout that all desktops of freedesktop.org share.
#pragma once

#include <QString>

namespace tarvik {

/// Moves a file, folder or link into the trash: the home trash if `path` is on the same volume, else that of its
/// volume, else the home trash by copy. True if `path` is gone from its folder and can be restored. Otherwise `path` is
/// still there, complete; only if a folder could be copied but not wholly removed, the rest of it is, and the copy
/// stays in the trash. Nothing in the trash is ever replaced, and no attempt is repeated without end.
[[nodiscard]] bool MoveToTrash(const QString& path);

} // namespace tarvik
