// tools/tarvikctl/print.h: prints pictures and diagrams, or their page table.
#pragma once

#include "tools/tarvikctl/printArguments.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

void CtlRunPrint(const PrintArguments& arguments, Terminal& terminal);

} // namespace tarvik
