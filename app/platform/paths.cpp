#include "app/platform/paths.h"

#include "closed/files/filesystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvik {

namespace {

constexpr QFile::Permissions kAnyWriter = QFile::WriteOwner | QFile::WriteUser | QFile::WriteGroup | QFile::WriteOther;

tvfile::FileInfo Described(const QString& path)
{
    tvfile::FileInfo info;
    const int error = tvfile::TheFileSystem().Describe(ModulePath(path).toStdString(), info);
    return error == 0 ? info : tvfile::FileInfo();
}

} // namespace

QByteArray ModulePath(const QString& path)
{
    return QDir::toNativeSeparators(path).toUtf8();
}

bool HasReadOnlyAttribute(const QString& path)
{
    return Described(path).IsReadOnly;
}

bool IsWriteProtected(const QString& path)
{
    return !Described(path).IsWritable;
}

void SetReadOnlyAttribute(const QString& path)
{
    QFile::setPermissions(path, QFileInfo(path).permissions() & ~kAnyWriter);
}

QString ResolveParentSteps(const QString& name)
{
    const QString up = QStringLiteral("..");
    if (!QDir::fromNativeSeparators(name).split(u'/').contains(up))
        return name;
    const QFileInfo info(name);
    if (info.fileName() == up && info.exists())
        return info.canonicalFilePath();
    return ResolveFolder(name);
}

QString ResolveFolder(const QString& path)
{
    const QFileInfo info(path);
    const QString folder = QDir(info.path()).canonicalPath();
    return folder.isEmpty() ? path : QDir(folder).filePath(info.fileName());
}

QString ResolveLinks(const QString& path)
{
    std::string file = ModulePath(path).toStdString();
    return tvfile::FollowLinks(file) == 0 ? ResolveFolder(QString::fromStdString(file)) : path;
}

} // namespace tarvik
