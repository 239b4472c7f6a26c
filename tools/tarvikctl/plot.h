// tools/tarvikctl/plot.h: the command for diagrams.
#pragma once

#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

/// Runs `plot`. Reports errors on `terminal`.
void CtlRunPlot(const CtlArguments& arguments, Terminal& terminal);

} // namespace tarvik
