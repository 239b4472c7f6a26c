// app/settings/settings.h: the order in which all settings are read at start and written at exit.
#pragma once

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <functional>
#include <vector>

namespace tarvik {

/// The main frame as the settings see it. Lengths are in twips. Bound by the frame; without a frame the keys of the
/// file are left as they are.
struct FramePlacementHooks {
    std::function<QSizeF()> ScreenSizeTwips;
    std::function<void(int winState)> SetState;
    std::function<void(double)> SetWidthTwips;
    std::function<void(double)> SetHeightTwips;
    std::function<void(double)> SetLeftTwips;
    std::function<void(double)> SetTopTwips;
    std::function<QSizeF()> SizeTwips; ///< as set, which may differ from what was asked
    std::function<int()> State;
    std::function<QRectF()> NormalRectTwips; ///< the restored rectangle, also while maximised
};
FramePlacementHooks& TheFramePlacement();

/// One group of settings and the module that owns it. `Read` stores into the owner's record, `Write` writes from it.
struct SettingsGroup {
    std::function<void(const QString& iniFile)> Read;
    std::function<void(const QString& iniFile)> Write;
};

/// The groups between the last file and the window switches, in the order of reading and writing: folders, print,
/// connection, screen. Set by the program's composition.
void SettingsSetGroups(std::vector<SettingsGroup> groups);

/// `AppPath` + "Tarvik" + ".ini".
QString IniFileName();

/// Reads every key, in the file's order; missing ones take their defaults. Nothing is reported.
void IniRead();

/// Writes every key, replacing the file whole; foreign lines and comments survive. Nothing is reported.
void IniWrite();

} // namespace tarvik
