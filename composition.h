// composition.h: binds what lower folders ask of higher ones, for every program that has the main frame.
#pragma once

namespace tarvik {

/// Binds dialogs, message form, texts, openers, editors, help and settings. Needs the application object.
void ComposeProgram();

} // namespace tarvik
