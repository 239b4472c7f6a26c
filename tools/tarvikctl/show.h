// tools/tarvikctl/show.h: a memory list as text for people and as JSON for programs.
#pragma once

#include "lists/memory/memoryRecord.h"

#include <QString>

namespace tarvik {

/// One line: kind of list, name, number of used rows.
QString CtlSummary(const MemoryTable& table);

/// Name and description, then the columns of the editor's grid and the bandwidth. Frequencies in MHz. Unused rows only
/// if `all`.
QString CtlTable(const MemoryTable& table, bool all);

/// One object with keys in a fixed order, one line per row. Frequencies in Hz, settings as codes.
QString CtlJson(const MemoryTable& table, bool all);

} // namespace tarvik
