#include "app/platform/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvik {

namespace {

constexpr QFile::Permissions kAnyWriter = QFile::WriteOwner | QFile::WriteUser | QFile::WriteGroup | QFile::WriteOther;

} // namespace

bool HasReadOnlyAttribute(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !(info.permissions() & (kAnyWriter & ~QFile::WriteUser));
}

void SetReadOnlyAttribute(const QString& path)
{
    QFile::setPermissions(path, QFileInfo(path).permissions() & ~kAnyWriter);
}

QString WithoutStepsUp(const QString& name)
{
    const QString up = QStringLiteral("..");
    if (!QDir::fromNativeSeparators(name).split(u'/').contains(up))
        return name;
    const QFileInfo info(name);
    if (info.fileName() == up && info.exists())
        return info.canonicalFilePath();
    const QString folder = QDir(info.path()).canonicalPath();
    return folder.isEmpty() ? name : QDir(folder).filePath(info.fileName());
}

} // namespace tarvik
