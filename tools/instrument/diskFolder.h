// tools/instrument/diskFolder.h: folders of this machine, read and opened without following a link.
#pragma once

#include "tools/instrument/descriptor.h"

#include <cstdint>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace tarvik {

struct DiskEntry {
    std::string Name;
    struct stat Status { }; ///< of a link: of the link itself
};

/// All entries of an open folder but `.` and `..`; those that can not be asked are left out.
std::vector<DiskEntry> DiskEntries(int folder);

/// Opens a folder inside an open one; `errno` tells why there is none.
Descriptor OpenDiskFolder(int folder, const std::string& name);

/// Opens an ordinary file to be read. False, with `errno`, if it is none.
[[nodiscard]] bool OpenDiskFile(int folder, const std::string& name, Descriptor& file, std::uint64_t& size);

/// Makes a folder and those above it, as far as they are not there.
[[nodiscard]] bool MakeDiskFolders(const std::string& path);

} // namespace tarvik
