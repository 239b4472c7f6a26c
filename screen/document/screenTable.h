// screen/document/screenTable.h: the screen documents: pictures of a receiver's display in memory.
#pragma once

#include "screen/document/window.h"

#include <QDateTime>
#include <QImage>

#include <array>

namespace tarvik {

/// Index of a colour of a document.
enum ColourIndex { ColourBackground = 0, ColourForeground = 1, ColourMarker = 2, ColourText = 3 };
inline constexpr int kColours = 4;

/// Palettes of a document. The settings file may have other values, which are kept.
enum class PaletteNumber : qint16 { Colour = 0, BlackAndWhite = 1 };

/// Defaults of a new document: the values set last. Colours are 0x00BBGGRR.
struct ColorDefaults {
    quint32 Background = 0xFFFFFF; ///< `ColBg`
    quint32 Foreground = 0; ///< `ColFg`
    quint32 Marker = 0xFFFFFF; ///< `ColMg`
    quint32 Text = 0; ///< `ColTx`
    PaletteNumber PalNr = PaletteNumber::Colour;
};
ColorDefaults& TheColorDefaults();

struct ScreenRecord {
    WindowSubtype SourceTag = WindowSubtype::Live; ///< the window subtype on creation
    qint16 DocumentIndex = 0;
    QDateTime Date; ///< of the file, or the time of opening or capture
    std::array<quint32, kColours> Colours{}; ///< 0x00BBGGRR
    qint16 ZoomState = 0;
    PaletteNumber PalNr = PaletteNumber::Colour;
    QImage Master; ///< the picture at its original size, shown by `PbDefGraph`. Format_RGB32
    QImage Graph; ///< the scaled copy, shown by `PbGraph`. Format_RGB32
};

/// Documents by index, 1 to kDocumentsOfType; element 0 is unused.
std::array<ScreenRecord, kDocumentsOfType + 1>& ScreenTable();
void ScreenTableClear();

/// The document of a screen window in use; null for any other id.
ScreenRecord* ScreenOf(WindowId id);

/// Resets the document of a window: current date, and the colours and palette set last.
ScreenRecord& ScreenInitialise(WindowId id);

/// Frees the pictures of this window's document.
void ScreenFree(WindowId id);

} // namespace tarvik
