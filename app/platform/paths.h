// app/platform/paths.h: what the file system says about a path.
#pragma once

#include <QByteArray>
#include <QString>

namespace tarvik {

/// The path as the closed modules take it: UTF-8, with the platform's separators.
QByteArray ModulePath(const QString& path);

/// A file or folder that nobody may write has the read-only attribute, whoever the user is.
bool HasReadOnlyAttribute(const QString& path);
void SetReadOnlyAttribute(const QString& path);

/// True for a file that no writer may replace: it is read-only, or this user has no permission to write it.
bool IsWriteProtected(const QString& path);

/// Resolves ".." as the system does: "link/.." is the parent of the link's target, not of the link. Absolute if `name`
/// has such a step, else unchanged.
QString ResolveParentSteps(const QString& name);

/// Resolves links in the folder of `path`, not in its last part. Unchanged if the folder does not exist.
QString ResolveFolder(const QString& path);

/// The path of a file without links, the same for every link to it. The file need not exist.
QString ResolveLinks(const QString& path);

} // namespace tarvik
