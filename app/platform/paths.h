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

/// True for a file that no writer replaces: it has the read-only attribute, or this user may not write it.
bool IsWriteProtected(const QString& path);

/// A name whose steps up ("..") are taken as the system takes them: from behind a link they lead into the folder above
/// the one that it leads to, and shortening the text would miss that. Absolute then; any other name stays as it is.
QString WithoutStepsUp(const QString& name);

/// The same path with its folder named without links; as it is where there is no such folder.
QString InRealFolder(const QString& path);

/// The one name of a file, whatever links lead to it; one that is not there yet has it too.
QString BehindLinks(const QString& path);

} // namespace tarvik
