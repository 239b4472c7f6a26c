// screen/files/document.h: opens picture files in windows and saves windows as picture files.
#pragma once

#include "link/documents/fileKind.h"
#include "screen/document/window.h"

#include <QImage>
#include <QString>

namespace tarvik {

/// A picture file to show in a window.
struct PictureToShow {
    QString Path;
    ImageKind Kind = ImageKind::None;
    QSize Size; ///< from PictureSize
    WindowSubtype Subtype = WindowSubtype::File;
    QString Title; ///< for the status line while loading
    QDateTime Date; ///< invalid: now
    bool Modified = false;
};

/// Result of ImgShow if the picture can't be decoded.
inline constexpr WindowId kNotDecoded = -1;

/// Decodes a picture and shows it in a window, whose id is returned. 0 without a free slot, after the message of
/// WindowAllocate. An existing window is replaced only if the picture could be decoded.
WindowId ImgShow(const PictureToShow& picture);

struct OpenedImage {
    int Result = 1; ///< 0 for success
    WindowId Id = 0;
};

/// Opens a picture file in a window of the given subtype. `Result` is not 0 if no window was opened: after the message
/// of its kind if the file can't be read, without a message if the image library is missing.
OpenedImage ImgOpen(const QString& path, ImageKind kind, WindowSubtype subtype);

/// Writes the composed picture of a window (with description), clears the modified flag and, for the window of a file,
/// sets the caption to the new name. False, with the flag unchanged, if the kind is None, the library is missing or
/// writing failed; the last is reported for metafiles only (12759).
[[nodiscard]] bool ImgSave(const QString& path, ImageKind kind, WindowId id);

/// Decodes a picture without a window; transparent pixels get the paper colour of a new document. Null on failure, with
/// the messages of ImgOpen.
QImage ImgRead(const QString& path, ImageKind kind);

} // namespace tarvik
