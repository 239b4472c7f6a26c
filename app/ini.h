// app/ini.h: the region's habits.
#pragma once

#include <QString>

/// The region's decimal character, "." where the region has none.
QString IniDecimalChar();
