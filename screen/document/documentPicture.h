// screen/document/documentPicture.h: the picture of a window's document, whatever the type of the window.
#pragma once

#include <QImage>
#include <QSize>

namespace tarvik {

/// Palettes of a document. The settings file may have other values, which are kept.
enum class PaletteNumber : qint16 { Colour = 0, BlackAndWhite = 1 };

class DocumentPicture {
public:
    DocumentPicture() = default;
    virtual ~DocumentPicture() = default;

    /// Original size in pixels, whose aspect ratio the window keeps; empty for a picture that is drawn for any size.
    virtual QSize OwnSize() const = 0;

    /// The picture in its palette at a size in device pixels, `scale` of them to a pixel. Format_RGB32; null if memory
    /// runs out.
    virtual QImage Draw(QSize devicePixels, double scale) const = 0;

    /// The picture for a page, in black and white if asked or by its palette: at its original size, or drawn for that
    /// size in device pixels. Format_RGB32; null if memory runs out.
    virtual QImage ForPage(QSize devicePixels, double scale, bool blackAndWhite) const = 0;

    PaletteNumber PalNr = PaletteNumber::Colour;
    QImage Graph; ///< as drawn last for the window, shown by `PbGraph`. Format_RGB32

protected:
    DocumentPicture(const DocumentPicture&) = default;
    DocumentPicture& operator=(const DocumentPicture&) = default;
};

} // namespace tarvik
