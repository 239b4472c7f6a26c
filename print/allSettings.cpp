#include "print/allSettings.h"

#include "link/connect.h"
#include "link/model.h"
#include "print/printSettings.h"
#include "screen/color.h"
#include "screen/description.h"

std::vector<SettingsGroup> AllSettingsGroups()
{
    return { { ModLoadPaths, ModSavePaths }, { PrintLoadSettings, PrintSaveSettings },
        { conLoadSettings, conSaveSettings }, { DescrLoadSettings, DescrSaveSettings },
        { ColorLoadSettings, ColorSaveSettings } };
}
