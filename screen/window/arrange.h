// screen/window/arrange.h: all document windows at once: arranging and choosing them.
#pragma once

#include "screen/window/screenWindow.h"

namespace tarvik {

/// 0 cascade, which leaves every window at its default size, 1 tile horizontally, 2 tile vertically, 3 arrange icons.
void ArrangeWindows(int code);
void ToggleAutoTile();

/// The number of windows, or their room, has changed: tiles more than one window if the user has asked for that.
void RetileIfWished();

/// Offers windows (see WindowsFor) and leaves the chosen ones in `Chosen`; a single candidate is chosen without a form.
void ChooseWindows(int mask, bool withImages);

} // namespace tarvik
