// screen/window/ChildWindowStyle.h: title bars that are legible with any palette.
#pragma once

class QMdiArea;
class QStyle;

namespace tarvik {

/// A style for the child windows of this area, which owns it. Differs from the program's style for inactive windows:
/// with a dark palette that draws the title bar buttons black on black.
QStyle* ChildWindowStyle(QMdiArea& area);

} // namespace tarvik
