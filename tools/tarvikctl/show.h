// tools/tarvikctl/show.h: a memory list as text for people and as JSON for programs.
#pragma once

#include "lists/memory/memoryRecord.h"

#include <QString>

namespace tarvik {

/// One line: what it is, its name, how many rows are used.
QString CtlSummary(const MemoryTable& table);

/// Name and description, then the columns of the editor's grid and the bandwidth. Frequencies in MHz. Unused rows
/// only if `all`.
QString CtlTable(const MemoryTable& table, bool all);

/// One object, its keys always in the same order, one row a line. Frequencies in Hz, settings as their codes.
QString CtlJson(const MemoryTable& table, bool all);

} // namespace tarvik
