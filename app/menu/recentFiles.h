// app/menu/recentFiles.h: the files that were opened or saved last, which the File menu offers. Kept for one run: the
// settings file has no keys for them.
#pragma once

#include <QString>
#include <QStringList>

namespace tarvik {

inline constexpr int kRecentFiles = 9; ///< one for each digit key

/// Absolute paths, newest first, each once.
const QStringList& RecentFiles();

/// Puts a file that was opened or saved at the top; the oldest one gives way.
void RecentFileAdd(const QString& path);

void RecentFilesClear();

/// Menu caption of the file at `number`, from 1: that digit as mnemonic, and the path. A long path loses its first
/// folders.
QString RecentFileCaption(int number, const QString& path);

/// Opens a document or list as the command Open does, if the program can act. A failure, which is reported, leaves the
/// list unchanged.
void RecentFileOpen(const QString& path);

} // namespace tarvik
