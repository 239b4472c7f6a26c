// tools/tarvikctl/lists.h: the commands that work on list files.
#pragma once

#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

/// Runs `check`, `show`, `convert` or `sort`. What goes wrong has been shown on `terminal`.
void CtlRunLists(const CtlArguments& arguments, Terminal& terminal);

/// True when a memory list can be written under this name: its extension is that of one of the two forms.
bool CtlCanBeWritten(const QString& path);

} // namespace tarvik
