#include "app/platform/trash.h"

#include <QtGlobal>

#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)

#include "app/platform/paths.h"
#include "app/platform/treeCopy.h"
#include "closed/files/filesystem.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace tarvik {

namespace {

constexpr int kNameTries = 100;
constexpr qsizetype kMaxNameBytes = 200; // leaves room for a number and the suffix of the description
constexpr mode_t kFolderMode = 0700;
constexpr mode_t kInfoMode = 0600;

/// One trash: its folder, and the folder that the paths of its descriptions are relative to; empty if absolute.
struct Trash {
    QByteArray Folder;
    QByteArray Top;

    QByteArray File(const QByteArray& name) const
    {
        return Folder + "/files/" + name;
    }
    QByteArray Info(const QByteArray& name) const
    {
        return Folder + "/info/" + name + ".trashinfo";
    }
};

std::optional<struct stat> Status(const QByteArray& path)
{
    struct stat status { };
    return ::lstat(path.constData(), &status) == 0 ? std::optional(status) : std::nullopt;
}

QByteArray ParentOf(const QByteArray& path)
{
    const qsizetype separator = path.lastIndexOf('/');
    return separator > 0 ? path.first(separator) : QByteArray("/");
}

QByteArray NameOf(const QByteArray& path)
{
    return path.sliced(path.lastIndexOf('/') + 1);
}

QByteArray HomeTrash()
{
    return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) + "/Trash";
}

/// The volume of a path that need not exist yet; 0 if unknown.
dev_t VolumeOf(QByteArray path)
{
    struct stat status { };
    while (::stat(path.constData(), &status) != 0) {
        if (path == "/")
            return 0;
        path = ParentOf(path);
    }
    return status.st_dev;
}

/// The highest folder on the volume of `path`.
QByteArray TopFolder(const QByteArray& path, dev_t volume)
{
    QByteArray top = ParentOf(path);
    while (top != "/" && VolumeOf(ParentOf(top)) == volume)
        top = ParentOf(top);
    return top;
}

/// A folder of the user's own, not a link that leads elsewhere.
bool IsOwnFolder(const QByteArray& path)
{
    const std::optional<struct stat> status = Status(path);
    return status && S_ISDIR(status->st_mode) && status->st_uid == ::geteuid();
}

bool MakeFolder(const QByteArray& path)
{
    return ::mkdir(path.constData(), kFolderMode) == 0 || errno == EEXIST;
}

bool MakeParts(const QByteArray& trash)
{
    return MakeFolder(trash + "/files") && MakeFolder(trash + "/info");
}

bool MakeHomeTrash(const QByteArray& trash)
{
    return QDir().mkpath(QFile::decodeName(ParentOf(trash))) && MakeFolder(trash) && MakeParts(trash);
}

/// The trashes of a volume, in the order of preference: the administrator's shared one, the user's own.
std::vector<Trash> VolumeTrashes(const QByteArray& top)
{
    const QByteArray user = QByteArray::number(static_cast<qulonglong>(::geteuid()));
    const QByteArray root = top == "/" ? QByteArray() : top;
    std::vector<Trash> found;
    const std::optional<struct stat> shared = Status(root + "/.Trash");
    if (shared && S_ISDIR(shared->st_mode) && (shared->st_mode & S_ISVTX) != 0)
        found.push_back({ root + "/.Trash/" + user, top });
    found.push_back({ root + "/.Trash-" + user, top });
    std::erase_if(found, [](const Trash& trash) { return !MakeFolder(trash.Folder) || !IsOwnFolder(trash.Folder); });
    return found;
}

QByteArray Shortened(QByteArray name)
{
    if (name.size() <= kMaxNameBytes)
        return name;
    qsizetype end = kMaxNameBytes;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U)
        --end; // not inside a UTF-8 sequence
    return name.first(end);
}

QByteArray InfoText(const Trash& trash, const QByteArray& path)
{
    const qsizetype above = trash.Top.isEmpty() ? 0 : trash.Top == "/" ? 1 : trash.Top.size() + 1;
    const QString date = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"));
    return "[Trash Info]\nPath=" + path.sliced(above).toPercentEncoding("/") + "\nDeletionDate=" + date.toLatin1()
        + '\n';
}

bool WriteAll(int file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(file, bytes.data(), static_cast<size_t>(bytes.size()));
        if (written < 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return ::fsync(file) == 0;
}

/// Reserves a free name by creating its description. Empty if the trash can't be written.
QByteArray ReserveName(const Trash& trash, const QByteArray& path)
{
    const QByteArray wanted = Shortened(NameOf(path));
    for (int at = 0; at < kNameTries; ++at) {
        const QByteArray number = '.' + QByteArray::number(QRandomGenerator::global()->generate(), 16);
        const QByteArray name = at == 0 ? wanted : wanted + number;
        const QByteArray info = trash.Info(name);
        const int file = ::open(info.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kInfoMode);
        if (file < 0 && errno == EEXIST)
            continue;
        if (file < 0)
            return {};
        const bool isWritten = WriteAll(file, InfoText(trash, path));
        ::close(file);
        if (isWritten && !Status(trash.File(name)))
            return name;
        ::unlink(info.constData());
        if (!isWritten)
            return {};
    }
    return {};
}

/// Renames without replacing anything, where the file system can. 0 or the system's error number.
int RenameToFree(const QByteArray& from, const QByteArray& to)
{
#if defined(RENAME_NOREPLACE)
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
#endif
    if (Status(to))
        return EEXIST;
    return ::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

void FlushFolder(const QByteArray& folder)
{
    tvfile::TheFileSystem().FlushFolder(folder.toStdString());
}

enum class OtherVolume { Fails, IsCopied };

/// Puts `path` into `trash`, whose folders exist.
bool PutInto(const Trash& trash, const QByteArray& path, OtherVolume otherVolume)
{
    const QByteArray name = ReserveName(trash, path);
    if (name.isEmpty())
        return false;
    FlushFolder(trash.Folder + "/info");
    const QByteArray target = trash.File(name);
    const int error = RenameToFree(path, target);
    const bool isMoved =
        error == EXDEV && otherVolume == OtherVolume::IsCopied ? MoveTreeByCopy(path, target) : error == 0;
    if (!isMoved && !Status(target))
        ::unlink(trash.Info(name).constData());
    FlushFolder(trash.Folder + "/files");
    FlushFolder(ParentOf(path));
    return isMoved;
}

/// A folder can't be moved into itself.
bool IsInside(const QByteArray& trash, const QByteArray& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(QFile::decodeName(trash)).canonicalFilePath());
    return folder == path || folder.startsWith(path + '/');
}

} // namespace

bool MoveToTrash(const QString& path)
{
    const QByteArray item = QFile::encodeName(ResolveFolder(QDir::cleanPath(QFileInfo(path).absoluteFilePath())));
    const std::optional<struct stat> status = Status(item);
    if (!status || item == "/")
        return false;
    const dev_t volume = VolumeOf(ParentOf(item));
    const Trash home{ HomeTrash(), {} };
    if (VolumeOf(home.Folder) != volume) {
        for (const Trash& trash : VolumeTrashes(TopFolder(item, volume))) {
            if (MakeParts(trash.Folder) && !IsInside(trash.Folder, item) && PutInto(trash, item, OtherVolume::Fails))
                return true;
        }
    }
    if (!MakeHomeTrash(home.Folder) || IsInside(home.Folder, item))
        return false;
    return PutInto(home, item, OtherVolume::IsCopied);
}

} // namespace tarvik

#else

#include <QFile>

namespace tarvik {

bool MoveToTrash(const QString& path)
{
    return QFile::moveToTrash(path);
}

} // namespace tarvik

#endif
