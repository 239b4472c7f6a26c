// closed/files/filesystem.h: the system calls for reading and replacing files.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tvfile {

using Bytes = std::vector<uint8_t>;
using ByteView = std::span<const uint8_t>;

/// What exists at a path.
struct FileInfo {
    bool Exists = false;
    bool IsFolder = false;
    bool IsRegular = false;
    bool IsReadOnly = false; ///< no user may write it
    bool IsWritable = true; ///< not read-only, and this user may write it
    uint32_t Permissions = 0; ///< mode bits; 0 where the platform has none
    std::string RealPath; ///< the target of a link, existing or not; else the path itself
};

/// Resolves a link, and links to links, to its target. Other paths are unchanged.
int FollowLinks(std::string& path);

/// The calls that reading and replacing consist of, so that a test can make each of them fail. Paths are UTF-8. Every
/// call returns 0 or an error number of the system.
class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem();

    virtual int Describe(const std::string& path, FileInfo& info);

    /// True if `path` still names the open file.
    virtual bool IsStillNamed(intptr_t handle, const std::string& path);

    /// Opens a regular file for reading and gets its length. A folder gives "is a folder", any other non-regular file
    /// "invalid".
    virtual int OpenToRead(const std::string& path, intptr_t& handle, uint64_t& bytes);

    /// Reads the next bytes into `room`; `got` is 0 at the end of the file.
    virtual int Read(intptr_t handle, std::span<uint8_t> room, size_t& got);
    virtual void Close(intptr_t handle);

    /// Creates and locks the new file `path`. A leftover of a dead process under this name is removed first; a name
    /// that another process is using gives "busy". `permissions` 0 means the user's default.
    virtual int Create(const std::string& path, uint32_t permissions, intptr_t& handle);
    virtual int Write(intptr_t handle, ByteView bytes, size_t& written);
    virtual int Flush(intptr_t handle);

    /// Renames the file `from` of `handle` to `to` and closes it, also after a failure.
    virtual int Replace(intptr_t handle, const std::string& from, const std::string& to);

    /// Removes and closes the file.
    virtual void Discard(intptr_t handle, const std::string& path);

    /// Makes a rename in `folder` survive a power cut, if the system can.
    virtual void FlushFolder(const std::string& folder);

    /// Bytes available to the user in `folder`.
    virtual int FreeBytes(const std::string& folder, uint64_t& bytes);

    /// Waits briefly before a retry.
    virtual void Pause();
};

/// The system's calls, unless a test has replaced them; null restores them.
FileSystem& TheFileSystem();
void SetFileSystem(FileSystem* other);

} // namespace tvfile
