#include "screen/description.h"

#include "app/ini.h"

namespace {

const QString kSection = QStringLiteral("Screen");
const QString kViewKey = QStringLiteral("ViewDescr");

} // namespace

DescriptionDefaults& TheDescriptionDefaults()
{
    static DescriptionDefaults defaults;
    return defaults;
}

void DescrReset()
{
    TheDescriptionDefaults() = {};
}

void DescrLoadSettings(const QString& iniFile)
{
    TheDescriptionDefaults().ViewDescr = IniReadByte(iniFile, kSection, kViewKey, 0);
}

void DescrSaveSettings(const QString& iniFile)
{
    IniWriteByte(iniFile, kSection, kViewKey, TheDescriptionDefaults().ViewDescr);
}
