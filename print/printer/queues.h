// print/printer/queues.h: the queues of the printing system.
#pragma once

#include "print/printer/printers.h"

namespace tarvik {

/// CUPS: the scheduler that the environment or the system's configuration names. Nothing on systems without it.
PrinterSystem& SystemQueues();

} // namespace tarvik
