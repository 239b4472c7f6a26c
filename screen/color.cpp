#include "screen/color.h"

#include "app/ini.h"

namespace {

const QString kSection = QStringLiteral("Screen");

} // namespace

ColorDefaults& TheColorDefaults()
{
    static ColorDefaults defaults;
    return defaults;
}

void ColorReset()
{
    TheColorDefaults() = {};
}

void ColorLoadSettings(const QString& iniFile)
{
    constexpr ColorDefaults kFresh;
    TheColorDefaults() = { IniReadColour(iniFile, kSection, QStringLiteral("ColBg"), kFresh.Background),
        IniReadColour(iniFile, kSection, QStringLiteral("ColFg"), kFresh.Foreground),
        IniReadColour(iniFile, kSection, QStringLiteral("ColMg"), kFresh.Marker),
        IniReadColour(iniFile, kSection, QStringLiteral("ColTx"), kFresh.Text),
        IniReadInt(iniFile, kSection, QStringLiteral("PalNr"), kFresh.PalNr) };
}

void ColorSaveSettings(const QString& iniFile)
{
    const ColorDefaults& defaults = TheColorDefaults();
    IniWriteColour(iniFile, kSection, QStringLiteral("ColBg"), defaults.Background);
    IniWriteColour(iniFile, kSection, QStringLiteral("ColFg"), defaults.Foreground);
    IniWriteColour(iniFile, kSection, QStringLiteral("ColMg"), defaults.Marker);
    IniWriteColour(iniFile, kSection, QStringLiteral("ColTx"), defaults.Text);
    IniWriteInt(iniFile, kSection, QStringLiteral("PalNr"), defaults.PalNr);
}
