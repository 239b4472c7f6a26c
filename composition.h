// composition.h: sets the ports, seams and settings of every program with the main frame.
#pragma once

namespace tarvik {

/// Binds dialogs, message form, openers, editors, help and settings. Needs the application object.
void ComposeProgram();

} // namespace tarvik
