// screen/document/color.h: the colours around the picture of a document, its palette, and the defaults kept in the
// settings. The setters with redraw are in palette.h.
#pragma once

#include "screen/document/screenTable.h"

#include <QColor>
#include <QString>

namespace tarvik {

void ColorLoadSettings(const QString& iniFile);
void ColorSaveSettings(const QString& iniFile);

/// Colour `index` of a document, 0x00BBGGRR; 0 if the window is not a screen or the index is invalid.
quint32 ColorGet(WindowId id, int index);

/// Stores a colour in the document, if the window is a screen, and as default of new documents. The foreground sets
/// the text colour as well.
void ColorStore(quint32 colour, WindowId id, int index);

/// As above for the palette number.
void PaletteStore(PaletteNumber number, WindowId id);

/// PaletteNumber::Colour if the window has no picture.
PaletteNumber PaletteOf(WindowId id);

/// Background of a diagram in the colour palette. 0x00BBGGRR.
inline constexpr quint32 kDiagramBackground = 0xCECBCE;

/// Background and text colour around the picture; a data set has those of its diagram. 0x00BBGGRR.
quint32 PaperColor(WindowId id);
quint32 TextColor(WindowId id);

/// Background colour of a document that is still to be created, visible through transparent pixels.
quint32 PaperOfNewDocument();

/// Converts 0x00BBGGRR to QColor.
QColor ColorOf(quint32 colour);

} // namespace tarvik
