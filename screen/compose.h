// screen/compose.h: the picture of a whole window (picture, line, description) for saving, printing and copying.
#pragma once

#include "screen/window.h"

#include <QImage>

/// `PbPrint`. Format_RGB32; null for a window without a picture.
QImage ComposeWindow(WindowId id);
