// bench/tableLists.h: full lists of all kinds but the memory list, for benchmarks.
#pragma once

#include <QString>

namespace tarvik {

/// Paths of the files of one run.
struct TableLists {
    QString Antennas; ///< 99 rows, none included
    QString Kfactors; ///< 1000 rows
    QString Ranges; ///< 100 rows
    QString Corrections; ///< 1000 entries in each table, eight angles a list
};

/// Writes them to `folder`; ends the process if it fails.
TableLists WriteTableLists(const QString& folder);

} // namespace tarvik
