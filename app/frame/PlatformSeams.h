// app/frame/PlatformSeams.h: binds the seams to the dialogs and services of the window system.
#pragma once

namespace tarvik {

void BindPlatformSeams();

} // namespace tarvik
