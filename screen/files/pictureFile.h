// screen/files/pictureFile.h: decodes and encodes picture files: PNG and PCX by the image library, bitmaps and
// metafiles by the rooms bitmap and metafile.
#pragma once

#include "link/documents/fileKind.h"

#include <QImage>
#include <QString>

#include <optional>

namespace tarvik {

/// Loads the image library unless it is bound; tries again at each call. True if bound, which the functions below
/// require.
[[nodiscard]] bool LoadPictureLibrary();

/// Width and height in pixels, from the content of a file of any kind; nothing for other files and beyond the limits of
/// the library.
std::optional<QSize> PictureSize(const QString& path);

/// Decodes a picture of that size to Format_RGB32; transparent pixels get `paper` (0x00BBGGRR). The progress box counts
/// lines. Null for a file that is damaged or of another kind or size.
QImage DecodePicture(const QString& path, ImageKind kind, QSize size, quint32 paper);

/// Replaces the file whole or not at all; false if it is unchanged.
[[nodiscard]] bool EncodePicture(const QString& path, ImageKind kind, const QImage& picture);

} // namespace tarvik
