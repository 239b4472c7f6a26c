// screen/window/arrange.h: arranges and selects document windows.
#pragma once

#include "screen/window/screenWindow.h"

namespace tarvik {

/// Arranges all windows; cascading restores their default sizes.
void ArrangeWindows(Arrangement arrangement);
void ToggleAutoTile();

/// Call when the number of windows or the available area has changed: tiles more than one child window of the frame if
/// auto-tile is on.
void RetileIfAutoTile();

/// Offers windows (see WindowsFor) and stores the selected ones in `Chosen`; a single candidate is selected without a
/// form. The active window is the most likely choice.
void ChooseWindows(int mask, bool withImages);

/// As above with another window selected at first.
void ChooseWindows(int mask, bool withImages, WindowId marked);

} // namespace tarvik
