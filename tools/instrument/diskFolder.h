// tools/instrument/diskFolder.h: lists and opens folders of this machine without following links.
#pragma once

#include "tools/instrument/descriptor.h"

#include <cstdint>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace tarvik {

struct DiskEntry {
    std::string Name;
    struct stat Status { }; ///< of a link: that of the link itself
};

/// All entries of an open folder but `.` and `..`; entries that can't be examined are skipped.
std::vector<DiskEntry> DiskEntries(int folder);

/// Opens a folder inside an open one; on failure `errno` has the reason.
Descriptor OpenDiskFolder(int folder, const std::string& name);

/// Opens a regular file for reading. False, with `errno`, for anything else.
[[nodiscard]] bool OpenDiskFile(int folder, const std::string& name, Descriptor& file, std::uint64_t& size);

/// Creates a folder and its missing parents.
[[nodiscard]] bool MakeDiskFolders(const std::string& path);

} // namespace tarvik
