// lists/kfactor/kfactorTable.h: K-factor tables in memory, in the list store and in files of both formats. An operation
// that returns false has shown its message.
#pragma once

#include "lists/values/listTable.h"

#include <QByteArray>
#include <QString>

namespace tarvik {

struct CsvSource;

struct KfactorEntry {
    bool Used = false;
    double Frequency = 0; ///< Hz
    double Passive = 0; ///< dB/m
    double Active = 0; ///< dB/m

    bool operator==(const KfactorEntry&) const = default;
};

inline constexpr int kKfactorRows = 1000;
inline constexpr int kFewestKfactorRows = 2; ///< of a table that can be saved

struct KfactorTable : ListTable<KfactorEntry, kKfactorRows> {
    int Count = 0; ///< rows filled by the last read or sort: 0 to Count - 1; not updated by editing

    bool operator==(const KfactorTable&) const = default;
};

/// The table of the editor, which the antenna editor loads as well to learn its first and last frequency.
KfactorTable& Kfactors();

/// Reads a table, as CSV if `IsCsvFile`. After a failure it is empty. An error in a data line of CSV is reported, and
/// the entries before that line are kept.
[[nodiscard]] bool LoadKfactorFile(const QString& path, KfactorTable& table);
[[nodiscard]] bool ReadKfactorCsv(const QString& path, KfactorTable& table);

/// As above for CSV in memory, read from the start of `source`.
[[nodiscard]] bool ReadKfactorCsv(CsvSource& source, KfactorTable& table);

/// Copies the store's current table. After a failure `table` is partly read.
[[nodiscard]] bool ReadKfactorFromStore(KfactorTable& table);

/// Frequency in Hz of the first and of the last row of the last read or sort. False, without a message, if there is
/// none.
bool FirstKfactorFrequency(const KfactorTable& table, double& frequencyHz);
bool LastKfactorFrequency(const KfactorTable& table, double& frequencyHz);

/// Writes a table, as CSV if `IsCsvFile`; asks before replacing a file. In CSV an entry keeps the number of its row,
/// and a gap makes the file unreadable; sorting closes gaps.
[[nodiscard]] bool WriteKfactorFile(const QString& path, const KfactorTable& table);
[[nodiscard]] bool WriteKFactorCSVFile(const QString& path, const KfactorTable& table);
[[nodiscard]] bool WriteKFactorMRFile(const QString& path, const KfactorTable& table);

/// The CSV file in memory; empty, after a message, for a name that could not be read back.
[[nodiscard]] QByteArray KfactorCsv(const KfactorTable& table);

/// Replaces the store's current table by the used rows, without gaps.
[[nodiscard]] bool WriteKFactorDll(const KfactorTable& table);

/// Sorts in the store: ascending frequency, without gaps. A failure leaves the table unchanged.
[[nodiscard]] bool SortKfactorRows(KfactorTable& table);

/// What the editor checks but for names and cells: message 12772 for fewer than two entries, 12768 for a frequency that
/// occurs twice.
[[nodiscard]] bool KfactorMayBeSaved(const KfactorTable& table);

int UsedKfactorRows(const KfactorTable& table);

/// The first used row with the frequency of an earlier row, or -1. The earlier row counts even if it is not used: a
/// deleted row keeps its frequency.
int DuplicateKfactorRow(const KfactorTable& table);

} // namespace tarvik
