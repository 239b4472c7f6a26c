// lists/kfactor/kfactorCells.h: contents and checks of the cells of a K-factor table's grid.
#pragma once

#include "lists/kfactor/kfactorTable.h"

namespace tarvik {

/// Indexes of the grid's columns, part of the names of headers and cells.
inline constexpr int kKfactorColumnFrequency = 1;
inline constexpr int kKfactorColumnPassive = 2;
inline constexpr int kKfactorColumnActive = 3;

/// Text of a cell; empty in an unused row.
QString KfactorCellText(const KfactorEntry& entry, int column);

/// Checks the text of a cell of a used row, stores the value and sets `text` to what the cell shows. False after a
/// message.
[[nodiscard]] bool CheckKfactorCell(KfactorEntry& entry, int column, QString& text);

} // namespace tarvik
