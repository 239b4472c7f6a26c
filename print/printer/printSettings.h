// print/printer/printSettings.h: stored print settings: size of the preview, margins and layout of page 0.
#pragma once

#include "app/settings/ini.h"

#include <QString>

#include <array>

namespace tarvik {

inline constexpr int kSlotsPerPage = 10;

/// A stored position on the page.
struct PageSlot {
    qint32 Type = 0; ///< window type; 0: none
    IniRect Rectangle; ///< inches on the sheet; all -1: undefined
    bool Title = true;
    bool Outline = true;
    qint32 Order = 0; ///< stacking order, lowest drawn first
};

/// Inches.
struct PageMargins {
    float Left = 0;
    float Top = 0;
    float Right = 0;
    float Bottom = 0;
};

struct PrintSettings {
    float PreviewWidth = 0; ///< twips; 0 before the first preview
    float PreviewHeight = 0;
    bool PreviewMaximized = false;
    PageMargins Margins;
    bool Title = false; ///< Title and Border apply to windows without a slot
    bool Border = true;
    std::array<PageSlot, kSlotsPerPage> Layout;
};
PrintSettings& ThePrintSettings();

void PrintLoadSettings(const QString& iniFile);
void PrintSaveSettings(const QString& iniFile);

} // namespace tarvik
