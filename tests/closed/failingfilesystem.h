// tests/closed/failingfilesystem.h: a file system that fails where a test wants it to.
#pragma once

#include "closed/files/filesystem.h"

#include <functional>
#include <limits>

namespace tvfile {

/// Replaces the system's file system during its lifetime. Calls without an injected fault go to the real disk.
class FailingFileSystem final : public FileSystem {
public:
    FailingFileSystem()
    {
        SetFileSystem(this);
    }
    ~FailingFileSystem() override
    {
        SetFileSystem(nullptr);
    }

    size_t BytesLeft = std::numeric_limits<size_t>::max(); ///< bytes that can be written before the disk is full
    size_t MaxChunk = std::numeric_limits<size_t>::max(); ///< maximum bytes per write
    size_t BytesWritten = 0;
    size_t ReadableBytes = std::numeric_limits<size_t>::max(); ///< files seem to end after this many bytes
    uint64_t Free = std::numeric_limits<uint64_t>::max(); ///< free space that the disk reports
    int DescribeError = 0;
    int CreateError = 0;
    int FlushError = 0;
    int ReplaceError = 0;
    int Pauses = 0;
    int FolderFlushes = 0;
    std::function<void()> DuringPause;
    std::function<void(const std::string& path)> AtNameCheck; ///< before it is checked that `path` is still the file
    std::function<void()> AtFlush;
    std::function<void()> AtFolderFlush; ///< in the place of the flush

    int Describe(const std::string& path, FileInfo& info) override;
    bool IsStillNamed(intptr_t handle, const std::string& path) override;
    int Read(intptr_t handle, std::span<uint8_t> room, size_t& got) override;
    int Create(const std::string& path, uint32_t permissions, intptr_t& handle) override;
    int Write(intptr_t handle, ByteView bytes, size_t& written) override;
    int Flush(intptr_t handle) override;
    int Replace(intptr_t handle, const std::string& from, const std::string& to) override;
    void FlushFolder(const std::string& folder) override;
    int FreeBytes(const std::string& folder, uint64_t& bytes) override;
    void Pause() override;
};

} // namespace tvfile
