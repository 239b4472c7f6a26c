// screen/metafile/metafileReader.h: Windows metafiles, painted into pictures.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <optional>

namespace tarvik {

/// Paints a metafile, placeable or not, on a picture of `background`, in the size that closed/pictures/metafile.h
/// tells. Format_RGB32. Needs a QGuiApplication for the fonts. Nothing for a file that is not whole, whose records
/// contradict themselves, that is larger than closed/tvimg.h allows, or whose painting would take beyond all measure.
std::optional<QImage> ReadMetafile(const QByteArray& bytes, const QColor& background);

} // namespace tarvik
