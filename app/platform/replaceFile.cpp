#include "app/platform/replaceFile.h"

#include "app/platform/paths.h"

#include <QFileInfo>
#include <QTemporaryFile>

#include <filesystem>
#include <system_error>

#if defined(Q_OS_UNIX)
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#elif defined(Q_OS_WIN)
#include <io.h>
#endif

namespace tarvik {

namespace {

const QString kTemporarySuffix = QStringLiteral(".part");

/// QTemporaryFile puts others in their place.
const QString kTemporaryLetters(6, u'X');

/// File systems take names of up to 255 bytes; with what is put around it the temporary one must not pass that.
constexpr qsizetype kMaxKeptBytes = 200;

/// Where the bytes shall stand at last: behind any links.
QString FinalPath(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isSymLink())
        return WithoutStepsUp(path);
    const QString target = info.canonicalFilePath();
    return target.isEmpty() ? info.symLinkTarget() : target;
}

QString TemporaryPrefix(const QFileInfo& target)
{
    QString name = target.fileName();
    while (name.toUtf8().size() > kMaxKeptBytes)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return QLatin1Char('.') + name + QLatin1Char('.');
}

/// For QTemporaryFile.
QString TemporaryTemplate(const QFileInfo& target)
{
    return target.absolutePath() + u'/' + TemporaryPrefix(target) + kTemporaryLetters + kTemporarySuffix;
}

#if defined(Q_OS_UNIX)

/// A writer at work holds the lock on its temporary file; one that was killed does not.
bool LockAgainstOthers(int handle)
{
    return flock(handle, LOCK_EX | LOCK_NB) == 0;
}

bool FlushToDisk(int handle)
{
    return fsync(handle) == 0;
}

void FlushFolder(const QString& folder)
{
    const int handle = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    fsync(handle);
    close(handle);
}

QFile::Permissions PermissionsOfNewFiles()
{
    const mode_t mask = umask(0);
    umask(mask);
    QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner;
    const auto grant = [&permissions, mask](mode_t bit, QFile::Permission permission) {
        if ((mask & bit) == 0)
            permissions |= permission;
    };
    grant(S_IRGRP, QFile::ReadGroup);
    grant(S_IWGRP, QFile::WriteGroup);
    grant(S_IROTH, QFile::ReadOther);
    grant(S_IWOTH, QFile::WriteOther);
    return permissions;
}

#else

bool LockAgainstOthers(int)
{
    return true; // an open file can't be removed here
}

bool FlushToDisk(int handle)
{
#if defined(Q_OS_WIN)
    return _commit(handle) == 0;
#else
    return true;
#endif
}

void FlushFolder(const QString&) { }

QFile::Permissions PermissionsOfNewFiles()
{
    return QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther;
}

#endif

/// By names alone, since a folder may hold thousands of files.
void RemoveLeftovers(const QFileInfo& target)
{
    const auto prefix = QFileInfo(TemporaryPrefix(target)).filesystemFilePath().native();
    const auto suffix = QFileInfo(kTemporarySuffix).filesystemFilePath().native();
    const auto folder = QFileInfo(target.absolutePath()).filesystemFilePath();
    const size_t length = prefix.size() + static_cast<size_t>(kTemporaryLetters.size()) + suffix.size();
    std::error_code error;
    for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const auto name = at->path().filename().native();
        if (name.size() != length || !name.starts_with(prefix) || !name.ends_with(suffix))
            continue;
        QFile leftover(at->path());
        if (leftover.open(QIODevice::ReadOnly) && LockAgainstOthers(leftover.handle())) {
            leftover.close();
            leftover.remove();
        }
    }
}

bool WriteWhole(QTemporaryFile& file, QByteArrayView bytes)
{
    return file.write(bytes.data(), bytes.size()) == bytes.size() && file.flush() && FlushToDisk(file.handle());
}

bool RenameOver(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(
        QFileInfo(from).filesystemAbsoluteFilePath(), QFileInfo(to).filesystemAbsoluteFilePath(), error);
    return !error;
}

} // namespace

bool ReplaceFile(const QString& path, QByteArrayView bytes)
{
    const QFileInfo target(FinalPath(path));
    if (target.isDir() || HasReadOnlyAttribute(target.filePath()))
        return false;
    RemoveLeftovers(target);

    QTemporaryFile file(TemporaryTemplate(target));
    if (!file.open() || !LockAgainstOthers(file.handle()) || !WriteWhole(file, bytes))
        return false;
    file.setPermissions(target.exists() ? target.permissions() : PermissionsOfNewFiles());
    const QString temporary = file.fileName();
    file.close();
    if (!RenameOver(temporary, target.absoluteFilePath()))
        return false; // the temporary file removes itself
    file.setAutoRemove(false);
    FlushFolder(target.absolutePath());
    return true;
}

bool CanReplaceFile(const QString& path)
{
    const QFileInfo target(FinalPath(path));
    const bool mayBeReplaced = !target.exists()
        || (target.isFile() && !HasReadOnlyAttribute(target.filePath())
            && QFile(target.filePath()).open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
    if (!mayBeReplaced)
        return false;
    QTemporaryFile file(TemporaryTemplate(target));
    return file.open() && LockAgainstOthers(file.handle()) && file.write(" ", 1) == 1 && file.flush();
}

} // namespace tarvik
