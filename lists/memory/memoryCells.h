// lists/memory/memoryCells.h: what the cells of the memory grid show and take.
#pragma once

#include "lists/memory/memoryRecord.h"

namespace tarvik {

/// Columns of the grid; headers and controls are numbered by them.
enum MemoryColumn {
    MemoryColumnRow = 0,
    MemoryColumnStatus = 1, ///< check box
    MemoryColumnNumber = 2,
    MemoryColumnFrequency = 3,
    MemoryColumnDemodulation = 4,
    MemoryColumnDescription = 5
};

/// Text of a cell. An unused row shows its number only.
QString MemoryCellText(const MemoryRecord& record, int column);

/// Checks what stands in a cell of a used row and takes it over; `text` becomes what the cell shows. A frequency that
/// reads as the stored one leaves its digits below 1 Hz alone. False after a message.
[[nodiscard]] bool CheckMemoryCell(MemoryRecord& record, int column, QString& text);

/// The cells that show the record's values when typing in `typedColumn` brings a row to life. The frequency is not
/// one of them: the user owes it.
std::vector<int> ColumnsOfNewMemoryRow(int typedColumn);

} // namespace tarvik
