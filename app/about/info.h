// app/about/info.h: which files are installed, and in which version.
#pragma once

#include "closed/loader.h"

#include <QString>

#include <vector>

namespace tarvik {

/// One file. Both versions are text 11712 if the file is missing or has none.
struct InfoRow {
    QString Name;
    QString FileVersion;
    QString ProductVersion;
};

/// Executable, help book, modules, and the instrument firmware that the list store was built for. No module needs to
/// be bound, except for the firmware.
std::vector<InfoRow> InfoRows();

/// The rows as lines: name, tab, file version, tab, product version, CR LF.
QString InfoText();

/// Product version as a sentence, followed by a blank and the pre-release tag if there is one.
QString AboutVersionText(const QString& preRelease);

} // namespace tarvik
