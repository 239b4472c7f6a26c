// screen/metafile/metafileWriter.h: writes a picture as a placeable Windows metafile.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace tarvik {

/// The file for a picture: the 22-byte header, then a metafile of four records: mapping mode, window extent, the
/// picture as a 24-bit bitmap, end. One unit is one pixel, 96 per inch. Empty for a null picture or one beyond the
/// limits of closed/tvimg.h, which would not fit the header's fields.
QByteArray MetafileBytes(const QImage& picture);

/// Writes that file atomically: after a failure `path` is unchanged.
[[nodiscard]] bool WriteMetafile(const QString& path, const QImage& picture);

} // namespace tarvik
