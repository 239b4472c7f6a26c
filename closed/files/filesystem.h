// closed/files/filesystem.h: the calls to the system that the modules read and replace files with.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tvfile {

using Bytes = std::vector<uint8_t>;
using ByteView = std::span<const uint8_t>;

/// What is there under a path.
struct FileInfo {
    bool Exists = false;
    bool IsFolder = false;
    bool IsRegular = false;
    bool IsReadOnly = false; ///< nobody may write it, whoever the user is
    bool IsWritable = true; ///< not read-only, and this user may write it
    uint32_t Permissions = 0; ///< mode bits; 0 where the platform has none
    std::string RealPath; ///< what a link leads to, whether it is there or not; else the path itself
};

/// Puts what a link leads to in the place of its path, and so on for links to links. Another path stays as it is.
int FollowLinks(std::string& path);

/// The calls that reading and replacing are made of, so that a test can let each of them fail. Paths are UTF-8. Every
/// call gives 0 or an error number of the system.
class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem();

    virtual int Describe(const std::string& path, FileInfo& info);

    /// True if `path` still names the open file.
    virtual bool IsStillNamed(intptr_t handle, const std::string& path);

    /// Opens a regular file for reading and tells its length. A folder gives "is a folder", anything else that is no
    /// regular file "invalid".
    virtual int OpenToRead(const std::string& path, intptr_t& handle, uint64_t& bytes);

    /// Reads what comes next, as far as there is room; `got` is 0 at the end of the file.
    virtual int Read(intptr_t handle, std::span<uint8_t> room, size_t& got);
    virtual void Close(intptr_t handle);

    /// Makes the new file `path` and keeps it to this process. What a process that is gone left under this name is
    /// removed first; a name that a living process works on gives "busy". `permissions` 0 takes the user's habit.
    virtual int Create(const std::string& path, uint32_t permissions, intptr_t& handle);
    virtual int Write(intptr_t handle, ByteView bytes, size_t& written);
    virtual int Flush(intptr_t handle);

    /// Moves the file `from` of `handle` over `to` and closes it. After a failure the handle is closed too.
    virtual int Replace(intptr_t handle, const std::string& from, const std::string& to);

    /// Gives the file up: removes and closes it.
    virtual void Discard(intptr_t handle, const std::string& path);

    /// Makes a rename in `folder` outlast a power cut, where the system can.
    virtual void FlushFolder(const std::string& folder);

    /// Bytes that the user may still store in `folder`.
    virtual int FreeBytes(const std::string& folder, uint64_t& bytes);

    /// A short wait before another try.
    virtual void Pause();
};

/// The system's own calls; a test puts others in their place and takes them away with null.
FileSystem& TheFileSystem();
void SetFileSystem(FileSystem* other);

} // namespace tvfile
