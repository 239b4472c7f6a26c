// tools/instrument/wirePath.h: names and paths on the wire, in Windows-1252, and on the disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// Folders from the root; empty for the root.
using WirePath = std::vector<std::string>;

/// Maximum length of a path as text, so that it fits clients' buffers.
inline constexpr size_t kMaxPathBytes = 1000;

/// Maximum nesting depth of folders.
inline constexpr size_t kMaxPathFolders = 20;

/// The receiver's private folder under the root, invisible and inaccessible to clients.
inline constexpr const char* kPrivateFolder = ".instrument";

/// `\` followed by the folders, separated by `\`.
std::string PathText(const WirePath& path);

/// Resolves `text` relative to `start`: absolute with a leading `\`; `..` is the parent, for the root the root
/// itself. None if a part is not a valid name, or the path is too long.
std::optional<WirePath> FollowPath(const WirePath& start, std::string_view text);

/// True for a valid name of a file or folder: not empty, no separator or control character, not `.` or `..`.
bool IsWireName(std::string_view name);

/// The name on the disk, in UTF-8; none if `name` is invalid.
std::optional<std::string> DiskName(std::string_view name);

/// The name on the wire; none if it has characters outside Windows-1252.
std::optional<std::string> WireName(std::string_view diskName);

} // namespace tarvik
