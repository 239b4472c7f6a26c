// screen/window/ChildWindowStyle.h: title bars that can be read on any palette.
#pragma once

class QMdiArea;
class QStyle;

namespace tarvik {

/// The style for the child windows of this area, which owns it: the program's own, but for the windows that are not the
/// active one. On a dark palette the plain style draws the buttons in their title bars black on black.
QStyle* ChildWindowStyle(QMdiArea& area);

} // namespace tarvik
