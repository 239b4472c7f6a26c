// lists/memory/memoryList.h: memory lists in the table, the list store and files of both formats. An operation that
// returns false has shown its message.
#pragma once

#include "lists/memory/memoryRecord.h"

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace tarvik {

struct CsvSource;

/// Sort keys of the store, in the order in which the editor offers them.
enum class MemorySortKey : std::int16_t {
    Status = 0, ///< status, then number
    NumberUp = 1,
    NumberDown = 2,
    FrequencyUp = 3,
    FrequencyDown = 4,
    DescriptionUp = 5,
    DescriptionDown = 6
};
inline constexpr int kMemorySortKeys = 7;

/// Clears the store's list and reads it: start values, with the store's defaults in unused rows.
[[nodiscard]] bool ClearMemoryList(MemoryTable& table);

/// Copies the store's current list into the table. After a failure the table is partly read.
[[nodiscard]] bool ReadMemoryListDll(MemoryTable& table);

/// Replaces the store's current list by name, description and used rows.
[[nodiscard]] bool WriteMemoryListDll(const MemoryTable& table);

/// Reads a list file, as CSV if `IsCsvFile`. After a failure the table is an empty list.
[[nodiscard]] bool OpenMemoryList(const QString& path, MemoryTable& table);
[[nodiscard]] bool ReadMemoryListMRFile(const QString& path, MemoryTable& table);
[[nodiscard]] bool ReadMemoryListCSVFile(const QString& path, MemoryTable& table);

/// As above for CSV in memory, read from the start of `source`. Writing returns no bytes, after a message, for a list
/// that could not be read back.
[[nodiscard]] bool ReadMemoryListCsv(CsvSource& source, MemoryTable& table);
[[nodiscard]] QByteArray MemoryListCsv(const MemoryTable& table);

/// Passes the table through the store and writes it, as CSV if `IsCsvFile`; asks before replacing a file. On success
/// the table is as the store keeps it.
[[nodiscard]] bool WriteMemoryList(const QString& path, MemoryTable& table);

/// Write the store's current list, and `table`.
[[nodiscard]] bool WriteMemoryListMRFile(const QString& path);
[[nodiscard]] bool WriteMemoryListCSVFile(const QString& path, const MemoryTable& table);

/// Sorts in the store, used rows first. A failure leaves the table unchanged.
[[nodiscard]] bool SortMemoryList(MemoryTable& table, MemorySortKey key);

/// The key that a click on a column's header selects if `current` is selected; none for columns without a key.
std::optional<MemorySortKey> MemorySortKeyOfHeader(int column, MemorySortKey current);

/// The column whose header shows the sort arrow for `key`, or -1.
int MemoryHeaderOfSortKey(MemorySortKey key);
bool IsAscending(MemorySortKey key);

} // namespace tarvik
