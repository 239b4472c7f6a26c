// screen/bitmap/stretch.h: scales and converts a picture for display.
#pragma once

#include <QImage>

namespace tarvik {

/// The picture scaled to a size in pixels; shares the pixels if the size is the same. Null if memory runs out.
QImage Stretch(const QImage& picture, QSize size);

/// Converts a picture in place to inverted grey for output in black and white: see grey.h. Format_RGB32.
void ConvertToBlackAndWhite(QImage& picture);

} // namespace tarvik
