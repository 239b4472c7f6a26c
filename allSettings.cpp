#include "allSettings.h"

#include "link/classes/model.h"
#include "link/connection/connect.h"
#include "print/page/printSettings.h"
#include "screen/document/color.h"
#include "screen/document/description.h"

namespace tarvik {

std::vector<SettingsGroup> AllSettingsGroups()
{
    return { { ModLoadPaths, ModSavePaths }, { PrintLoadSettings, PrintSaveSettings },
        { conLoadSettings, conSaveSettings }, { DescrLoadSettings, DescrSaveSettings },
        { ColorLoadSettings, ColorSaveSettings } };
}

} // namespace tarvik
