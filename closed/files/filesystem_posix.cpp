// The calls of filesystem.h for POSIX. Paths are passed on as bytes.
#include "closed/files/filesystem.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

namespace tvfile {

namespace {

constexpr mode_t kDefaultPermissions = 0666; // less the user's umask
constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kAnyoneWrites = 0222;
constexpr long kPauseNanoseconds = 5'000'000;

class Descriptor {
public:
    explicit Descriptor(int number)
        : number_(number)
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (number_ >= 0)
            (void)::close(number_);
    }
    [[nodiscard]] int Number() const
    {
        return number_;
    }
    int Release()
    {
        return std::exchange(number_, -1);
    }

private:
    int number_;
};

/// Removes a leftover of a dead process. Its lock died with it, so whoever gets the lock knows that it has no owner.
int RemoveLeftover(FileSystem& system, const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file.Number() < 0 && errno == ENOENT)
        return 0;
    if (file.Number() >= 0 && ::flock(file.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return EBUSY;
    if (file.Number() >= 0 && !system.IsStillNamed(file.Number(), path))
        return 0;
    return ::unlink(path.c_str()) == 0 || errno == ENOENT ? 0 : errno;
}

} // namespace

int FileSystem::Describe(const std::string& path, FileInfo& info)
{
    info = {};
    info.RealPath = path;
    if (const int error = FollowLinks(info.RealPath); error != 0)
        return error;
    struct stat status { };
    if (::stat(info.RealPath.c_str(), &status) != 0)
        return errno == ENOENT ? 0 : errno;
    info.Exists = true;
    info.IsFolder = S_ISDIR(status.st_mode);
    info.IsRegular = S_ISREG(status.st_mode);
    // The superuser may write everything, but a file without any write permission is protected on purpose.
    info.IsReadOnly = (status.st_mode & kAnyoneWrites) == 0;
    info.IsWritable = !info.IsReadOnly && ::access(info.RealPath.c_str(), W_OK) == 0;
    info.Permissions = status.st_mode & 0777;
    return 0;
}

bool FileSystem::IsStillNamed(intptr_t handle, const std::string& path)
{
    struct stat open { };
    struct stat named { };
    return ::fstat(static_cast<int>(handle), &open) == 0 && ::lstat(path.c_str(), &named) == 0
        && open.st_ino == named.st_ino && open.st_dev == named.st_dev;
}

int FileSystem::OpenToRead(const std::string& path, intptr_t& handle, uint64_t& bytes)
{
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Number() < 0)
        return errno;
    struct stat status { };
    if (::fstat(file.Number(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    if (!S_ISREG(status.st_mode))
        return EINVAL;
    bytes = static_cast<uint64_t>(status.st_size);
    handle = file.Release();
    return 0;
}

int FileSystem::Read(intptr_t handle, std::span<uint8_t> room, size_t& got)
{
    for (;;) {
        const ssize_t count = ::read(static_cast<int>(handle), room.data(), room.size());
        if (count < 0 && errno == EINTR)
            continue;
        got = count > 0 ? static_cast<size_t>(count) : 0;
        return count >= 0 ? 0 : errno;
    }
}

void FileSystem::Close(intptr_t handle)
{
    const Descriptor file(static_cast<int>(handle));
}

int FileSystem::Create(const std::string& path, uint32_t permissions, intptr_t& handle)
{
    const bool hasPermissions = permissions != 0;
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
        hasPermissions ? kOwnerOnly : kDefaultPermissions));
    if (file.Number() < 0 && errno != EEXIST)
        return errno;
    if (file.Number() < 0) {
        const int error = RemoveLeftover(*this, path);
        return error != 0 ? error : EBUSY; // the next attempt creates it
    }
    // On a file system without locks the exclusive name is the only protection.
    if (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return EBUSY;
    if (!IsStillNamed(file.Number(), path))
        return EBUSY; // another process took it for a leftover before it was locked
    if (hasPermissions)
        (void)::fchmod(file.Number(), static_cast<mode_t>(permissions));
    handle = file.Release();
    return 0;
}

int FileSystem::Write(intptr_t handle, ByteView bytes, size_t& written)
{
    const ssize_t count = ::write(static_cast<int>(handle), bytes.data(), bytes.size());
    written = count > 0 ? static_cast<size_t>(count) : 0;
    return count >= 0 || errno == EINTR ? 0 : errno;
}

int FileSystem::Flush(intptr_t handle)
{
    while (::fsync(static_cast<int>(handle)) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

int FileSystem::Replace(intptr_t handle, const std::string& from, const std::string& to)
{
    const Descriptor file(static_cast<int>(handle)); // keeps the lock until the rename is done
    if (::rename(from.c_str(), to.c_str()) == 0)
        return 0;
    const int error = errno;
    (void)::unlink(from.c_str());
    return error;
}

void FileSystem::Discard(intptr_t handle, const std::string& path)
{
    const Descriptor file(static_cast<int>(handle));
    (void)::unlink(path.c_str());
}

void FileSystem::FlushFolder(const std::string& folder)
{
    const Descriptor file(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY));
    // The file is whole in any case, and some file systems cannot flush a folder: nothing to report.
    if (file.Number() >= 0)
        (void)::fsync(file.Number());
}

int FileSystem::FreeBytes(const std::string& folder, uint64_t& bytes)
{
    struct statvfs volume { };
    if (::statvfs(folder.empty() ? "." : folder.c_str(), &volume) != 0)
        return errno;
    bytes = static_cast<uint64_t>(volume.f_bavail) * volume.f_frsize;
    return 0;
}

void FileSystem::Pause()
{
    const timespec pause{ 0, kPauseNanoseconds };
    (void)::nanosleep(&pause, nullptr);
}

} // namespace tvfile
