// screen/document/screenStatus.h: the status panel of a document window. It holds the document's date and time and is
// never seen: its height is 0, so that a window is its picture and its description.
#pragma once

#include "screen/document/window.h"

#include <QImage>

namespace tarvik {

/// Writes date, text and time into the panel, and lays out the description. Changes of the fields that this raises do
/// not fill it again.
void StatusFill(WindowId id);

/// Takes the panel out of sight if a form shows it.
void StatusShow(WindowId id);

/// Applies paper and text colour of the document to panel, description and window.
void StatusColours(WindowId id);

/// Pixels: always 0.
int StatusHeight(WindowId id);

/// Upper index of the panel's lines: -1, as it has none.
int StatusLines(WindowId id);

/// Height of what is added to a composed picture, in pixels: always 0.
int StatusCompose(WindowId id, QImage& target, quint32 paper);

} // namespace tarvik
