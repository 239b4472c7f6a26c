// print/page/printSettings.h: stored print settings: size of the preview, defaults of new entries, and margins and
// layout of the present page.
#pragma once

#include <QString>

namespace tarvik {

struct PrintSettings {
    float PreviewWidth = 0; ///< twips; 0 before the first preview
    float PreviewHeight = 0;
    bool PreviewMaximized = false;
    bool Title = false; ///< Title and Border apply to windows without a slot
    bool Border = true;
};
PrintSettings& ThePrintSettings();

void PrintLoadSettings(const QString& iniFile);
void PrintSaveSettings(const QString& iniFile);

} // namespace tarvik
