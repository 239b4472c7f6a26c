// lists/suppress/suppressCells.h: contents and checks of the cells of a suppress list's grid.
#pragma once

#include "lists/suppress/suppressList.h"

namespace tarvik {

/// Indexes of the grid's columns, part of the names of headers and cells.
inline constexpr int kSuppressColumnInclude = 1; ///< check box
inline constexpr int kSuppressColumnStart = 2;
inline constexpr int kSuppressColumnStop = 3;
inline constexpr int kSuppressColumnDescription = 4;

/// Text of a cell; empty in an unused row.
QString SuppressCellText(const SuppressRow& row, int column);

/// Checks the text of a cell of a used row, stores the value and sets `text` to what the cell shows. False after a
/// message.
[[nodiscard]] bool CheckSuppressCell(SuppressRow& row, int column, QString& text);

} // namespace tarvik
