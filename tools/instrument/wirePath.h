// tools/instrument/wirePath.h: names and paths as a client writes them, in Windows-1252, and as they are on the disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Folders from the root. Empty is the root.
using WirePath = std::vector<std::string>;

/// Longest path as text, so that a client's buffers hold it.
inline constexpr size_t kMaxPathBytes = 1000;

/// Folders inside each other.
inline constexpr size_t kMaxPathFolders = 20;

/// The receiver's own folder under the root. No client sees it or reaches into it.
inline constexpr const char* kPrivateFolder = ".instrument";

/// `\` and the folders with `\` between them.
std::string PathText(const WirePath& path);

/// Follows `text` from `start`: absolute with `\` in front, `..` to the folder above, which for the root is the root
/// itself. None if a part is no name, or the path is too long.
std::optional<WirePath> FollowPath(const WirePath& start, std::string_view text);

/// True for what can name a file or folder: no separator, no control character, not empty, not `.` or `..`.
bool IsWireName(std::string_view name);

/// The name on the disk, in UTF-8; none if `name` can name nothing.
std::optional<std::string> DiskName(std::string_view name);

/// The name for a client; none if it has characters that a client can not write.
std::optional<std::string> WireName(std::string_view diskName);

} // namespace tarvik
