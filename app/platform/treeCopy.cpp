#include "app/platform/treeCopy.h"

#if defined(Q_OS_UNIX)

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace tarvik {

namespace {

namespace fs = std::filesystem;

constexpr size_t kPieceBytes = 1 << 16;

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

private:
    int number_;
};

bool CopyBytes(int from, int to)
{
    std::vector<char> piece(kPieceBytes);
    for (;;) {
        const ssize_t got = ::read(from, piece.data(), piece.size());
        if (got <= 0)
            return got == 0;
        for (ssize_t at = 0; at < got;) {
            const ssize_t written = ::write(to, piece.data() + at, static_cast<size_t>(got - at));
            if (written <= 0)
                return false;
            at += written;
        }
    }
}

/// Gives the copy the permissions and times of the original, and flushes it.
bool Complete(int copy, const struct stat& original)
{
    const timespec times[]{ original.st_atim, original.st_mtim };
    (void)::fchmod(copy, original.st_mode & 0777); // not every file system has permissions
    (void)::futimens(copy, times);
    return ::fsync(copy) == 0;
}

bool CopyFile(const fs::path& from, const fs::path& to)
{
    const Descriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat original { };
    if (source.Number() < 0 || ::fstat(source.Number(), &original) != 0 || !S_ISREG(original.st_mode))
        return false;
    const Descriptor copy(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    return copy.Number() >= 0 && CopyBytes(source.Number(), copy.Number()) && Complete(copy.Number(), original);
}

bool CopyTree(const fs::path& from, const fs::path& to, dev_t volume);

bool CopyFolder(const fs::path& from, const fs::path& to, const struct stat& original)
{
    if (::mkdir(to.c_str(), 0700) != 0)
        return false;
    std::error_code error;
    for (fs::directory_iterator entry(from, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (!CopyTree(entry->path(), to / entry->path().filename(), original.st_dev))
            return false;
    }
    const Descriptor copy(::open(to.c_str(), O_RDONLY | O_CLOEXEC));
    return !error && copy.Number() >= 0 && Complete(copy.Number(), original);
}

/// Stays on one volume: what is mounted inside a folder is not part of it.
bool CopyTree(const fs::path& from, const fs::path& to, dev_t volume)
{
    struct stat original { };
    if (::lstat(from.c_str(), &original) != 0 || original.st_dev != volume)
        return false;
    if (S_ISDIR(original.st_mode))
        return CopyFolder(from, to, original);
    if (!S_ISLNK(original.st_mode))
        return CopyFile(from, to);
    std::error_code error;
    fs::copy_symlink(from, to, error);
    return !error;
}

bool CanChange(const fs::path& folder)
{
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

/// True if the folder that holds `path`, and each folder in it, lets its entries be removed.
bool CanRemove(const fs::path& path)
{
    if (!CanChange(path.parent_path()))
        return false;
    std::error_code error;
    if (fs::symlink_status(path, error).type() != fs::file_type::directory)
        return !error;
    if (!CanChange(path))
        return false;
    fs::recursive_directory_iterator entry(path, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        if (entry->symlink_status().type() == fs::file_type::directory && !CanChange(entry->path()))
            return false;
    }
    return !error;
}

/// False for a volume's own top folder, whose contents belong to the volume.
bool IsOnVolumeOfParent(const fs::path& path, const struct stat& status)
{
    struct stat parent { };
    return ::stat(path.parent_path().c_str(), &parent) == 0 && parent.st_dev == status.st_dev;
}

} // namespace

bool MoveTreeByCopy(const QByteArray& from, const QByteArray& to)
{
    const fs::path source(from.toStdString());
    const fs::path copy(to.toStdString());
    struct stat original { };
    if (::lstat(source.c_str(), &original) != 0 || !IsOnVolumeOfParent(source, original) || !CanRemove(source))
        return false;
    std::error_code error;
    if (!CopyTree(source, copy, original.st_dev)) {
        fs::remove_all(copy, error);
        return false;
    }
    fs::remove_all(source, error);
    if (!error)
        return true;
    if (!S_ISDIR(original.st_mode))
        fs::remove_all(copy, error); // the original is untouched
    return false;
}

} // namespace tarvik

#endif
