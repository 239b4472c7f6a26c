// allSettings.h: every group of settings above the frame's own, for the composition.
#pragma once

#include "app/settings/settings.h"

namespace tarvik {

/// In the order of reading and writing: folders, print, connection, screen.
std::vector<SettingsGroup> AllSettingsGroups();

} // namespace tarvik
