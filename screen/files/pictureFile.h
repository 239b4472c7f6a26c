// screen/files/pictureFile.h: pictures from and into files of the four kinds: PNG and PCX through the image library,
// bitmaps and metafiles by modules of this folder.
#pragma once

#include "link/documents/fileKind.h"

#include <QImage>
#include <QString>

#include <optional>

namespace tarvik {

/// True while the image library is bound. It is looked for when a picture is first handled, and again each time it was
/// not there. The calls below need it.
[[nodiscard]] bool PictureLibraryIsThere();

/// Width and height of a picture of any kind, by its content, in pixels; nothing for a file that is none, or of absurd
/// size.
std::optional<QSize> PictureSize(const QString& path);

/// Decodes a picture of that size; transparent places show `paper` (0x00BBGGRR). The progress box counts lines.
/// Format_RGB32; null for a file that is not whole or of another kind or size.
QImage DecodePicture(const QString& path, ImageKind kind, QSize size, quint32 paper);

/// Writes a picture whole or not at all; false, with the file as it was, when that fails.
[[nodiscard]] bool EncodePicture(const QString& path, ImageKind kind, const QImage& picture);

} // namespace tarvik
