// screen/color.h: the colours around the picture of a screen document, and its palette.
#pragma once

#include <QString>

/// Palettes of a screen document.
enum PaletteNumber : qint16 { PaletteColour = 0, PaletteBlackAndWhite = 1 };

/// What a new screen document starts with: the values set last. Colours are 0x00BBGGRR.
struct ColorDefaults {
    quint32 Background = 0xFFFFFF; ///< `ColBg`
    quint32 Foreground = 0; ///< `ColFg`
    quint32 Marker = 0xFFFFFF; ///< `ColMg`
    quint32 Text = 0; ///< `ColTx`
    qint16 PalNr = PaletteColour;
};
ColorDefaults& TheColorDefaults();
void ColorReset();

void ColorLoadSettings(const QString& iniFile);
void ColorSaveSettings(const QString& iniFile);
