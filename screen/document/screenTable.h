// screen/document/screenTable.h: the screen documents: one picture of a receiver's display each, in memory.
#pragma once

#include "screen/document/window.h"

#include <QDateTime>
#include <QImage>

#include <array>

namespace tarvik {

/// Index of a colour of a document.
enum ColourIndex { ColourBackground = 0, ColourForeground = 1, ColourMarker = 2, ColourText = 3 };
inline constexpr int kColours = 4;

/// Palettes of a document.
enum PaletteNumber : qint16 { PaletteColour = 0, PaletteBlackAndWhite = 1 };

/// What a new document starts with: the values set last. Colours are 0x00BBGGRR.
struct ColorDefaults {
    quint32 Background = 0xFFFFFF; ///< `ColBg`
    quint32 Foreground = 0; ///< `ColFg`
    quint32 Marker = 0xFFFFFF; ///< `ColMg`
    quint32 Text = 0; ///< `ColTx`
    qint16 PalNr = PaletteColour;
};
ColorDefaults& TheColorDefaults();

struct ScreenRecord {
    qint16 SourceTag = 0; ///< the window subtype at creation
    qint16 DocumentIndex = 0;
    QDateTime Date; ///< of the file, or the moment of opening or capture
    std::array<quint32, kColours> Colours{}; ///< 0x00BBGGRR
    qint16 ZoomState = 0;
    qint16 PalNr = PaletteColour;
    QImage Master; ///< the picture at its own size: what `PbDefGraph` shows. Format_RGB32
    QImage Graph; ///< the stretched copy: what `PbGraph` shows. Format_RGB32
};

/// Documents by index, 1 to kDocumentsOfType; element 0 is not used.
std::array<ScreenRecord, kDocumentsOfType + 1>& ScreenTable();
void ScreenTableClear();

/// The document of a screen window in use; null for any other id.
ScreenRecord* ScreenOf(WindowId id);

/// A fresh document for a window: cleared, with the date of now and the colours and palette that were set last.
ScreenRecord& ScreenInitialise(WindowId id);

/// Releases what the document of this window holds.
void ScreenFree(WindowId id);

} // namespace tarvik
