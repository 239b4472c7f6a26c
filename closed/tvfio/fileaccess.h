// closed/tvfio/fileaccess.h: list files on disk: read whole, replaced whole or not at all.
#pragma once

#include "closed/tvfio/bytes.h"
#include "closed/tvfio/status.h"

#include <string>

namespace tvfio {

/// What is there under a path.
struct FileInfo {
    bool Exists = false;
    bool IsFolder = false;
    bool IsRegular = false;
    bool IsWritable = true;
    uint32_t Permissions = 0; ///< mode bits; 0 where the platform has none
    std::string RealPath; ///< the path behind links
};

/// The calls to the system that saving is made of, so that a test can let each of them fail. Paths are UTF-8. Every
/// call gives 0 or an error number of the system.
class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem();

    virtual int Describe(const std::string& path, FileInfo& info);

    /// Reads a regular file of at most `maxBytes`; a larger one gives the system's "file too large".
    virtual int ReadAll(const std::string& path, size_t maxBytes, Bytes& bytes);

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

    /// A short wait before another try.
    virtual void Pause();
};

/// The system's own calls; a test puts others in their place and takes them away with null.
FileSystem& TheFileSystem();
void SetFileSystem(FileSystem* other);

[[nodiscard]] FioStatus ReadFileBytes(const char* path, Bytes& bytes);

/// Writes `bytes` into a new file beside `path`, flushes it to the disk and moves it over `path`. After any failure
/// `path` is what it was. The new file's name depends on `path` alone, so that what a killed save leaves behind is
/// cleared by the next; a process that finds another saving the same file waits for it a little.
[[nodiscard]] FioStatus SaveFileBytes(const char* path, ByteView bytes);

/// The name under which `path` is written before it takes its place.
std::string TemporaryPath(const std::string& path);

/// The last part of a path.
std::string FileNameOfPath(const std::string& path);

} // namespace tvfio
