// lists/memory/memoryList.h: memory lists between the table, the list store and both file forms. Every failure has been
// shown to the user when an operation answers false.
#pragma once

#include "lists/memory/memoryRecord.h"

#include <QByteArray>

namespace tarvik {

struct CsvSource;

/// Keys of a sort, as the store knows them and in the order in which the editor offers them.
enum MemorySortKey {
    MemorySortStatus = 0, ///< status, then number
    MemorySortNumberUp = 1,
    MemorySortNumberDown = 2,
    MemorySortFrequencyUp = 3,
    MemorySortFrequencyDown = 4,
    MemorySortDescriptionUp = 5,
    MemorySortDescriptionDown = 6
};
inline constexpr int kMemorySortKeys = 7;

/// Empties the store's list and takes it over: the table's start values, with the store's defaults in unused rows.
[[nodiscard]] bool ClearMemoryList(MemoryTable& table);

/// Copies the store's current list into the table. After a failure the table holds what was read until then.
[[nodiscard]] bool ReadMemoryListDll(MemoryTable& table);

/// Copies name, description and used rows into the store's current list.
[[nodiscard]] bool WriteMemoryListDll(const MemoryTable& table);

/// Reads a list file in the form that its name tells (`IsCsvFile`). After a failure the table holds an empty list.
[[nodiscard]] bool OpenMemoryList(const QString& path, MemoryTable& table);
[[nodiscard]] bool ReadMemoryListMRFile(const QString& path, MemoryTable& table);
[[nodiscard]] bool ReadMemoryListCSVFile(const QString& path, MemoryTable& table);

/// The CSV form in memory. Reading begins at the start of `source`; writing gives no bytes, after a message, for a
/// list that could not be read back.
[[nodiscard]] bool ReadMemoryListCsv(CsvSource& source, MemoryTable& table);
[[nodiscard]] QByteArray MemoryListCsv(const MemoryTable& table);

/// Writes a list file in the form that its name tells, after a way through the store, which leaves in the table what
/// the store keeps. Asks before it replaces a file.
[[nodiscard]] bool WriteMemoryList(const QString& path, MemoryTable& table);

/// Writes the store's current list.
[[nodiscard]] bool WriteMemoryListMRFile(const QString& path);
[[nodiscard]] bool WriteMemoryListCSVFile(const QString& path, const MemoryTable& table);

/// Sorts by way of the store: the used rows stand in front afterwards. After a failure the rows are as they were.
[[nodiscard]] bool SortMemoryList(MemoryTable& table, int key);

/// The key that a click on a column's header selects while `present` is selected, or -1 for a column without one.
int MemorySortKeyOfHeader(int column, int present);

/// The column whose header shows that the list is sorted by `key`, or -1.
int MemoryHeaderOfSortKey(int key);
bool MemorySortIsAscending(int key);

} // namespace tarvik
