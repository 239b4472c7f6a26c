// lists/memory/memoryCells.h: contents and checks of the memory grid's cells.
#pragma once

#include "lists/memory/memoryRecord.h"

namespace tarvik {

/// Indexes of the grid's columns, part of the names of headers and cells.
inline constexpr int kMemoryColumnStatus = 1; ///< check box
inline constexpr int kMemoryColumnNumber = 2;
inline constexpr int kMemoryColumnFrequency = 3;
inline constexpr int kMemoryColumnDemodulation = 4;
inline constexpr int kMemoryColumnDescription = 5;

/// Text of a cell. An unused row shows only its number.
QString MemoryCellText(const MemoryRecord& record, int column);

/// Checks the text of a cell of a used row, stores the value and sets `text` to what the cell shows. If a frequency's
/// text has not changed, its fraction of a Hz is kept. False after a message.
[[nodiscard]] bool CheckMemoryCell(MemoryRecord& record, int column, QString& text);

/// Columns to refill when a change in `typedColumn` makes the row used: all but that one and the frequency, which the
/// user still has to type.
std::vector<int> ColumnsOfNewMemoryRow(int typedColumn);

} // namespace tarvik
