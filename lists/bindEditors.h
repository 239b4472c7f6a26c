// lists/bindEditors.h: binds the list editors, for the composition.
#pragma once

namespace tarvik {

/// Sets the ports `ListEditors` and `ListFiles` and binds the editors' commands.
void BindListEditors();

} // namespace tarvik
