// screen/bitmap/bitmapReader.h: Windows bitmap files, as pictures.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <optional>

namespace tarvik {

/// Decodes a bitmap file of any bit count, with or without run-length coding, masks, and in the header forms from the
/// first OS/2 to the last Windows. Transparent pixels let `background` through. Format_RGB32. Nothing for a file that
/// is not whole, contradicts itself, or is larger than closed/tvimg.h allows.
std::optional<QImage> ReadBitmap(const QByteArray& bytes, const QColor& background);

} // namespace tarvik
