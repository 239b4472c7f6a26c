// screen/metafile/metafileWriter.h: a picture as a placeable Windows metafile.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace tarvik {

/// The file for a picture: the 22-byte header, then a metafile of four records: mapping mode, window extent, the
/// picture as a bitmap of 24 bits, end. One unit is one pixel, 96 to the inch. Empty for a picture without pixels or
/// beyond the limits of closed/tvimg.h, whose larger sides have no place in the header.
QByteArray MetafileBytes(const QImage& picture);

/// Writes that file whole or not at all: after a failure `path` is what it was.
[[nodiscard]] bool WriteMetafile(const QString& path, const QImage& picture);

} // namespace tarvik
