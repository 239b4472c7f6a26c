// screen/metafile/metafileReader.h: renders Windows metafiles.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <optional>

namespace tarvik {

/// Renders a metafile, placeable or not, on `background`, in the size given by closed/pictures/metafile.h.
/// Format_RGB32. Needs a QGuiApplication for the fonts. Nullopt for a file that is incomplete, inconsistent, larger
/// than closed/tvimg.h allows, or too expensive to paint.
std::optional<QImage> ReadMetafile(const QByteArray& bytes, const QColor& background);

} // namespace tarvik
