// screen/bindScreen.h: for the composition: which forms show documents, and what the frame asks of them.
#pragma once

namespace tarvik {

/// Binds the document windows and their forms to the frame's commands, to its state of documents, to the port of
/// documents and to the file control window.
void BindScreen();

} // namespace tarvik
