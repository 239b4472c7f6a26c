#include "tests/closed/failingfilesystem.h"

#include <algorithm>
#include <cerrno>

namespace tvfile {

int FailingFileSystem::Describe(const std::string& path, FileInfo& info)
{
    return DescribeError != 0 ? DescribeError : FileSystem::Describe(path, info);
}

bool FailingFileSystem::IsStillNamed(intptr_t handle, const std::string& path)
{
    if (AtNameCheck)
        AtNameCheck(path);
    return FileSystem::IsStillNamed(handle, path);
}

int FailingFileSystem::Read(intptr_t handle, std::span<uint8_t> room, size_t& got)
{
    const int error = FileSystem::Read(handle, room.first(std::min(room.size(), ReadableBytes)), got);
    ReadableBytes -= got;
    return error;
}

int FailingFileSystem::FreeBytes(const std::string& folder, uint64_t& bytes)
{
    const int error = FileSystem::FreeBytes(folder, bytes);
    bytes = std::min(bytes, Free);
    return error;
}

int FailingFileSystem::Create(const std::string& path, uint32_t permissions, intptr_t& handle)
{
    return CreateError != 0 ? CreateError : FileSystem::Create(path, permissions, handle);
}

int FailingFileSystem::Write(intptr_t handle, ByteView bytes, size_t& written)
{
    const size_t count = std::min({ bytes.size(), BytesLeft, MaxChunk });
    if (count == 0)
        return ENOSPC;
    const int error = FileSystem::Write(handle, bytes.first(count), written);
    BytesLeft -= written;
    BytesWritten += written;
    return error;
}

int FailingFileSystem::Flush(intptr_t handle)
{
    if (AtFlush)
        AtFlush();
    return FlushError != 0 ? FlushError : FileSystem::Flush(handle);
}

int FailingFileSystem::Replace(intptr_t handle, const std::string& from, const std::string& to)
{
    if (ReplaceError == 0)
        return FileSystem::Replace(handle, from, to);
    Discard(handle, from);
    return ReplaceError;
}

void FailingFileSystem::FlushFolder(const std::string& folder)
{
    ++FolderFlushes;
    if (AtFolderFlush)
        AtFolderFlush();
    else
        FileSystem::FlushFolder(folder);
}

void FailingFileSystem::Pause()
{
    ++Pauses;
    if (DuringPause)
        DuringPause();
}

} // namespace tvfile
