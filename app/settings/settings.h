// app/settings/settings.h: the order in which all settings are read at start and written at exit.
#pragma once

#include <QString>

#include <vector>

namespace tarvik {

/// One group of settings and the module that owns it. `Read` stores into the owner's record, `Write` writes from it.
struct SettingsGroup {
    void (*Read)(const QString& iniFile);
    void (*Write)(const QString& iniFile);
};

/// The groups between the last file and the window switches, in the order of reading and writing: folders, print,
/// connection, screen. Set by the program's composition.
void SettingsSetGroups(std::vector<SettingsGroup> groups);

/// `AppPath` + "Tarvik" + ".ini". If the user can't write that folder, "tarvik/Tarvik.ini" in the user's folder for
/// settings.
QString IniFileName();

/// False if the user can write neither folder, so that settings are lost at exit. Creates the user's folder if needed.
[[nodiscard]] bool IniHasPlace();

/// Reads every key, in the file's order; missing ones get their defaults. A user who has no file yet starts with the
/// one in `AppPath`. Errors are not reported.
void IniRead();

/// Writes every key, replacing the file whole; foreign lines and comments are kept. Errors are not reported.
void IniWrite();

} // namespace tarvik
