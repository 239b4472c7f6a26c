// lists/antenna/antennaList.h: antenna lists in memory, in the list store and in files of both formats. An operation
// that returns false has shown its message.
#pragma once

#include "lists/values/listTable.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvik {

struct CsvSource;

struct AntennaRow {
    bool Used = false;
    std::int16_t Include = 0; ///< 1: active in the list
    QString Name;
    double StartFrequency = 0; ///< Hz
    double StopFrequency = 0; ///< Hz
    double FrequencyOffset = 0; ///< Hz, of a converter
    std::int16_t PassiveBits = 0; ///< switching bits, 0 to 3
    std::int16_t ActiveBits = 0;
    QString KfactorTableName; ///< base name of the linked file
    std::int16_t AntennaCode = 0;
    double NorthOffset = 0; ///< degrees
    QString CorrectionSetName; ///< base name of the linked file

    bool operator==(const AntennaRow&) const = default;
};

inline constexpr int kAntennaRows = 99;
inline constexpr int kLinkNameLength = 40;

struct AntennaTable : ListTable<AntennaRow, kAntennaRows> { };

inline constexpr int kBitPatterns = 4;

/// "00", "01", "10" or "11" for 0 to 3, else "--".
QString ModBitPatternToStr(int pattern);

/// 0 to 3; 4 for any other text. Blanks before the pattern and a missing first zero do not matter.
int ModStrToBitPattern(const QString& text);

/// Reads a list, as CSV if `IsCsvFile`. After a failure the table is empty. An error in a data line of CSV is reported,
/// and what has been read is kept, the fields of that line included.
[[nodiscard]] bool ReadAntennaFile(const QString& path, AntennaTable& table);
[[nodiscard]] bool ReadAntennaMRFile(const QString& path, AntennaTable& table);
[[nodiscard]] bool ReadAntennaCSVFile(const QString& path, AntennaTable& table);

/// As above for CSV in memory, read from the start of `source`.
[[nodiscard]] bool ReadAntennaCsv(CsvSource& source, AntennaTable& table);

/// Writes a list, as CSV if `IsCsvFile`; asks before replacing a file.
[[nodiscard]] bool WriteAntennaFile(const QString& path, const AntennaTable& table);
[[nodiscard]] bool WriteAntennaMRFile(const QString& path, const AntennaTable& table);
[[nodiscard]] bool WriteAntennaCSVFile(const QString& path, const AntennaTable& table);

/// The CSV file in memory; empty, after a message, for a list that could not be read back.
[[nodiscard]] QByteArray AntennaCsv(const AntennaTable& table);

/// What a row lacks. Too many included antennas are no fault of a row.
enum class AntennaFault { TooManyIncluded, StartFrequency, StopFrequency };
struct AntennaRefusal {
    AntennaFault Fault;
    int Row = 0;
};

/// Checks the used rows: message 12774 if as many antennas are included as the instrument's limit says, 12773 for a
/// frequency outside the limits. A stop below the start is swapped with it.
std::optional<AntennaRefusal> ValidateAntennaRows(std::vector<AntennaRow>& rows);

} // namespace tarvik
