// screen/files/screenShot.h: captures the instrument's display.
#pragma once

#include "screen/document/window.h"

#include <QString>

namespace tarvik {

/// Fetches the instrument's display into a new window. Blocks for 2 s plus up to 5 s. -1 on failure: a broken transfer
/// closes the link and is reported (12703); without a link, a temporary name, a window or a readable picture there is
/// no message.
WindowId FetchScreen();

/// The command: FetchScreen with the program busy. Does nothing without the image library.
void CaptureScreen();

/// The first name from "temp00" to "temp09", with the extension, that is free in the program's folder or whose file can
/// be deleted; empty if there is none.
QString TemporaryName(const QString& extension);

} // namespace tarvik
