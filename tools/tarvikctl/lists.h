// tools/tarvikctl/lists.h: the commands for list files.
#pragma once

#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

/// Runs `check`, `show`, `convert` or `sort`. Reports errors on `terminal`.
void CtlRunLists(const CtlArguments& arguments, Terminal& terminal);

/// True if `path` has the extension of one of the two forms of a memory list.
bool CtlCanBeWritten(const QString& path);

} // namespace tarvik
