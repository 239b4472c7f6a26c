#include "tools/instrument/diskFolder.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>

namespace tarvik {

namespace {

constexpr mode_t kFolderMode = 0777;

struct CloseFolder {
    void operator()(DIR* folder) const
    {
        (void)::closedir(folder);
    }
};

} // namespace

std::vector<DiskEntry> DiskEntries(int folder)
{
    std::vector<DiskEntry> entries;
    // A separate descriptor: reading advances the position of the open folder.
    Descriptor own(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CloseFolder> stream(own.IsOpen() ? ::fdopendir(own.Number()) : nullptr);
    if (stream == nullptr)
        return entries;
    own.Release();
    while (const dirent* found = ::readdir(stream.get())) {
        if (std::strcmp(found->d_name, ".") == 0 || std::strcmp(found->d_name, "..") == 0)
            continue;
        DiskEntry entry;
        entry.Name = found->d_name;
        if (::fstatat(folder, found->d_name, &entry.Status, AT_SYMLINK_NOFOLLOW) == 0)
            entries.push_back(std::move(entry));
    }
    return entries;
}

Descriptor OpenDiskFolder(int folder, const std::string& name)
{
    return Descriptor(::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool OpenDiskFile(int folder, const std::string& name, Descriptor& file, std::uint64_t& size)
{
    // Non-blocking: opening a pipe would block the receiver until somebody writes to it.
    file = Descriptor(::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status { };
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0)
        return false;
    size = static_cast<std::uint64_t>(status.st_size);
    errno = ENOENT;
    return S_ISREG(status.st_mode);
}

bool MakeDiskFolders(const std::string& path)
{
    for (size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        (void)::mkdir(path.substr(0, end).c_str(), kFolderMode);
    return ::mkdir(path.c_str(), kFolderMode) == 0 || errno == EEXIST;
}

} // namespace tarvik
