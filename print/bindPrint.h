// print/bindPrint.h: for the composition: the print commands of the frame, and the printers of the system.
#pragma once

namespace tarvik {

void BindPrint();

} // namespace tarvik
