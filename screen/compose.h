// screen/compose.h: the picture of a whole window (picture, line, description) for saving, printing and copying.
#pragma once

#include "screen/window.h"

#include <QImage>

/// `PbPrint`. Format_RGB32; null for a window without a picture.
QImage ComposeWindow(WindowId id);

/// A picture stretched to a size by the platform's smooth or plain copy; of the same size it is the picture itself.
QImage Stretch(const QImage& picture, QSize size);

/// The inverted grey picture for output in black and white, in place: 255 - round(0.299 blue + 0.587 green + 0.114 red),
/// halves to even. Red and blue trade their usual weights, deliberately. Format_RGB32.
void ConvertToBlackAndWhite(QImage& picture);
