// app/frame/PlatformSeams.h: the dialogs and services of the window system, put into the seams.
#pragma once

namespace tarvik {

void BindPlatformSeams();

} // namespace tarvik
