// screen/document/screenTable.h: the documents in memory: pictures of a receiver's display, and pictures of data sets.
#pragma once

#include "screen/document/documentPicture.h"
#include "screen/document/window.h"

#include <QDateTime>
#include <QImage>

#include <array>
#include <memory>

namespace tarvik {

/// Index of a colour of a document.
enum ColourIndex { ColourBackground = 0, ColourForeground = 1, ColourMarker = 2, ColourText = 3 };
inline constexpr int kColours = 4;

/// Defaults of a new document: the values set last. Colours are 0x00BBGGRR.
struct ColorDefaults {
    quint32 Background = 0xFFFFFF; ///< `ColBg`
    quint32 Foreground = 0; ///< `ColFg`
    quint32 Marker = 0xFFFFFF; ///< `ColMg`
    quint32 Text = 0; ///< `ColTx`
    PaletteNumber PalNr = PaletteNumber::Colour;
};
ColorDefaults& TheColorDefaults();

struct ScreenRecord final : DocumentPicture {
    WindowSubtype SourceTag = WindowSubtype::Live; ///< the window subtype on creation
    qint16 DocumentIndex = 0;
    QDateTime Date; ///< of the file, or the time of opening or capture
    std::array<quint32, kColours> Colours{}; ///< 0x00BBGGRR
    qint16 ZoomState = 0;
    QImage Master; ///< the picture at its original size, shown by `PbDefGraph`. Format_RGB32

    QSize OwnSize() const override;
    QImage Draw(QSize devicePixels, double scale) const override; ///< the scaled copy
    QImage ForPage(QSize devicePixels, double scale, bool blackAndWhite) const override;
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

/// The picture of a window in use; null for any other id, and for a data set that has none yet.
DocumentPicture* PictureOf(WindowId id);

/// Frees the picture of a window.
void PictureFree(WindowId id);

using DatasetPictures = std::array<std::unique_ptr<DocumentPicture>, kDocumentsOfType + 1>;

/// Pictures of the data sets by document index, 1 to kDocumentsOfType; element 0 is unused.
DatasetPictures& DatasetTable();

} // namespace tarvik
