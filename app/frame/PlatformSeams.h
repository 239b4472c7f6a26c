// app/frame/PlatformSeams.h: binds the seams to the dialogs and services of the window system.
#pragma once

namespace tarvik {

void BindPlatformSeams();

/// Closes the box of the SystemBox seam, if it is open.
void CloseSystemBox();

} // namespace tarvik
