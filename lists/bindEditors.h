// lists/bindEditors.h: for the composition: which form edits which list.
#pragma once

namespace tarvik {

/// Binds the editors' forms to `OpenEditor`, and the editors to the openers of files and to the frame's commands.
void BindListEditors();

} // namespace tarvik
