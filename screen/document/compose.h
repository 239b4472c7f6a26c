// screen/document/compose.h: the picture of a whole window (picture, line, description) for saving, printing and
// copying.
#pragma once

#include "screen/document/window.h"

#include <QImage>

namespace tarvik {

/// `PbPrint`. Format_RGB32; null for a window without a picture.
QImage ComposeWindow(WindowId id);

} // namespace tarvik
