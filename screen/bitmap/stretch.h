// screen/bitmap/stretch.h: what is done to the pixels of a picture on its way to the window.
#pragma once

#include <QImage>

namespace tarvik {

/// A picture stretched to a size, in pixels; of the same size it is the picture itself. Null when there is no memory.
QImage Stretch(const QImage& picture, QSize size);

/// The inverted grey picture for output in black and white, in place: see grey.h. Format_RGB32.
void ConvertToBlackAndWhite(QImage& picture);

} // namespace tarvik
