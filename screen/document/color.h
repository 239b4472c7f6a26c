// screen/document/color.h: the colours around the picture of a document, its palette, and what of them outlives the
// program. Setting with a redraw stands in palette.h.
#pragma once

#include "screen/document/screenTable.h"

#include <QColor>
#include <QString>

namespace tarvik {

void ColorLoadSettings(const QString& iniFile);
void ColorSaveSettings(const QString& iniFile);

/// Colour `index` of a document, 0x00BBGGRR; 0 for a window that is no screen and for an index that there is not.
quint32 ColorGet(WindowId id, int index);

/// Stores a colour into the document, if the window is a screen, and as what new documents start with. The foreground
/// sets the text as well.
void ColorStore(quint32 colour, WindowId id, int index);

/// The same for the palette number.
void PaletteStore(qint16 number, WindowId id);

/// PaletteColour for a window that is no screen.
qint16 PaletteOf(WindowId id);

/// What surrounds the picture, and what stands on it. 0x00BBGGRR.
quint32 PaperColor(WindowId id);
quint32 TextColor(WindowId id);

/// The paper of a document that does not exist yet: its background shows where a picture is transparent.
quint32 PaperOfNewDocument();

/// A 0x00BBGGRR number as the window system has it.
QColor ColorOf(quint32 colour);

} // namespace tarvik
