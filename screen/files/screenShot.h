// screen/files/screenShot.h: the instrument's display as a picture in a window.
#pragma once

#include "screen/document/window.h"

#include <QString>

namespace tarvik {

/// Fetches the instrument's display into a new window, which takes 2 s and up to 5 s more, without events. -1 on any
/// failure: without a link, without a name for the temporary file, without a window or for a picture that can't be read
/// nothing is said; a transfer that breaks ends the link and is told (12703).
WindowId FetchScreen();

/// The command: FetchScreen with the program busy. Nothing without the image library.
void CaptureScreen();

/// Name of a temporary file, "temp00" to "temp09" and the extension, in the program's folder: the first one that is
/// free or whose file can be deleted; empty when there is none.
QString TemporaryName(const QString& extension);

} // namespace tarvik
