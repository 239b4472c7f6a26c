// The calls of filesystem.h for Windows. UTF-8 paths are converted to UTF-16.
#include "closed/files/filesystem.h"

#include <algorithm>
#include <cerrno>

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

namespace tvfile {

namespace {

constexpr DWORD kPauseMs = 5;
constexpr size_t kMaxChunk = size_t{ 1 } << 20;

bool ToWide(const std::string& path, std::wstring& wide)
{
    const int length = static_cast<int>(path.size());
    const int needed = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), length, nullptr, 0);
    wide.resize(static_cast<size_t>(needed));
    return needed > 0
        && MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), length, wide.data(), needed) == needed;
}

int LastError()
{
    switch (GetLastError()) {
    case ERROR_SUCCESS:
        return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
        return EACCES;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return EBUSY;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    default:
        return EIO;
    }
}

HANDLE AsHandle(intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace

int FileSystem::Describe(const std::string& path, FileInfo& info)
{
    info = {};
    info.RealPath = path;
    std::wstring wide;
    if (!ToWide(path, wide))
        return EILSEQ;
    if (const int error = FollowLinks(info.RealPath); error != 0)
        return error;
    if (!ToWide(info.RealPath, wide))
        return EILSEQ;
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const int error = LastError();
        return error == ENOENT ? 0 : error;
    }
    info.Exists = true;
    info.IsFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    info.IsRegular = (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
    info.IsReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    info.IsWritable = !info.IsReadOnly;
    return 0;
}

bool FileSystem::IsStillNamed(intptr_t, const std::string&)
{
    return true; // nobody else can move or remove it while it is open
}

int FileSystem::OpenToRead(const std::string& path, intptr_t& handle, uint64_t& bytes)
{
    FileInfo info;
    if (const int error = Describe(path, info); error != 0)
        return error;
    if (info.IsFolder)
        return EISDIR;
    std::wstring wide;
    if (!ToWide(path, wide))
        return EILSEQ;
    const HANDLE file = CreateFileW(wide.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return LastError();
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file, &size) == 0) {
        const int error = LastError();
        (void)CloseHandle(file);
        return error;
    }
    bytes = static_cast<uint64_t>(size.QuadPart);
    handle = reinterpret_cast<intptr_t>(file);
    return 0;
}

int FileSystem::Read(intptr_t handle, std::span<uint8_t> room, size_t& got)
{
    DWORD count = 0;
    const auto chunk = static_cast<DWORD>(std::min(room.size(), kMaxChunk));
    if (ReadFile(AsHandle(handle), room.data(), chunk, &count, nullptr) == 0)
        return EIO;
    got = count;
    return 0;
}

void FileSystem::Close(intptr_t handle)
{
    (void)CloseHandle(AsHandle(handle));
}

int FileSystem::Create(const std::string& path, uint32_t, intptr_t& handle)
{
    std::wstring wide;
    if (!ToWide(path, wide))
        return EILSEQ;
    // Not shared: a second process gets "busy", and the leftover of a dead one is overwritten.
    const HANDLE file =
        CreateFileW(wide.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return LastError();
    handle = reinterpret_cast<intptr_t>(file);
    return 0;
}

int FileSystem::Write(intptr_t handle, ByteView bytes, size_t& written)
{
    DWORD count = 0;
    const auto chunk = static_cast<DWORD>(std::min(bytes.size(), kMaxChunk));
    if (WriteFile(AsHandle(handle), bytes.data(), chunk, &count, nullptr) == 0)
        return LastError();
    written = count;
    return 0;
}

int FileSystem::Flush(intptr_t handle)
{
    return FlushFileBuffers(AsHandle(handle)) != 0 ? 0 : LastError();
}

int FileSystem::Replace(intptr_t handle, const std::string& from, const std::string& to)
{
    (void)CloseHandle(AsHandle(handle));
    std::wstring wideFrom;
    std::wstring wideTo;
    if (!ToWide(from, wideFrom) || !ToWide(to, wideTo))
        return EILSEQ;
    if (MoveFileExW(wideFrom.c_str(), wideTo.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
        return 0;
    const int error = LastError();
    (void)DeleteFileW(wideFrom.c_str());
    return error;
}

void FileSystem::Discard(intptr_t handle, const std::string& path)
{
    (void)CloseHandle(AsHandle(handle));
    std::wstring wide;
    if (ToWide(path, wide))
        (void)DeleteFileW(wide.c_str());
}

void FileSystem::FlushFolder(const std::string&)
{
    // The move was already written through.
}

int FileSystem::FreeBytes(const std::string& folder, uint64_t& bytes)
{
    std::wstring wide;
    if (!ToWide(folder.empty() ? "." : folder, wide))
        return EILSEQ;
    ULARGE_INTEGER free{};
    if (GetDiskFreeSpaceExW(wide.c_str(), &free, nullptr, nullptr) == 0)
        return LastError();
    bytes = free.QuadPart;
    return 0;
}

void FileSystem::Pause()
{
    Sleep(kPauseMs);
}

} // namespace tvfile
