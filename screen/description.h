// screen/description.h: the user's text block under a picture.
#pragma once

#include <QString>

/// Whether a new window shows the block: the value set last. `ViewDescr`, 0 for hidden.
struct DescriptionDefaults {
    quint8 ViewDescr = 0;
};
DescriptionDefaults& TheDescriptionDefaults();
void DescrReset();

void DescrLoadSettings(const QString& iniFile);
void DescrSaveSettings(const QString& iniFile);
