// lists/suppress/suppressList.h: suppress lists, i.e. ranges of frequencies, in memory, in the list store and in files
// of both formats. An operation that returns false has shown its message.
#pragma once

#include "lists/values/listTable.h"

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace tarvik {

struct CsvSource;

inline constexpr std::int16_t kExclude = 0;
inline constexpr std::int16_t kInclude = 1;
inline constexpr std::int16_t kUnknownInclude = 255; ///< of a text in a CSV file that is neither

struct SuppressRow {
    bool Used = false;
    std::int16_t Include = kExclude;
    double StartFrequency = 0; ///< Hz
    double StopFrequency = 0; ///< Hz; may be below the start, as the store's sort and merge deal with ranges
    QString Description;

    bool operator==(const SuppressRow&) const = default;
};

inline constexpr int kSuppressRows = 100;

struct SuppressTable : ListTable<SuppressRow, kSuppressRows> { };

/// Empty for a value that is neither.
QString IncludeToStr(std::int16_t include);
std::int16_t IncludeStrToStatus(const QString& text);

/// Reads a list, as CSV if `IsCsvFile`. After a failure the table is empty. An error in a data line of CSV is reported,
/// and what has been read is kept, the fields of that line included.
[[nodiscard]] bool ReadSuppressFile(const QString& path, SuppressTable& table);
[[nodiscard]] bool ReadSuppressMRFile(const QString& path, SuppressTable& table);
[[nodiscard]] bool ReadSuppressCSVFile(const QString& path, SuppressTable& table);

/// As above for CSV in memory, read from the start of `source`.
[[nodiscard]] bool ReadSuppressCsv(CsvSource& source, SuppressTable& table);

/// Copies the store's current list. After a failure the table is partly read.
[[nodiscard]] bool ReadSuppressFromStore(SuppressTable& table);

/// Replaces the store's current list by name, description and used rows; gaps stay.
[[nodiscard]] bool WriteSuppressListDll(const SuppressTable& table);

/// Passes the table through the store and writes it, as CSV if `IsCsvFile`; asks before replacing a file. After a
/// passage through the store the table is as the store keeps it, whether or not it is written.
[[nodiscard]] bool WriteSuppressFile(const QString& path, SuppressTable& table);
[[nodiscard]] bool WriteSuppressListMRFile(const QString& path); ///< the store's current list
[[nodiscard]] bool WriteSuppressListCSVFile(const QString& path, const SuppressTable& table);

/// The CSV file in memory; empty, after a message, for a list that could not be read back.
[[nodiscard]] QByteArray SuppressCsv(const SuppressTable& table);

/// Sort in the store: by start, then stop, then included before excluded, without gaps. Merging joins ranges of the
/// same setting that overlap or touch. A failure leaves the table unchanged.
[[nodiscard]] bool SortSuppressRows(SuppressTable& table);
[[nodiscard]] bool SortAndMergeSuppressRows(SuppressTable& table);

} // namespace tarvik
