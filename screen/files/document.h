// screen/files/document.h: pictures from files in windows, and windows in files.
#pragma once

#include "link/documents/fileKind.h"
#include "screen/document/window.h"

#include <QImage>
#include <QString>

namespace tarvik {

/// A picture file on its way into a window.
struct PictureToShow {
    QString Path;
    ImageKind Kind = ImageKind::None;
    QSize Size; ///< as PictureSize tells it
    qint16 Subtype = SubtypeFile;
    QString Title; ///< on the status line, while there is no window
    QDateTime Date; ///< invalid for the present moment
    bool Modified = false;
};

/// What ImgShow answers when the picture can't be decoded.
inline constexpr WindowId kNotDecoded = -1;

/// Decodes a picture and shows it in a window, whose id is the answer. 0 without a slot, as WindowAllocate has told. A
/// window that was to give way is only replaced by a picture that could be decoded.
WindowId ImgShow(const PictureToShow& picture);

struct OpenedImage {
    int Result = 1; ///< 0 for success
    WindowId Id = 0;
};

/// Opens an image of a kind in a window of the given subtype. Non-zero when no window came to be: a
/// file that can't be read has been reported by its kind's text, with its name; without the image library nothing is
/// said.
OpenedImage ImgOpen(const QString& path, ImageKind kind, qint16 subtype);

/// Writes the composed picture of a window (picture, description) as an image of a kind and clears the
/// modified mark; the window of a file then bears the new name. False, with the mark as it was, when nothing was
/// written: the kind is none, the library is not there, or writing failed, which is told of a metafile
/// (12759).
[[nodiscard]] bool ImgSave(const QString& path, ImageKind kind, WindowId id);

/// Decodes an image of a kind without a window, transparent places in the paper of a new document. Null when that
/// fails, which has been told as ImgOpen tells it.
QImage ImgRead(const QString& path, ImageKind kind);

} // namespace tarvik
