// screen/document.h: opening, saving and capturing of screen documents.
#pragma once

#include "screen/window.h"

#include <QImage>
#include <QString>

/// Kinds of images by number.
enum ImageKind { ImageBitmap = 1, ImagePcx = 2, ImagePng = 3, ImageMetafile = 4 };

/// Opens an image in a window of the given subtype; `id` is its window. Non-zero when no window came to be: a file that
/// can't be read has been reported by its kind's text.
struct OpenedImage {
    int Result = 1; ///< 0 for success
    WindowId Id = 0;
};
OpenedImage ImgOpen(const QString& path, int kind, qint16 subtype);

/// Writes the composed picture of a window (picture, description) in the format of the path's extension and clears the
/// modified mark. False when the extension is that of no image, or a metafile could not be written (12759).
bool ImgSave(const QString& path, WindowId id);

/// Fetches the instrument's display into a new window. -1 on any failure (12703 for a broken transfer).
WindowId FetchScreen();

/// The command: FetchScreen with the program busy. Nothing without the image library.
void CaptureScreen();

/// Temporary files, "temp00.EXT" to "temp09.EXT" in the program's folder: the first name that is free or whose file can
/// be deleted; empty when none is.
QString TemporaryName(const QString& extension);
