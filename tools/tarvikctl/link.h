// tools/tarvikctl/link.h: the commands for an instrument.
#pragma once

#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

/// True for the commands that need an instrument.
bool CtlIsLinkCommand(CtlCommand command);

/// Connects, runs the command and disconnects. Reports errors on `terminal`.
void CtlRunLink(const CtlArguments& arguments, Terminal& terminal);

} // namespace tarvik
