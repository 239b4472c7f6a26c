// screen/document/screenStatus.h: the status panel of a document window. It holds the document's date and time but is
// never visible: its height is 0.
#pragma once

#include "screen/document/window.h"

#include <QImage>

namespace tarvik {

/// Fills in date, text and time, and lays out the description. Does not recurse on the change events that this
/// raises.
void StatusFill(WindowId id);

/// Hides the panel if a form shows it.
void StatusShow(WindowId id);

/// Applies the document's background and text colour to panel, description and window.
void StatusColours(WindowId id);

/// Pixels: always 0.
int StatusHeight(WindowId id);

/// Upper index of the panel's lines: -1, as there are none.
int StatusLines(WindowId id);

/// Height added to a composed picture, in pixels: always 0.
int StatusCompose(WindowId id, QImage& target, quint32 paper);

} // namespace tarvik
