// lists/bindEditors.h: for the composition: which form edits which list.
#pragma once

namespace tarvik {

/// Gives `OpenEditor` its forms, and binds the editors to the port of list files and to the frame's commands.
void BindListEditors();

} // namespace tarvik
