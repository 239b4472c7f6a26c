// screen/window/FrameDesktop.h: the frame's area as the place of the document windows, with clipboard and forms.
#pragma once

namespace tarvik {

/// Implements TheScreenDesktop. Where there is no frame, views are of sizes only.
void BindScreenDesktop();

} // namespace tarvik
