// screen/bitmap/bitmapReader.h: decodes Windows bitmap files.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <optional>

namespace tarvik {

/// Decodes a bitmap file of any bit count, with or without run-length encoding and masks, in every header version of
/// OS/2 and Windows. Transparent pixels are blended over `background`. Format_RGB32. Nullopt for a file that is
/// incomplete, inconsistent, or larger than closed/tvimg.h allows.
std::optional<QImage> ReadBitmap(const QByteArray& bytes, const QColor& background);

} // namespace tarvik
