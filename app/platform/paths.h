// app/platform/paths.h: what the file system says about a path.
#pragma once

#include <QString>

namespace tarvik {

/// A file or folder that nobody may write bears the read-only attribute, whoever the user is.
bool HasReadOnlyAttribute(const QString& path);
void SetReadOnlyAttribute(const QString& path);

/// A name whose steps up ("..") are taken as the system takes them: from behind a link they lead into the folder above
/// the one that it leads to, and shortening the text would miss that. Absolute then; any other name stays as it is.
QString WithoutStepsUp(const QString& name);

} // namespace tarvik
